// The platform's dialogs for choosing a file. They are modal, and open in the folder where the user last
// chose a file in this run. A place that is not a local file raises RuntimeException, and is not remembered.
#pragma once

#include "services/base/folder_item.h"

namespace celestrix {

/// Offers the files of the registered type of that name. Returns the chosen file, or null when the user cancels.
Ref<FolderItem> GetOpenFolderItem(const String& fileType);

/// Asks where to save a file of that type, with the default name filled in. Returns the place as the dialog gives it,
/// without adding an extension, or null when the user cancels.
Ref<FolderItem> GetSaveFolderItem(const String& fileType, const String& defaultName);

}  // namespace celestrix
