#include "services/ui/application.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <map>
#include <string>

#include "services/base/background_task.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/termination_signals.h"
#include "services/ui/window.h"

namespace celestrix {

namespace {

// A yield gives the event loop its turn when this much time has passed, which it looks at every so many
// passes: reading the clock costs as much as dozens of passes.
constexpr qint64 kTurnMilliseconds = 8;
constexpr std::int32_t kPassesPerLook = 1024;

Ref<Application> registeredApplication;
std::map<std::string, Ref<Window>> implicitWindows;
bool endedBySystem = false;

/// The toolkit writes its warnings to the terminal; ours is a quiet program. Fatal ones still say why it ends.
void DiscardMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

void GiveTurnToEventLoop() {
  static QElapsedTimer sinceLastTurn;
  if (sinceLastTurn.isValid() && sinceLastTurn.elapsed() < kTurnMilliseconds) return;
  QCoreApplication::processEvents();
  sinceLastTurn.start();
}

QIcon ProgramIcon() {
  QIcon icon;
  const QDir drawings(QStringLiteral(":/icon"));
  for (const QString& name : drawings.entryList()) icon.addFile(drawings.filePath(name));
  return icon;
}

void ShowAlert(const QString& text) {
  QWidget* window = ProgramWindow();
  const QString title = window != nullptr ? window->windowTitle() : QString();
  QMessageBox alert(QMessageBox::Warning, title, text, QMessageBox::Ok, window);
  alert.setTextFormat(Qt::PlainText);
  alert.exec();
}

}  // namespace

struct Runtime::Toolkit {
  Toolkit(int& argc, char** argv) : application(argc, argv) {}
  QApplication application;
  TerminationSignals terminationSignals{RequestQuitBySystem};
};

Runtime::Runtime(int& argc, char** argv, const String& id) {
  qInstallMessageHandler(DiscardMessages);
  QCoreApplication::setApplicationName(ToQString(id));
  QGuiApplication::setDesktopFileName(ToQString(id));
  // A program without its window is ended by the window's closing, not by the count of visible windows: an
  // alert may close before the window has been shown.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  toolkit_ = std::make_unique<Toolkit>(argc, argv);
  QApplication::setWindowIcon(ProgramIcon());
  BackgroundTask::Install([] {
    GiveTurnToEventLoop();
    return kPassesPerLook;
  });
}

Runtime::~Runtime() { BackgroundTask::Install(nullptr); }

int Runtime::RunEventLoop() { return QApplication::exec(); }

void RegisterApplication(Ref<Application> application) { registeredApplication = std::move(application); }

Ref<Window> ImplicitWindow(const String& className) {
  const auto found = implicitWindows.find(std::string(className.Bytes()));
  return found != implicitWindows.end() ? found->second : nullptr;
}

void AddImplicitWindow(const String& className, const Ref<Window>& window) {
  implicitWindows.insert_or_assign(std::string(className.Bytes()), window);
}

void ReleaseImplicitWindows() { implicitWindows.clear(); }

void Quit(std::int32_t exitCode) {
  DropEvents();
  QCoreApplication::exit(exitCode);
}

void RequestQuit() { QApplication::closeAllWindows(); }

void RequestQuitBySystem() {
  endedBySystem = true;
  RequestQuit();
}

bool IsEndedBySystem() { return endedBySystem; }

void RuntimeUnhandledException(const std::exception& error) {
  if (endedBySystem) return;
  const QString text = QString::fromStdString(ErrorText(error));
  if (QThread::currentThread()->loopLevel() > 0)
    ShowAlert(text);
  else
    QTimer::singleShot(0, [text] { ShowAlert(text); });
}

}  // namespace celestrix
