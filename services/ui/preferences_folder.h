#pragma once

#include "services/base/folder_item.h"

namespace celestrix {

/// The current user's preferences folder: XDG_CONFIG_HOME or ~/.config on Linux, %APPDATA% on Windows,
/// ~/Library/Preferences on macOS. On a fresh account it may not exist yet.
Ref<FolderItem> PreferencesFolder();

}  // namespace celestrix
