// bench_window TEXT-FILE OUTPUT operates the program's own window as a user does (a file dropped on the field, keys,
// "Save..." and the file dialog, a paste), and prints how quickly it answers, as lines of "measure milliseconds". It
// saves the unedited text to OUTPUT, and the text with an "x" typed at either end to OUTPUT.edited. With an empty text
// it measures only the closing of the window.
// bench_window TEXT-FILE does the same work with Qt's own field, for comparison. The text is ASCII.
// bench_window shows the bare window until it is killed.
#include <QtWidgets>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "app/program.h"

namespace {

void Report(const std::string& measure, qint64 nanoseconds) {
  std::printf("%s %.3f\n", measure.c_str(), static_cast<double>(nanoseconds) / 1e6);
}

/// Measures time. A timer that is always due shows how long the event loop takes to answer. Also notices when the
/// field has drawn a text of another length.
struct Watch final : QObject {
  explicit Watch(QPlainTextEdit* watched) : field(watched) {
    field->viewport()->installEventFilter(this);
    startTimer(0);
  }
  void Begin() {
    gaps.clear();
    hasDrawn = false;
    size = field->document()->characterCount();
    sinceBegin.start();
    sinceLast.start();
  }
  /// Handles events until the condition holds, and reports the time since Begin.
  template <class Condition>
  void ReportWhen(Condition condition, const std::string& measure) {
    do QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    while (!condition());
    Report(measure, sinceBegin.nsecsElapsed());
  }
  bool eventFilter(QObject* /*viewport*/, QEvent* event) override {
    if (event->type() == QEvent::Paint && field->document()->characterCount() != size) hasDrawn = true;
    return false;
  }
  void timerEvent(QTimerEvent* /*event*/) override {
    gaps.push_back(sinceLast.nsecsElapsed());
    sinceLast.start();
  }

