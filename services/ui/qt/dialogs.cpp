#include "services/ui/dialogs.h"

#include <QFileDialog>
#include <QFileInfo>

#include "services/base/file_type.h"
#include "services/ui/application.h"
#include "services/ui/qt/local_file.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

#ifndef Q_OS_WIN
const QString kOpen = QStringLiteral("Open"), kSaveAs = QStringLiteral("Save As");
#else
const QString kOpen, kSaveAs;  // Windows has its own titles, in the user's language
#endif

QString lastFolder;  // empty until the user has chosen a file

/// "PDB (*.pdb *.[pP][dD][bB])": the type's files, whatever the case of each letter in their extension. Windows does
/// not understand the second pattern; in the dialogs of some desktops the first one matches lower case only.
QString NameFilter(const String& fileType) {
  const FileType& type = RegisteredFileTypeNamed(fileType);
  const QString extension = ToQString(type.Extensions);
  QString inAnyCase;
  for (const QChar letter : extension.sliced(1)) inAnyCase += '[' + letter.toLower() + letter.toUpper() + ']';
  return QStringLiteral("%1 (*%2 *.%3)").arg(ToQString(type.Name), extension, inAnyCase);
}

/// What the user chooses; null when the user cancels.
Ref<FolderItem> ChosenIn(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  if (IsEndedBySystem() || dialog.exec() != QDialog::Accepted) return nullptr;
  const QUrl chosen = dialog.selectedUrls().value(0);
  const QString path = LocalFile(chosen);
  if (path.isEmpty())
    throw RuntimeException("“" + chosen.toDisplayString().toStdString() + "” is not a file on this computer.");
  const QFileInfo file(path);
  lastFolder = file.absolutePath();
  return New<FolderItem>(file.filesystemAbsoluteFilePath());
}

}  // namespace

Ref<FolderItem> GetOpenFolderItem(const String& fileType) {
  QFileDialog dialog(ProgramWindow(), kOpen, lastFolder, NameFilter(fileType));
  dialog.setFileMode(QFileDialog::ExistingFile);
  return ChosenIn(dialog);
}

Ref<FolderItem> GetSaveFolderItem(const String& fileType, const String& defaultName) {
  QFileDialog dialog(ProgramWindow(), kSaveAs, lastFolder, NameFilter(fileType));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.selectFile(ToQString(defaultName));
  return ChosenIn(dialog);
}

}  // namespace celestrix
