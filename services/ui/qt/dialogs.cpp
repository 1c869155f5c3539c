#include "services/ui/dialogs.h"

#include <QFileDialog>
#include <QFileInfo>

#include "services/base/file_type.h"
#include "services/ui/application.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

QString lastFolder;  // empty until the user has chosen a file

/// "PDB (*.pdb *.PDB)": the type's files, whichever case their extension is in.
QString NameFilter(const String& fileType) {
  const FileType& type = RegisteredFileTypeNamed(fileType);
  const QString extension = ToQString(type.Extensions);
  return QStringLiteral("%1 (*%2 *%3)").arg(ToQString(type.Name), extension, extension.toUpper());
}

Ref<FolderItem> ChosenIn(QFileDialog& dialog) {
  if (IsEndedBySystem() || dialog.exec() != QDialog::Accepted) return nullptr;
  const QFileInfo chosen(dialog.selectedFiles().value(0));
  lastFolder = chosen.absolutePath();
  return New<FolderItem>(chosen.filesystemAbsoluteFilePath());
}

}  // namespace

Ref<FolderItem> GetOpenFolderItem(const String& fileType) {
  QFileDialog dialog(ProgramWindow(), QString(), lastFolder, NameFilter(fileType));
  dialog.setFileMode(QFileDialog::ExistingFile);
  return ChosenIn(dialog);
}

Ref<FolderItem> GetSaveFolderItem(const String& fileType, const String& defaultName) {
  QFileDialog dialog(ProgramWindow(), QString(), lastFolder, NameFilter(fileType));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.selectFile(ToQString(defaultName));
  return ChosenIn(dialog);
}

}  // namespace celestrix