  QPlainTextEdit* field;
  QElapsedTimer sinceBegin, sinceLast;
  std::vector<qint64> gaps;  // between the event loop's answers
  int size = 0;
  bool hasDrawn = false;
};

/// Drops the file. The text in the field must not have the same length.
void Load(Watch& watch, const QPushButton* save, const QString& textFile, const std::string& measure) {
  QMimeData mime;
  mime.setUrls({QUrl::fromLocalFile(textFile)});
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QDropEvent drop({50, 50}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  const auto end = QFile(textFile).size() + 1;
  watch.Begin();
  QCoreApplication::sendEvent(watch.field->viewport(), &enter);
  QCoreApplication::sendEvent(watch.field->viewport(), &drop);
  if (!drop.isAccepted()) qFatal("the field refuses the file");
  watch.ReportWhen([&] { return save->isEnabled(); }, measure + "_saveable");
  watch.ReportWhen([&] { return watch.hasDrawn; }, measure + "_first_lines");
  watch.ReportWhen([&] { return watch.field->document()->characterCount() == end; }, measure);
  Report(measure + "_gap", std::ranges::max(watch.gaps));
}

/// Pastes the file's text into the empty field. The clipboard is our own, so nothing has to be fetched.
void Paste(Watch& watch, const QString& textFile, const std::string& measure) {
  QFile file(textFile);
  if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read the text");
  QGuiApplication::clipboard()->setText(QString::fromUtf8(file.readAll()));
  watch.field->clear();
  QCoreApplication::processEvents();
  watch.Begin();
  watch.field->paste();
  watch.ReportWhen([&] { return watch.field->document()->characterCount() == file.size() + 1; }, measure);
  Report(measure + "_gap", std::ranges::max(watch.gaps));
}

void TypeAt(Watch& watch, QTextCursor::MoveOperation place, const char* measure) {
  watch.field->moveCursor(place);
  for (int turn = 0; turn < 20; ++turn) QCoreApplication::processEvents();  // the scrolling has been drawn
  watch.Begin();
  QCoreApplication::postEvent(watch.field, new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x"));
  watch.ReportWhen([&] { return watch.hasDrawn; }, measure);
}

/// Clicks "Save..." and accepts the dialog with that file. The measured time begins when the dialog is gone, so that
/// the 25 ms are not counted that the system may need to stop watching the dialog's folder.
void Save(Watch& watch, QPushButton* save, const QString& output, const std::string& measure) {
  QFile::remove(output);
  QTimer looksForDialog;
  QObject::connect(&looksForDialog, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    looksForDialog.stop();
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(output);  // selectFile does nothing where that has the focus
    QObject::connect(dialog, &QObject::destroyed, [&] { watch.Begin(); });
    dialog->findChild<QFileSystemModel*>()->setOption(QFileSystemModel::DontWatchForChanges);
    static_cast<QDialog*>(dialog)->accept();
  });
  looksForDialog.start(5);
  save->click();  // returns when the file is written
  Report(measure, watch.sinceBegin.nsecsElapsed());
  watch.timerEvent(nullptr);
  Report(measure + "_first_gap", watch.gaps.front());
  Report(measure + "_later_gap", *std::max_element(watch.gaps.begin() + 1, watch.gaps.end()));
}

template <class Widget>
Widget* Find(const char* name) {
  for (QWidget* widget : QApplication::allWidgets())
    if (widget->objectName() == name) return qobject_cast<Widget*>(widget);
  qFatal("no %s in the window", name);
}

void RunProgram(int argc, char** argv) {
  QElapsedTimer sinceClosing;
  {
    celestrix::Program program(argc, argv);
    program.Start();
    QTimer::singleShot(0, [&, textFile = QString(argv[1]), output = QString(argv[2])] {
      Watch watch(Find<QPlainTextEdit>("txt"));
      auto* save = Find<QPushButton>("SaveBtn");
      if (QFile(textFile).size() != 0) {
        Load(watch, save, textFile, "load");
        Save(watch, save, output, "save");
        TypeAt(watch, QTextCursor::Start, "key_first");
        TypeAt(watch, QTextCursor::End, "key_later");
        Save(watch, save, output + ".edited", "save_edited");
        Load(watch, save, textFile, "reload");
        Paste(watch, textFile, "paste");
      }
      sinceClosing.start();
      watch.field->window()->close();
    });
    QApplication::exec();
  }
  Report("close", sinceClosing.nsecsElapsed());
}

/// The program's window, made with Qt alone: the same controls at the same places, which do nothing.
void ShowBare(QMainWindow& window, QPlainTextEdit* field) {
  window.setWindowTitle("Celestrix Satellite Encoder");
  window.menuBar()->addMenu("&File")->addAction("&Quit");
  QMenu* edit = window.menuBar()->addMenu("&Edit");
  for (const char* command : {"&Undo", "Cu&t", "&Copy", "&Paste", "&Delete", "Select &All"}) edit->addAction(command);
  window.setCentralWidget(new QWidget);
  auto* instructions = new QLabel(QString("Drag and drop a text file with satellite elements. ").repeated(4));
  instructions->setWordWrap(true);
  field->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  field->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QFont font = window.font();
  font.setPixelSize(11);
  const std::pair<QWidget*, QRect> places[] = {{instructions, {20, 14, 466, 55}},
                                               {field, {20, 81, 466, 275}},
                                               {new QPushButton("Browse..."), {20, 380, 80, 20}},
                                               {new QPushButton("Save..."), {406, 380, 80, 20}},
                                               {new QGroupBox("File format"), {143, 360, 221, 46}},
                                               {new QRadioButton("Palm (PDB)"), {153, 380, 81, 20}},
                                               {new QRadioButton("Pocket PC (PPC)"), {246, 380, 110, 20}}};
  for (const auto& [widget, place] : places) {
    widget->setParent(window.centralWidget());
    widget->setFont(font);
    widget->setGeometry(place);
  }
  window.resize(506, 426 + window.menuBar()->sizeHint().height());
  window.show();
}

void RunBare(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  auto* field = new QPlainTextEdit;
  ShowBare(window, field);
  Watch watch(field);
  QTimer::singleShot(0, [&] {
    if (argc == 1) return;
    watch.Begin();
    QFile file(argv[1]);
    if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read the text");
    field->setPlainText(QString::fromUtf8(file.readAll()));
    watch.ReportWhen([] { return true; }, "bare_load");
    for (int time = 0; time < 2; ++time) {
      watch.Begin();
      const QByteArray text = field->toPlainText().toUtf8();
      Report("handout", watch.sinceBegin.nsecsElapsed());
    }
    Paste(watch, argv[1], "bare_paste");
    QCoreApplication::exit();
  });
  QApplication::exec();
  watch.Begin();
  delete field;
  Report("free", watch.sinceBegin.nsecsElapsed());
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  argc > 2 ? RunProgram(argc, argv) : RunBare(argc, argv);
}
