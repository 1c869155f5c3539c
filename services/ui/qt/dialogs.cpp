#include "services/ui/dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

#include "services/base/file_type.h"
#include "services/ui/application.h"
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

/// Where a dialog opens. Qt would take a deleted folder for a file.
QString StartFolder() { return QFileInfo(lastFolder).isDir() ? lastFolder : QString(); }

/// "PDB (*.pdb *.[pP][dD][bB])": the type's files, whatever the case of each letter in their extension. Windows does
/// not understand the second pattern; in the dialogs of some desktops the first one matches lower case only.
QString NameFilter(const String& fileType) {
  const FileType& type = RegisteredFileTypeNamed(fileType);
  const QString extension = ToQString(type.Extensions);
  QString inAnyCase;
  for (const QChar letter : extension.sliced(1)) inAnyCase += '[' + letter.toLower() + letter.toUpper() + ']';
  return QStringLiteral("%1 (*%2 *.%3)").arg(ToQString(type.Name), extension, inAnyCase);
}

[[noreturn]] void Refuse(const QString& name, const char* why) {
  throw RuntimeException("“" + name.toStdString() + "” " + why);
}

/// Qt's own dialog treats each quoted part of a name as a name, and so would choose another file.
class FileDialog final : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;
  QString refused;  // the name, if it is one of these

 protected:
  void accept() override {
    const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name == nullptr || !name->text().contains('"')) return QFileDialog::accept();
    refused = name->text();
    reject();
  }
};

/// What the user chooses; null when the user cancels.
Ref<FolderItem> ChosenIn(FileDialog& dialog) {
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  const bool isChosen = !IsEndedBySystem() && dialog.exec() == QDialog::Accepted;
  if (!dialog.refused.isEmpty()) Refuse(dialog.refused, "has quotation marks in its name.");
  if (!isChosen) return nullptr;
  const QUrl chosen = dialog.selectedUrls().value(0);
  const QString path = chosen.toLocalFile();
  if (path.isEmpty()) Refuse(chosen.toDisplayString(), "is not a file on this computer.");
  const QFileInfo file(path);
  lastFolder = file.absolutePath();
  return New<FolderItem>(file.filesystemAbsoluteFilePath());
}

}  // namespace

Ref<FolderItem> GetOpenFolderItem(const String& fileType) {
  FileDialog dialog(ProgramWindow(), kOpen, StartFolder(), NameFilter(fileType));
  dialog.setFileMode(QFileDialog::ExistingFile);
  return ChosenIn(dialog);
}

Ref<FolderItem> GetSaveFolderItem(const String& fileType, const String& defaultName) {
  FileDialog dialog(ProgramWindow(), kSaveAs, StartFolder(), NameFilter(fileType));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.selectFile(ToQString(defaultName));
  return ChosenIn(dialog);
}

}  // namespace celestrix
