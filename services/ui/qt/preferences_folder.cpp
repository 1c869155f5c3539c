#include "services/ui/preferences_folder.h"

#include <QDir>
#include <QStandardPaths>

namespace celestrix {

Ref<FolderItem> PreferencesFolder() {
  const QString otherwise = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  // Set on Windows only: the folder that goes with the user from machine to machine.
  return New<FolderItem>(QDir(qEnvironmentVariable("APPDATA", otherwise)).filesystemAbsolutePath());
}

}  // namespace celestrix
