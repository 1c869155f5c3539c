// The real window on Qt's offscreen platform, and a user for it.
#pragma once

#include <QtWidgets>

#include "app/program.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/text_field.h"
#include "tests/files.h"
#include "tests/model.h"
#include "window/window1.h"

using namespace celestrix;

/// Lines of element sets, with a byte order mark before each set, as in files that have been joined.
const QString kLongText =
    (QStringLiteral("\uFEFFSAT \U0001F6F0 é\n") + QString(71, '1') + "\n").repeated(12000) + "end";

inline void CopyElsewhere(const QString& text) { QGuiApplication::clipboard()->setText(text); }

/// The window and a user who answers everything, so that nothing waits forever: a dialog gets the next file, or is
/// cancelled and fails the test; a question gets "Yes", and alerts are read and closed.
class TestedWindow final : public QObject {
 public:
  Ref<Window1> window = Window1::Shared();
  QMainWindow* frame = qobject_cast<QMainWindow*>(ProgramWindow());
  QPlainTextEdit* txt = frame->findChild<QPlainTextEdit*>("txt");
  QPushButton* browse = frame->findChild<QPushButton*>("BrowseBtn");
  QPushButton* save = frame->findChild<QPushButton*>("SaveBtn");
  QRadioButton* palm = frame->findChildren<QRadioButton*>("FileFormat").value(0);
  QRadioButton* pocket = frame->findChildren<QRadioButton*>("FileFormat").value(1);
  QWidget* dropsOn = txt->viewport();
  std::function<void(const QFileDialog&)> inDialog;  // done once, before the next file is chosen

  TestedWindow() {
    Look();
    Activate();
  }
  ~TestedWindow() override {
    window = nullptr;
    ReleaseImplicitWindows();
    QCOMPARE(files_.join('\n'), "");   // no dialog asked for these
    QCOMPARE(alerts_.join('\n'), "");  // nobody expected these
  }

  /// After a dialog no window is active on this platform, until one asks for it.
  void Activate() { QTRY_VERIFY((frame->activateWindow(), frame->isActiveWindow())); }

  QString Text() {
    const auto field = RuntimeWindowControlByName(window, "txt"_s).As<EditField>();
    return QString::fromUtf8("x" + Bytes(field->Text())).mid(1);  // a mark at the start would be lost
  }
  /// Whether the field shows all of its text.
  bool IsWhole() { return static_cast<TextField*>(txt)->IsWhole(); }
  /// A command, as its menu shows it.
  QAction* Command(const char* name) {
    auto* command = frame->findChild<QAction*>(name);
    auto* menu = qobject_cast<QMenu*>(command->parent());
    Q_EMIT menu->aboutToShow();
    return command;
  }

  /// Drags it over the field and drops it there. Returns the outcome: "copied", "refused" or a fault.
  QString Drop(const QString& text, const QStringList& files = {}, Qt::DropActions offered = ~Qt::DropActions()) {
    QMimeData mime;
    if (!text.isNull()) mime.setText(text);
    if (!files.isEmpty()) mime.setUrls(QUrl::fromStringList(files));
    const QString before = Text();
    QWidget* target = dropsOn;
    while (!target->acceptDrops()) target = target->parentWidget();  // which is whom Qt gives the drop to
    for (const auto type : {QEvent::DragEnter, QEvent::DragMove, QEvent::Drop}) {
      // Shift asks for a move.
      QDragMoveEvent event(QPoint(50, 50), offered, &mime, Qt::LeftButton, Qt::ShiftModifier, type);
      QCoreApplication::sendEvent(target, &event);
      if (!event.isAccepted()) return type == QEvent::DragEnter ? "refused" : "refused on the way";
      if (event.dropAction() != Qt::CopyAction) return "moved";
    }
    if (Text() != before) return "handled while its source waits";
    QTest::qWait(0);
    return "copied";
  }

  /// Drops a text that the field has to take.
  void Fill(const QString& text) { QCOMPARE(Drop(text), "copied"); }

  /// Clicks a button whose handler asks for a file, and chooses this one; an empty name cancels.
  void Click(QPushButton* button, const QString& path) {
    files_ = QStringList(path);
    QTest::mouseClick(button, Qt::LeftButton);
  }
  static void Choose(QRadioButton* button) { QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, 10)); }

  /// What the next alert says; empty if there is none.
  QString NextAlert() {
    const bool came = QTest::qWaitFor([&] { return !alerts_.isEmpty(); }, 20000);
    return came ? alerts_.takeFirst() : "";
  }

 private:
  void Look() {
    QTimer::singleShot(1, this, &TestedWindow::Look);  // first, as what follows may wait for a dialog's end
    QWidget* shown = QApplication::activeModalWidget();
    if (shown == nullptr) return;
    if (auto* alert = qobject_cast<QMessageBox*>(shown)) return Read(*alert);
    if (auto* chooser = qobject_cast<QFileDialog*>(shown)) return Answer(*chooser);
    qFatal("nobody answers “%s”", qPrintable(shown->windowTitle()));
  }

  void Read(QMessageBox& alert) {
    if (QAbstractButton* yes = alert.button(QMessageBox::Yes)) return yes->click();
    alerts_ += alert.text();
    alert.accept();
    QCOMPARE(alert.windowTitle(), "Celestrix Satellite Encoder");
    QCOMPARE(alert.textFormat(), Qt::PlainText);
    QVERIFY2(alert.parentWidget() == frame, "the alert does not belong to the window");
  }

  void Answer(QFileDialog& dialog) {
    const bool isExpected = !files_.isEmpty(), belongsToWindow = dialog.parentWidget() == frame;
    if (isExpected && inDialog) std::exchange(inDialog, nullptr)(dialog);
    const QString file = isExpected ? files_.takeFirst() : "";
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    const QSignalBlocker uncompleted(name);  // where the name has no focus, Qt puts another file that it finds into it
    name->setText(file);
    QMetaObject::invokeMethod(&dialog, file.isEmpty() ? "reject" : "accept");
    // Compared last, as a dialog without an answer would stay.
    QVERIFY2(isExpected, qPrintable("a dialog that nothing has asked for: " + dialog.windowTitle()));
    QVERIFY2(belongsToWindow, "the dialog does not belong to the window");
  }

  QStringList files_;   // to choose
  QStringList alerts_;  // what they said
};

inline QString PreferencesPath() { return qEnvironmentVariable("XDG_CONFIG_HOME") + "/CelestrixSatellite.prefs"; }

/// A test's main: the program's own start and end, with a home of its own.
template <class Test>
int RunTest(int argc, char** argv) {
  const QTemporaryDir home;
  for (const char* folder : {"XDG_CONFIG_HOME", "APPDATA"}) qputenv(folder, home.path().toUtf8());
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  char reverse[] = "-reverse";  // as where the language is written from right to left
  char* arguments[] = {argv[0], reverse, nullptr};
  int count = 2;
  Program program(count, arguments);
  program.Start();
  Test test;
  return QTest::qExec(&test, argc, argv);
}
