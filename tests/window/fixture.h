// The real window on Qt's offscreen platform, and a user for it.
#pragma once

#include <QtWidgets>

#include "app/program.h"
#include "services/ui/qt/program_window.h"
#include "tests/files.h"
#include "tests/model.h"
#include "window/window1.h"

using namespace celestrix;

/// The window, whose user answers whatever is shown, so that nothing waits for it for ever: a dialog gets the next
/// file, a question "Yes", and alerts are read and closed.
class TestedWindow final : public QObject {
 public:
  Ref<Window1> window = Window1::Shared();
  QMainWindow* frame = qobject_cast<QMainWindow*>(ProgramWindow());
  QPlainTextEdit* txt = frame->findChild<QPlainTextEdit*>("txt");
  QPushButton* browse = frame->findChild<QPushButton*>("BrowseBtn");
  QPushButton* save = frame->findChild<QPushButton*>("SaveBtn");
  QRadioButton* palm = frame->findChildren<QRadioButton*>("FileFormat").value(0);
  QRadioButton* pocket = frame->findChildren<QRadioButton*>("FileFormat").value(1);
  std::function<void()> inDialog;  // done once, before the next file is chosen
  QStringList alerts;

  TestedWindow() {
    frame->activateWindow();
    if (!QTest::qWaitForWindowActive(frame)) qFatal("the window does not become the active one");
    Look();
  }
  ~TestedWindow() override {
    window = nullptr;
    ReleaseImplicitWindows();
    QCOMPARE(files_ + alerts, QStringList());
  }

  QString Text() {
    const auto field = RuntimeWindowControlByName(window, "txt"_s).As<EditField>();
    return QString::fromUtf8("x" + Bytes(field->Text())).mid(1);  // a mark at the start would be lost
  }
  /// Whether the field shows all of its text.
  bool IsWhole() { return txt->document()->isUndoRedoEnabled(); }
  QAction* Command(const char* name) { return frame->findChild<QAction*>(name); }

  /// Drags it over the field and drops it there. What became of it: "copied", "refused" or a fault.
  QString Drop(const QString& text, const QStringList& files = {}, Qt::DropActions offered = ~Qt::DropActions()) {
    QMimeData mime;
    if (!text.isNull()) mime.setText(text);
    if (!files.isEmpty()) mime.setUrls(QUrl::fromStringList(files));
    const QString before = Text();
    for (const auto type : {QEvent::DragEnter, QEvent::DragMove, QEvent::Drop}) {
      // With Shift, as a user holds it who would rather move it.
      QDragMoveEvent event(QPoint(50, 50), offered, &mime, Qt::LeftButton, Qt::ShiftModifier, type);
      QCoreApplication::sendEvent(txt->viewport(), &event);
      if (!event.isAccepted()) return type == QEvent::DragEnter ? "refused" : "refused on the way";
      if (event.dropAction() != Qt::CopyAction) return "moved";
    }
    if (Text() != before) return "handled while its source waits";
    QTest::qWait(0);
    return "copied";
  }

  /// Clicks a button whose handler asks for a file, and gives that one; an empty one cancels. Returns what the dialog
  /// was, and "replaced" where that was asked.
  QString Click(QPushButton* button, const QString& path) {
    files_ = QStringList(path);
    QTest::mouseClick(button, Qt::LeftButton);
    return dialog_;
  }
  static void Choose(QRadioButton* button) { QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, 10)); }

  /// What the next alert is.
  QString Alert() {
    const bool came = QTest::qWaitFor([&] { return !alerts.isEmpty(); }, 20000);
    return came ? alerts.takeFirst() : "no alert";
  }

 private:
  void Look() {
    QTimer::singleShot(1, this, &TestedWindow::Look);  // first, as what follows may wait for a dialog's end
    QWidget* shown = QApplication::activeModalWidget();
    if (shown == nullptr) return;
    const QString owner = shown->parentWidget() != nullptr ? shown->parentWidget()->windowTitle() : "no window";
    if (auto* alert = qobject_cast<QMessageBox*>(shown)) {
      const QString format = alert->property("textFormat").toString();
      if (alert->button(QMessageBox::Yes) != nullptr) {
        dialog_ += "|replaced";
        return alert->button(QMessageBox::Yes)->click();
      }
      alerts += QStringList{owner, alert->windowTitle(), format, alert->text()}.join('|');
      return alert->accept();
    }
    auto* chooser = qobject_cast<QFileDialog*>(shown);
    if (chooser == nullptr || files_.isEmpty()) qFatal("nobody answers “%s”", qPrintable(shown->windowTitle()));
    if (inDialog) std::exchange(inDialog, nullptr)();
    auto* name = chooser->findChild<QLineEdit*>("fileNameEdit");
    const QString kind = chooser->property("acceptMode").toString() + '|' + chooser->property("fileMode").toString();
    const QString filters = chooser->nameFilters().join(';'), folder = chooser->directory().path();
    dialog_ = QStringList{kind, filters, name->text(), owner, folder}.join('|');
    name->setText(files_.takeFirst());
    name->text().isEmpty() ? shown->close() : QMetaObject::invokeMethod(chooser, "accept");
  }

  QStringList files_;  // to choose
  QString dialog_;     // what the last one was
};

inline QString PreferencesPath() { return qEnvironmentVariable("XDG_CONFIG_HOME") + "/CelestrixSatellite.prefs"; }

/// A test's main: the program's own start and end, with a home of its own.
template <class Test>
int RunTest(int argc, char** argv) {
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  Program program(argc, argv);
  program.Start();
  Test test;
  return QTest::qExec(&test, argc, argv);
}
