// bench_window TEXT-FILE OUTPUT operates the program's own window as a user does (a file dropped on the field, keys,
// "Save..." and the file dialog, a paste), and prints how long it takes, as lines of "measure milliseconds". It saves
// the unedited text to OUTPUT, and the text with an "x" typed at either end to OUTPUT.edited.
// bench_window TEXT-FILE does the same work with Qt's own field, as a window of the same size.
// With an empty text, both only show the window and close it. The text is ASCII.
//
// All times are processor time of the window's thread. They are what a clock would show on a machine at rest: the event
// loop never waits here, since a timer is always due.
#include <time.h>
#include <unistd.h>

#include <QtWidgets>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "app/program.h"
#include "services/base/big_block.h"

namespace {

double Now() {
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Touches more memory than the work that is measured next. The host of a virtual machine may have taken back what was
/// free; to get that again costs up to 40 times what it costs to get memory that was in use a moment ago.
void WarmMemory() {
  constexpr std::size_t kSize = 512 << 20;
  void* const block = celestrix::AllocateBlock(kSize);
  std::memset(block, 1, kSize);
  celestrix::FreeBlock(block, kSize);
}

/// Measures from Begin on: the time, the longest pause of the event loop, and whether the field has drawn a text of
/// another length.
struct Watch final : QObject {
  explicit Watch(QPlainTextEdit* watched) : field(watched) {
    field->viewport()->installEventFilter(this);
    startTimer(0);
  }
  void Begin() {
    WarmMemory();
    begin = lastAnswer = Now();
    longestPause = 0;
    oldLength = Length();
    hasDrawn = false;
  }
  void Report(const std::string& measure) {
    timerEvent(nullptr);
    std::printf("%s %.3f\n%s_pause %.3f\n", measure.c_str(), lastAnswer - begin, measure.c_str(), longestPause);
  }
  template <class Condition>
  void ReportWhen(Condition condition, const std::string& measure) {
    while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Report(measure);
  }
  void timerEvent(QTimerEvent* /*event*/) override {
    const double now = Now();
    longestPause = std::max(longestPause, now - lastAnswer);
    lastAnswer = now;
  }
  bool eventFilter(QObject* /*viewport*/, QEvent* event) override {
    if (event->type() == QEvent::Paint && Length() != oldLength) hasDrawn = true;
    return false;
  }
  QPushButton* SaveButton() const { return field->window()->findChild<QPushButton*>("SaveBtn"); }
  int Length() const { return field->document()->characterCount() - 1; }

  QPlainTextEdit* field;
  double begin = 0, lastAnswer = 0, longestPause = 0;
  int oldLength = 0;
  bool hasDrawn = false;
};

QString Read(const char* textFile) {
  QFile file(textFile);
  if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read the text");
  return QString::fromUtf8(file.readAll());
}

/// Drops the file, and waits until its first lines are shown. The field must not hold a text of the same length.
void Drop(Watch& watch, const char* textFile, const std::string& measure) {
  QMimeData mime;
  mime.setUrls({QUrl::fromLocalFile(textFile)});
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QDropEvent drop({50, 50}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  watch.Begin();
  QCoreApplication::sendEvent(watch.field->viewport(), &enter);
  QCoreApplication::sendEvent(watch.field->viewport(), &drop);
  if (!drop.isAccepted()) qFatal("the field refuses the file");
  watch.ReportWhen([&] { return watch.hasDrawn && watch.SaveButton()->isEnabled(); }, measure + "_first_lines");
}

void Load(Watch& watch, const char* textFile, const std::string& measure) {
  Drop(watch, textFile, measure);
  watch.ReportWhen([&, size = QFile(textFile).size()] { return watch.Length() == size; }, measure);
}

/// Presses a key in the field while a file comes in, so that the rest goes in at once.
void LoadAndTouch(Watch& watch, const char* textFile) {
  watch.field->clear();
  Drop(watch, textFile, "touched");
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
  watch.Begin();
  QCoreApplication::sendEvent(watch.field, &press);
  watch.Report("touch");
  if (watch.Length() != QFile(textFile).size()) qFatal("the key did not bring in the rest");
}

/// The clipboard is our own, so nothing has to be fetched.
void Paste(Watch& watch, const char* textFile) {
  const QString text = Read(textFile);
  QGuiApplication::clipboard()->setText(text);
  watch.field->clear();
  QCoreApplication::processEvents();
  watch.Begin();
  watch.field->paste();
  watch.ReportWhen([&] { return watch.Length() == text.size(); }, "paste");
}

void TypeAt(Watch& watch, QTextCursor::MoveOperation place, const char* measure) {
  watch.field->moveCursor(place);
  for (int turn = 0; turn < 20; ++turn) QCoreApplication::processEvents();  // the scrolling has been drawn
  watch.Begin();
  QCoreApplication::postEvent(watch.field, new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x"));
  watch.ReportWhen([&] { return watch.hasDrawn; }, measure);
}

/// Clicks "Save..." and accepts the dialog with that file. The measured time begins when the dialog is gone.
void Save(Watch& watch, const QString& output, const char* measure) {
  QFile::remove(output);  // or the dialog would ask
  QTimer looksForDialog;
  QObject::connect(&looksForDialog, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    looksForDialog.stop();
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(output);  // selectFile does nothing where that has the focus
    QObject::connect(dialog, &QObject::destroyed, [&] { watch.Begin(); });
    static_cast<QDialog*>(dialog)->accept();
  });
  looksForDialog.start(5);
  watch.SaveButton()->click();  // returns when the file is written
  watch.Report(measure);
}

void OperateProgram(Watch& watch, char** argv) {
  const char* const textFile = argv[1];
  const QString output = argv[2];
  Load(watch, textFile, "load");
  Save(watch, output, "save");
  TypeAt(watch, QTextCursor::Start, "key_first");
  TypeAt(watch, QTextCursor::End, "key_later");
  Save(watch, output + ".edited", "save_edited");
  Load(watch, textFile, "reload");
  LoadAndTouch(watch, textFile);
  Paste(watch, textFile);
}

void OperateBareField(Watch& watch, char** argv) {
  watch.Begin();
  watch.field->setPlainText(Read(argv[1]));
  watch.Report("load");
  watch.Begin();
  const QByteArray handedOut = watch.field->toPlainText().toUtf8();
  watch.Report("hand_out");
  Paste(watch, argv[1]);
}

/// Operates the window that is shown, and closes it.
void RunEventLoop(void (*operate)(Watch& watch, char** argv), char** argv) {
  QTimer::singleShot(0, [&] {
    QCoreApplication::processEvents();  // the window has been drawn
    QWidget* const window = QApplication::activeWindow();
    Watch watch(window->findChild<QPlainTextEdit*>());
    if (QFile(argv[1]).size() != 0) operate(watch, argv);
    window->close();
  });
  QApplication::exec();
}

void RunProgram(int argc, char** argv) {
  celestrix::Program program(argc, argv);
  program.Start();
  RunEventLoop(OperateProgram, argv);
}

void RunBareField(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QPlainTextEdit);
  QFont font = window.font();
  font.setPixelSize(11);
  window.setFont(font);
  window.resize(466, 275);
  window.show();
  RunEventLoop(OperateBareField, argv);
}

}  // namespace

int main(int argc, char** argv) {
  alarm(300);  // ends it if it waits for something that never comes
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  argc > 2 ? RunProgram(argc, argv) : RunBareField(argc, argv);
}
