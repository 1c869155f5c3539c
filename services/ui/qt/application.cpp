#include "services/ui/application.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QIcon>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <new>

#include "services/base/background_task.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/termination_signals.h"
#include "services/ui/window.h"

namespace celestrix {

namespace {

// A yield handles events if this much time has passed since they were handled last.
constexpr qint64 kTurnMilliseconds = 8;

Ref<Application> registeredApplication;
// Never destroyed: when the display dies, Qt ends the process at once, and the windows must not outlive Qt.
auto& implicitWindows = *new std::map<std::string, Ref<Window>>;
bool endedBySystem = false;
bool onlyAnnounced = false;

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

/// Receives errors in Qt's own events, outside the handlers, and the system's requests to end the program, such as a
/// session manager's.
class GuardedApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
      // Another program, such as the source of a drag, may wait until the event has been handled. So the error is
      // queued, as if a handler had raised it.
      const auto raise = [error = std::current_exception()] { std::rethrow_exception(error); };
      QTimer::singleShot(0, [raise] { RaiseEvent(raise); });
      return true;
    }
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Quit) return QApplication::event(event);
    RequestQuitBySystem();
    return true;
  }
};

}  // namespace

#ifdef Q_OS_WIN
/// Called when Windows announces the end of the session. The program may then be ended at any moment, or the end may be
/// cancelled. So what is saved on closing is saved now, even while a handler runs, and the program goes on.
void KeepWhatClosingKeeps() {
  onlyAnnounced = true;
  try {
    for (const auto& [className, window] : implicitWindows) window->Event_Close();
  } catch (const std::exception&) {  // nobody may be there to read an alert
  }
  onlyAnnounced = false;
}
#endif

Runtime::Runtime(int& argc, char** argv, const String& id) {
  // Keeps Qt's warnings off the terminal. QT_LOGGING_RULES='*=true' brings them back. (Rules that are set by a call
  // make Qt for Windows open qtlogging.ini in the current folder: before its start, it does not know the program's.)
  if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES")) qputenv("QT_LOGGING_RULES", "*=false");
  QCoreApplication::setApplicationName(ToQString(id));
  QCoreApplication::setApplicationVersion(QStringLiteral(PROGRAM_VERSION));
  QGuiApplication::setDesktopFileName(ToQString(id));
  toolkit_ = std::make_shared<GuardedApplication>(argc, argv);
  // Otherwise context menus may show the shortcuts of disabled entries only. (Qt's start applies the desktop's choice.)
  QCoreApplication::setAttribute(Qt::AA_DontShowShortcutsInContextMenus);
  // All texts are English, even if the desktop's language is written from right to left.
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  QApplication::setWindowIcon(ProgramIcon());
#ifdef Q_OS_WIN
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, KeepWhatClosingKeeps);
#endif
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
  if (onlyAnnounced) return;
  DropEvents();
  QCoreApplication::exit(exitCode);
}

void RequestQuit() { QApplication::closeAllWindows(); }

void RequestQuitBySystem() {
  endedBySystem = true;
  RequestQuit();
  QCoreApplication::exit();  // also ends a desktop's own dialog, which does not close with the windows
}

bool IsEndedBySystem() { return endedBySystem; }

void RuntimeUnhandledException(const std::exception& error) {
  if (endedBySystem) return;
  // For a lack of memory, the standard library's own text is a type name.
  const bool noMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
  const QString text = noMemory ? QStringLiteral("There is not enough memory.") : QString::fromUtf8(error.what());
  if (QThread::currentThread()->loopLevel() > 0)
    ShowAlert(text);
  else
    QTimer::singleShot(0, [text] { ShowAlert(text); });
}

}  // namespace celestrix
