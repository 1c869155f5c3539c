#include "services/ui/preferences_folder.h"

#include <QDir>
#include <QStandardPaths>

namespace celestrix {

Ref<FolderItem> PreferencesFolder() {
  return New<FolderItem>(
      QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)).filesystemAbsolutePath());
}

}  // namespace celestrix
