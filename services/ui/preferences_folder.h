#pragma once

#include "services/base/folder_item.h"

namespace celestrix {

/// The current user's preferences folder: XDG_CONFIG_HOME or ~/.config on Linux, ~/Library/Preferences on
/// macOS. It is made if it does not exist yet; where that fails, so does creating a file in it.
Ref<FolderItem> PreferencesFolder();

}  // namespace celestrix
