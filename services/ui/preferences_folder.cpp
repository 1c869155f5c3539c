#include "services/ui/preferences_folder.h"

#include <QDir>
#include <QStandardPaths>

namespace celestrix {

Ref<FolderItem> PreferencesFolder() {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
  folder.mkpath(QStringLiteral("."));
  return New<FolderItem>(folder.filesystemAbsolutePath());
}

}  // namespace celestrix
