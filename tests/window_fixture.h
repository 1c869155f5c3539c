// The real window on Qt's offscreen platform, and a user's hands for it.
#pragma once

#include <QtWidgets>
#include <optional>

#include "app/app.h"
#include "app/file_types.h"
#include "tests/files.h"
#include "window/menu_bar.h"
#include "window/window1.h"

/// What a test's main does before its first window: the program's own start.
class Program {
 public:
  Program(int& argc, char** argv) {
    qputenv("XDG_CONFIG_HOME", home_.path().toUtf8());
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    runtime_.emplace(argc, argv, celestrix::String());
    qInstallMessageHandler(nullptr);
    celestrix::FileTypes1::_Initialize();
  }
  ~Program() { celestrix::FileTypes1::Release(); }

 private:
  QTemporaryDir home_;
  std::optional<celestrix::Runtime> runtime_;
};

inline QString PreferencesPath() { return qEnvironmentVariable("XDG_CONFIG_HOME") + "/CelestrixSatellite.prefs"; }

class TestedWindow {
 public:
  celestrix::Ref<celestrix::Window1> window = celestrix::New<celestrix::Window1>();
  QMainWindow* frame = Opened();
  QPlainTextEdit* txt = frame->findChild<QPlainTextEdit*>("txt");
  QPushButton* browse = frame->findChild<QPushButton*>("BrowseBtn");
  QPushButton* save = frame->findChild<QPushButton*>("SaveBtn");
  QRadioButton* palm = frame->findChildren<QRadioButton*>("FileFormat").value(0);
  QRadioButton* pocket = frame->findChildren<QRadioButton*>("FileFormat").value(1);

  std::string Text() { return std::string(Field()->Text().Bytes()); }
  void SetText(const std::string& text) { Field()->Text(celestrix::String(std::string_view(text))); }
  /// Whether the field shows all of its text.
  bool IsWhole() { return txt->document()->isUndoRedoEnabled(); }

  /// Drags over the field and drops, if it is accepted; returns whether it was.
  bool Drop(const QMimeData& mime) {
    const QPoint at(50, 50);
    const auto actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(txt->viewport(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(at, actions, &mime, Qt::LeftButton, Qt::ShiftModifier);  // who would rather move it
    const std::string before = Text();
    QCoreApplication::sendEvent(txt->viewport(), &drop);
    if (drop.dropAction() != Qt::CopyAction || Text() != before) qFatal("a drop took its source away, or made it wait");
    QTest::qWait(0);
    return drop.isAccepted();
  }
  bool DropFiles(const QStringList& paths, const QString& text = {}) {
    QMimeData mime;
    QList<QUrl> urls;
    for (const QString& path : paths) urls += path.contains("://") ? QUrl(path) : QUrl::fromLocalFile(path);
    mime.setUrls(urls);
    if (!text.isEmpty()) mime.setText(text);
    return Drop(mime);
  }
  bool DropText(const QString& text) {
    QMimeData mime;
    mime.setText(text);
    return Drop(mime);
  }

  /// Clicks a button whose handler asks for a file, and gives that one, or cancels where it is empty. Returns the
  /// name that the dialog proposed.
  QString Click(QPushButton* button, const QString& path) {
    QString proposed;
    AnswerFileDialog(path, &proposed);
    QTest::mouseClick(button, Qt::LeftButton);
    return proposed;
  }

  static void AnswerFileDialog(const QString& path, QString* proposed = nullptr) {
    QTimer::singleShot(0, qApp, [path, proposed] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return AnswerFileDialog(path, proposed);
      auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
      if (proposed != nullptr) *proposed = name->text() + dialog->selectedNameFilter();
      dialog->setOption(QFileDialog::DontConfirmOverwrite);
      name->setText(path);
      path.isEmpty() ? dialog->reject() : static_cast<QDialog*>(dialog)->accept();
    });
  }

  /// Reads the alert that is shown, or will be, and closes it.
  static void ExpectAlert(QString* text) {
    QTimer::singleShot(0, qApp, [text] {
      auto* alert = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (alert == nullptr) return ExpectAlert(text);
      *text = alert->text();
      alert->accept();
    });
  }

 private:
  celestrix::Ref<celestrix::EditField> Field() {
    return RuntimeWindowControlByName(window, celestrix::String(std::string_view("txt"))).As<celestrix::EditField>();
  }
  QMainWindow* Opened() {
    window->Open();
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* made = qobject_cast<QMainWindow*>(widget)) {  // there is only one at a time
        QApplication::setActiveWindow(made);
        return made;
      }
    return nullptr;
  }
};
