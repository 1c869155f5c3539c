// The real window on Qt's offscreen platform, and a user for it.
#pragma once

#include <QtWidgets>
#include <functional>

#include "app/program.h"
#include "services/ui/qt/program_window.h"
#include "tests/files.h"
#include "window/window1.h"

/// Answers whatever is shown, so that nothing waits for it for ever: a dialog gets the next file, a question "Yes", and
/// alerts are read and closed.
class User final : public QObject {
 public:
  QStringList files;                             // to choose; an empty one cancels
  std::function<void()> inDialog, afterDialogs;  // done once: before the next file is chosen; after the last dialog
  QStringList dialog;                            // what the last one was, and "replaced"
  QStringList alerts;

  User() { Look(); }

 private:
  void Look() {
    QTimer::singleShot(1, this, &User::Look);  // first, as what follows may wait for a dialog's end
    QWidget* shown = QApplication::activeModalWidget();
    if (shown == nullptr) {
      if (files.isEmpty() && afterDialogs) std::exchange(afterDialogs, nullptr)();
      return;
    }
    const QString owner = shown->parentWidget() != nullptr ? shown->parentWidget()->windowTitle() : "no window";
    auto* chooser = qobject_cast<QFileDialog*>(shown);
    if (auto* alert = qobject_cast<QMessageBox*>(shown)) {
      if (auto* yes = alert->button(QMessageBox::Yes)) {
        dialog += "replaced";
        return yes->click();
      }
      alerts +=
          QStringList{owner, alert->windowTitle(), alert->property("textFormat").toString(), alert->text()}.join('|');
      return alert->accept();
    }
    if (chooser == nullptr || files.isEmpty()) qFatal("nobody answers “%s”", qPrintable(shown->windowTitle()));
    if (inDialog) std::exchange(inDialog, nullptr)();
    auto* name = chooser->findChild<QLineEdit*>("fileNameEdit");
    const QString folder = chooser->directory().path(), filters = chooser->nameFilters().join(';');
    dialog = {chooser->property("acceptMode").toString(),
              chooser->property("fileMode").toString(),
              filters,
              name->text(),
              owner,
              folder};
    name->setText(files.takeFirst());
    name->text().isEmpty() ? shown->close() : QMetaObject::invokeMethod(chooser, "accept");
  }
};

class TestedWindow {
 public:
  celestrix::Ref<celestrix::Window1> window = celestrix::Window1::Shared();
  QMainWindow* frame = qobject_cast<QMainWindow*>(celestrix::ProgramWindow());
  QPlainTextEdit* txt = frame->findChild<QPlainTextEdit*>("txt");
  QPushButton* browse = frame->findChild<QPushButton*>("BrowseBtn");
  QPushButton* save = frame->findChild<QPushButton*>("SaveBtn");
  QRadioButton* palm = frame->findChildren<QRadioButton*>("FileFormat").value(0);
  QRadioButton* pocket = frame->findChildren<QRadioButton*>("FileFormat").value(1);
  User user;

  TestedWindow() { QApplication::setActiveWindow(frame); }
  ~TestedWindow() {
    window = nullptr;
    celestrix::ReleaseImplicitWindows();
    QCOMPARE(user.files + user.alerts, QStringList());
  }

  std::string Text() { return std::string(Field()->Text().Bytes()); }
  void SetText(const QString& text) { Field()->Text(celestrix::String(std::string_view(text.toStdString()))); }
  /// Whether the field shows all of its text.
  bool IsWhole() { return txt->document()->isUndoRedoEnabled(); }
  QAction* Command(const char* name) { return frame->findChild<QAction*>(name); }

  /// Drags it over the field and drops it there. What became of it: "CopyAction", "refused" or a fault.
  QString Drop(const QString& text, const QStringList& files = {}, Qt::DropActions offered = ~Qt::DropActions()) {
    QMimeData mime;
    if (!text.isNull()) mime.setText(text);
    if (!files.isEmpty()) mime.setUrls(QUrl::fromStringList(files));
    const QPoint at(50, 50);
    QDragEnterEvent enter(at, offered, &mime, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(at, offered, &mime, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(at, offered, &mime, Qt::LeftButton, Qt::ShiftModifier);  // who would rather move it
    const std::string before = Text();
    for (QDropEvent* event : std::initializer_list<QDropEvent*>{&enter, &move, &drop}) {
      QCoreApplication::sendEvent(txt->viewport(), event);
      if (!event->isAccepted()) return event == &enter ? "refused" : "refused on the way";
    }
    if (Text() != before) return "handled while its source waits";
    QTest::qWait(0);
    return QVariant::fromValue(drop.dropAction()).toString();
  }

  /// Clicks a button whose handler asks for a file, and gives that one. Returns what the dialog was.
  QStringList Click(QPushButton* button, const QString& path) {
    user.files = QStringList(path);
    QTest::mouseClick(button, Qt::LeftButton);
    return user.dialog;
  }
  static void Choose(QRadioButton* button) { QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, 10)); }

  /// What the next alert is.
  QString Alert() {
    const bool came = QTest::qWaitFor([&] { return !user.alerts.isEmpty(); }, 20000);
    return came ? user.alerts.takeFirst() : "no alert";
  }

 private:
  celestrix::Ref<celestrix::EditField> Field() {
    return RuntimeWindowControlByName(window, celestrix::String(std::string_view("txt"))).As<celestrix::EditField>();
  }
};

inline QString PreferencesPath() { return qEnvironmentVariable("XDG_CONFIG_HOME") + "/CelestrixSatellite.prefs"; }

/// A test's main: the program's own start and end, with a home of its own.
template <class Test>
int RunTest(int argc, char** argv) {
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  celestrix::Program program(argc, argv);
  program.Start();
  Test test;
  return QTest::qExec(&test, argc, argv);
}
