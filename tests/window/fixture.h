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

const QString kTitle = "Celestrix Satellite Encoder";

/// What the members of something shown are called, and what they say.
using Members = QList<std::pair<const char*, QString>>;

struct Alert {
  QString text, title = kTitle, owner = kTitle, format = "PlainText";

  Members All() const { return {{"text", text}, {"title", title}, {"owner", owner}, {"format", format}}; }
};

/// A dialog that asks for a file.
struct Dialog {
  QString mode = "AcceptOpen";  // or "AcceptSave"
  QString files = "AnyFile";    // or "ExistingFile"
  QString title = "", filters = "", proposedName = "", folder = "", owner = kTitle;
  bool asksToReplace = false;

  Members All() const {
    return {{"mode", mode},     {"files", files},
            {"title", title},   {"filters", filters},
            {"folder", folder}, {"proposed name", proposedName},
            {"owner", owner},   {"asks to replace", asksToReplace ? "yes" : "no"}};
  }
};

/// Names the members that are not as expected; "" where all are.
template <class Shown>
QString Differences(const Shown& actual, const Shown& expected) {
  const Members are = actual.All(), shallBe = expected.All();
  QString differences;
  for (qsizetype i = 0; i < are.size(); ++i)
    if (are[i] != shallBe[i])
      differences += QString("%1 is '%2', not '%3'. ").arg(are[i].first, are[i].second, shallBe[i].second);
  return differences;
}

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

  TestedWindow() {
    Look();
    const auto isActive = [this] {  // after an alert, on this platform, no window is until one asks for it
      frame->activateWindow();
      return frame->isActiveWindow();
    };
    if (!QTest::qWaitFor(isActive)) qFatal("the window does not become the active one");
  }
  ~TestedWindow() override {
    window = nullptr;
    ReleaseImplicitWindows();
    QCOMPARE(files_, QStringList());  // no dialog asked for these
    for (const Alert& unexpected : alerts_) QCOMPARE(unexpected.text, QString());
  }

  QString Text() {
    const auto field = RuntimeWindowControlByName(window, "txt"_s).As<EditField>();
    return QString::fromUtf8("x" + Bytes(field->Text())).mid(1);  // a mark at the start would be lost
  }
  /// Whether the field shows all of its text.
  bool IsWhole() { return static_cast<TextField*>(txt)->IsWhole(); }
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
  /// was.
  Dialog Click(QPushButton* button, const QString& path) {
    files_ = QStringList(path);
    QTest::mouseClick(button, Qt::LeftButton);
    return dialog_;
  }
  static void Choose(QRadioButton* button) { QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, 10)); }

  /// What the next alert was; one without a text where none comes.
  Alert NextAlert() {
    const bool came = QTest::qWaitFor([&] { return !alerts_.isEmpty(); }, 20000);
    return came ? alerts_.takeFirst() : Alert();
  }

 private:
  void Look() {
    QTimer::singleShot(1, this, &TestedWindow::Look);  // first, as what follows may wait for a dialog's end
    QWidget* shown = QApplication::activeModalWidget();
    if (shown == nullptr) return;
    if (auto* alert = qobject_cast<QMessageBox*>(shown)) return Read(*alert);
    auto* chooser = qobject_cast<QFileDialog*>(shown);
    if (chooser == nullptr || files_.isEmpty()) qFatal("nobody answers “%s”", qPrintable(shown->windowTitle()));
    Answer(*chooser);
  }

  static QString Owner(const QWidget& shown) {
    return shown.parentWidget() != nullptr ? shown.parentWidget()->windowTitle() : "no window";
  }

  void Read(QMessageBox& alert) {
    if (QAbstractButton* yes = alert.button(QMessageBox::Yes)) {
      dialog_.asksToReplace = true;
      return yes->click();
    }
    alerts_.append({.text = alert.text(),
                    .title = alert.windowTitle(),
                    .owner = Owner(alert),
                    .format = alert.property("textFormat").toString()});
    alert.accept();
  }

  void Answer(QFileDialog& chooser) {
    if (inDialog) std::exchange(inDialog, nullptr)();
    auto* name = chooser.findChild<QLineEdit*>("fileNameEdit");
    dialog_ = {.mode = chooser.property("acceptMode").toString(),
               .files = chooser.property("fileMode").toString(),
               .title = chooser.windowTitle(),
               .filters = chooser.nameFilters().join(';'),
               .proposedName = name->text(),
               .folder = chooser.directory().path(),
               .owner = Owner(chooser)};
    name->setText(files_.takeFirst());
    if (name->text().isEmpty()) {
      chooser.close();
    } else {
      QMetaObject::invokeMethod(&chooser, "accept");
    }
  }

  QStringList files_;  // to choose
  Dialog dialog_;      // the last one
  QList<Alert> alerts_;
};

/// What Qt makes of the system's wish that the program ends. Nothing happens in it afterwards.
inline void EndSession() {
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
}

inline QString PreferencesPath() { return qEnvironmentVariable("XDG_CONFIG_HOME") + "/CelestrixSatellite.prefs"; }

/// A test's main: the program's own start and end, with a home of its own.
template <class Test>
int RunTest(int argc, char** argv) {
  const QTemporaryDir home;
  for (const char* folder : {"XDG_CONFIG_HOME", "APPDATA"}) qputenv(folder, home.path().toUtf8());
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  Program program(argc, argv);
  QLoggingCategory::setFilterRules({});  // a test may speak
  program.Start();
  Test test;
  return QTest::qExec(&test, argc, argv);
}
