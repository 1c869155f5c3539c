#include "services/ui/application.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QIcon>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <new>

#include "services/base/background_task.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/termination_signals.h"
#include "services/ui/window.h"

namespace celestrix {

namespace {

// A yield gives the event loop its turn when this much time has passed.
constexpr qint64 kTurnMilliseconds = 8;

Ref<Application> registeredApplication;
// Never destroyed: when the display dies, the toolkit ends the process at once, and windows do not survive the toolkit.
auto& implicitWindows = *new std::map<std::string, Ref<Window>>;
bool endedBySystem = false;

/// The toolkit writes its warnings to the terminal; ours is a quiet program. Fatal ones still say why it ends.
void DiscardMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

void GiveTurnToEventLoop() {
  static QDeadlineTimer nextTurn;
  if (nextTurn.hasExpired()) {
    QCoreApplication::processEvents();
    nextTurn.setRemainingTime(kTurnMilliseconds);
  }
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

/// Where errors arrive that arise in the toolkit's own events, outside the handlers.
class GuardedApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
      // Somebody may wait for the event's end, as a drag's source does. So the error takes its turn, as if a handler
      // had raised it.
      const auto raise = [error = std::current_exception()] { std::rethrow_exception(error); };
      QTimer::singleShot(0, [raise] { RaiseEvent(raise); });
      return true;
    }
  }
};

}  // namespace

Runtime::Runtime(int& argc, char** argv, const String& id) {
  qInstallMessageHandler(DiscardMessages);
  QCoreApplication::setApplicationName(ToQString(id));
  QCoreApplication::setApplicationVersion(QStringLiteral(PROGRAM_VERSION));
  QGuiApplication::setDesktopFileName(ToQString(id));
  toolkit_ = std::make_shared<GuardedApplication>(argc, argv);
  QApplication::setWindowIcon(ProgramIcon());
  // The end of the session is announced, and then the program may not be asked again.
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, qApp, RequestQuitBySystem);
  CatchTerminationSignals(RequestQuitBySystem);
  BackgroundTask::Install(GiveTurnToEventLoop);
}

int Runtime::RunEventLoop() { return QApplication::exec(); }

void RegisterApplication(Ref<Application> application) { registeredApplication = std::move(application); }

Ref<Window> ImplicitWindow(const String& className) { return implicitWindows[std::string(className.Bytes())]; }

void AddImplicitWindow(const String& className, const Ref<Window>& window) {
  implicitWindows[std::string(className.Bytes())] = window;
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
  // The standard library's own text for a lack of memory is a type name.
  const bool noMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
  const QString text = noMemory ? QStringLiteral("There is not enough memory.") : QString::fromUtf8(error.what());
  if (QThread::currentThread()->loopLevel() > 0)
    ShowAlert(text);
  else
    QTimer::singleShot(0, [text] { ShowAlert(text); });
}

}  // namespace celestrix
