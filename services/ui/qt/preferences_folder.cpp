#include "services/ui/preferences_folder.h"

#include <QDir>
#include <QStandardPaths>

namespace celestrix {

Ref<FolderItem> PreferencesFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#ifdef Q_OS_WIN  // the folder that follows the user from machine to machine
  folder = qEnvironmentVariable("APPDATA", folder);
#endif
  // A relative XDG_CONFIG_HOME must be ignored.
  if (QDir::isRelativePath(folder)) folder = QDir::home().filePath(QStringLiteral(".config"));
  return New<FolderItem>(QDir(folder).filesystemAbsolutePath());
}

}  // namespace celestrix
