// bench_window program|bare TEXT-FILE OUTPUT: how quickly the window answers, as lines of "measure milliseconds".
//
// "program" drives the program's own window as a user does: a file dropped on the field, keys, "Save..." and the
// file dialog. It writes the unedited text's file to OUTPUT, and to OUTPUT.edited that of the text with an "x"
// typed at either end. "bare" does what compares to that with the toolkit's own field. The text is ASCII.
#include <QApplication>
#include <QBasicTimer>
#include <QDragEnterEvent>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QTimerEvent>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/app.h"
#include "app/file_types.h"
#include "bench/bare_window.h"
#include "window/menu_bar.h"
#include "window/window1.h"

namespace {

using namespace celestrix;

constexpr int kPatience = 120'000;  // milliseconds, then something does not work

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Report(const std::string& measure, double milliseconds) {
  std::printf("%s %.3f\n", measure.c_str(), milliseconds);
}

/// Ticks whenever the event loop has nothing else to do, and keeps how long each tick was in coming.
class EventLoopWatch final : public QObject {
 public:
  EventLoopWatch() { timer_.start(0, this); }

  void Restart() {
    gaps_.clear();
    last_ = Clock::now();
  }
  void Stop() { Tick(); }
  double FirstGap() const { return gaps_.front(); }
  double LongestGap(std::size_t from = 0) const {
    return from < gaps_.size() ? *std::max_element(gaps_.begin() + static_cast<std::ptrdiff_t>(from), gaps_.end()) : 0;
  }

  /// Runs the event loop until a tick at which the condition holds.
  void RunUntil(std::function<bool()> condition) {
    QEventLoop loop;
    atTick_ = [&] {
      if (condition()) loop.quit();
    };
    loop.exec();
    atTick_ = nullptr;
  }

 protected:
  void timerEvent(QTimerEvent* /*event*/) override {
    Tick();
    if (atTick_) atTick_();
  }

 private:
  void Tick() {
    gaps_.push_back(Since(last_));
    last_ = Clock::now();
  }

  QBasicTimer timer_;
  Clock::time_point last_ = Clock::now();
  std::vector<double> gaps_;
  std::function<void()> atTick_;
};

/// Knows when the field has been drawn after its next change.
class PaintWatch final : public QObject {
 public:
  explicit PaintWatch(QPlainTextEdit* field) : field_(field) {
    field->viewport()->installEventFilter(this);
    connect(field->document(), &QTextDocument::contentsChange, this, [this] { changed_ = true; });
  }
  void Restart() { changed_ = painted_ = false; }
  bool Changed() const { return changed_; }
  bool Painted() const { return painted_; }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint && changed_ && !field_->document()->isEmpty()) painted_ = true;
    return false;
  }

 private:
  QPlainTextEdit* field_;
  bool changed_ = false;
  bool painted_ = false;
};

QByteArray Contents(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
    std::exit(1);
  }
  return file.readAll();
}

/// What is measured alike in both windows.
class FieldBench {
 public:
  FieldBench(QPlainTextEdit* field, const QString& textFile)
      : field_(field), size_(static_cast<int>(QFile(textFile).size())) {}

  /// Sets off the loading, and watches until the whole text is in and the event loop has its turn again.
  void Load(const std::string& name, const std::function<void()>& start, const std::function<bool()>& canSave) {
    double firstLines = 0;
    double saveable = 0;
    double whole = 0;
    double longestGap = 0;
    QMetaObject::invokeMethod(field_, start, Qt::QueuedConnection);
    paints_.Restart();
    loop_.Restart();
    const Clock::time_point begin = Clock::now();
    loop_.RunUntil([&] {
      if (firstLines == 0 && paints_.Painted()) firstLines = Since(begin);
      if (saveable == 0 && paints_.Changed() && canSave()) saveable = Since(begin);
      if (whole == 0 && paints_.Changed() && field_->document()->characterCount() == size_ + 1) {
        whole = Since(begin);
        longestGap = loop_.LongestGap();
      }
      return whole != 0 && (firstLines != 0 || size_ == 0);
    });
    Report(name + "_first_lines", firstLines);
    Report(name + "_saveable", saveable);
    Report(name + "_whole", whole);
    Report(name + "_gap", longestGap);
  }

