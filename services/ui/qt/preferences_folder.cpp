#include "services/ui/preferences_folder.h"

#include <QDir>
#include <QStandardPaths>

namespace celestrix {

Ref<FolderItem> PreferencesFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#ifdef Q_OS_WIN  // the folder that goes with the user from machine to machine
  folder = qEnvironmentVariable("APPDATA", folder);
#endif
  // An XDG_CONFIG_HOME that is relative is to be ignored.
  if (QDir::isRelativePath(folder)) folder = QDir::home().filePath(QStringLiteral(".config"));
  return New<FolderItem>(QDir(folder).filesystemAbsolutePath());
}

}  // namespace celestrix