  void TypeAt(const char* measure, QTextCursor::MoveOperation place) {
    QTextCursor cursor = field_->textCursor();
    cursor.movePosition(place);
    field_->setTextCursor(cursor);
    const int before = field_->document()->characterCount();
    loop_.RunUntil([&, ticks = 0]() mutable { return ++ticks > 20; });  // the scrolling has been drawn
    paints_.Restart();
    const Clock::time_point begin = Clock::now();
    QCoreApplication::postEvent(field_, new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x"));
    QCoreApplication::postEvent(field_, new QKeyEvent(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, "x"));
    loop_.RunUntil([&] { return field_->document()->characterCount() == before + 1 && paints_.Painted(); });
    Report(measure, Since(begin));
  }

  EventLoopWatch& Loop() { return loop_; }

 private:
  QPlainTextEdit* field_;
  int size_;  // of the text file
  EventLoopWatch loop_;
  PaintWatch paints_{field_};
};

// ---- The program's window

void Drop(QPlainTextEdit* field, const QString& file) {
  QMimeData mime;
  mime.setUrls({QUrl::fromLocalFile(file)});
  const QPoint place = field->viewport()->rect().center();
  QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(field->viewport(), &enter);
  QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(field->viewport(), &drop);
}

/// Clicks "Save..." and accepts the dialog with that file. What counts begins when the dialog is gone.
void Save(FieldBench& bench, QAbstractButton* button, const QString& output, const std::string& name) {
  QFile::remove(output);
  Clock::time_point begin;
  QTimer looksForDialog;
  QObject::connect(&looksForDialog, &QTimer::timeout, &looksForDialog, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    looksForDialog.stop();
    dialog->selectFile(output);
    QObject::connect(dialog, &QObject::destroyed, &looksForDialog, [&] {
      begin = Clock::now();
      bench.Loop().Restart();
    });
    static_cast<QDialog*>(dialog)->accept();
  });
  looksForDialog.start(5);
  button->click();  // returns when the file is written
  bench.Loop().Stop();
  Report(name, Since(begin));
  Report(name + "_first_gap", bench.Loop().FirstGap());
  Report(name + "_later_gap", bench.Loop().LongestGap(1));
}

template <class Widget>
Widget* Find(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* found = window->findChild<Widget*>(name)) return found;
  std::fprintf(stderr, "no %s in the window\n", name);
  std::exit(1);
}

Clock::time_point UseProgram(const QString& textFile, const QString& output) {
  auto* field = Find<QPlainTextEdit>("txt");
  auto* save = Find<QPushButton>("SaveBtn");
  FieldBench bench(field, textFile);
  const auto drop = [&] { Drop(field, textFile); };
  const auto canSave = [&] { return save->isEnabled() || field->document()->isEmpty(); };
  bench.Load("load", drop, canSave);
  if (save->isEnabled()) {
    Save(bench, save, output, "save");
    bench.TypeAt("key_first", QTextCursor::Start);
    bench.TypeAt("key_at_end", QTextCursor::End);
    Save(bench, save, output + ".edited", "save_edited");
    bench.Load("reload", drop, canSave);
  }
  const Clock::time_point begin = Clock::now();
  field->window()->close();
  return begin;
}

void RunProgram(int argc, char** argv, const QString& textFile, const QString& output) {
  Clock::time_point closing;
  {
    Runtime runtime(argc, argv, "celestrix-satellite-encoder"_s);
    FileTypes1::_Initialize();
    const Ref<App> app = New<App>();
    app->MenuBar(MenuBar1::Shared());
    RegisterApplication(app);
    Window1::Shared();
    QTimer::singleShot(0, [&] { closing = UseProgram(textFile, output); });
    QTimer::singleShot(kPatience, [] { std::_Exit(3); });
    runtime.RunEventLoop();
    ReleaseImplicitWindows();
    RegisterApplication(nullptr);
    MenuBar1::Release();
    FileTypes1::Release();
  }
  Report("close", Since(closing));
}

// ---- The bare window

void HandOut(QPlainTextEdit* field, const char* name) {
  const Clock::time_point begin = Clock::now();
  const QByteArray text = field->toPlainText().toUtf8();
  Report(name, Since(begin));
}

void UseBare(QPlainTextEdit* field, const QString& textFile) {
  FieldBench bench(field, textFile);
  const auto load = [&] { field->setPlainText(QString::fromUtf8(Contents(textFile))); };
  const auto always = [] { return true; };
  bench.Load("load", load, always);
  HandOut(field, "handout");
  bench.TypeAt("key_first", QTextCursor::Start);
  bench.TypeAt("key_at_end", QTextCursor::End);
  HandOut(field, "handout_edited");
  bench.Load("reload", load, always);
}

void RunBare(int argc, char** argv, const QString& textFile) {
  QApplication application(argc, argv);
  BareWindow window;
  window.show();
  QTimer::singleShot(0, [&] {
    UseBare(window.field, textFile);
    QCoreApplication::exit();
  });
  QTimer::singleShot(kPatience, [] { std::_Exit(3); });
  QApplication::exec();
  const Clock::time_point begin = Clock::now();
  delete window.field;
  Report("free", Since(begin));
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view which = argc == 4 ? argv[1] : "";
  if (which != "program" && which != "bare") {
    std::fputs("usage: bench_window program|bare TEXT-FILE OUTPUT\n", stderr);
    return 2;
  }
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  if (which == "program")
    RunProgram(argc, argv, argv[2], argv[3]);
  else
    RunBare(argc, argv, argv[2]);
}
