// The runtime of a program with windows: its start and end, its event loop, and its handling of errors.
#pragma once

#include <exception>

#include "services/base/string.h"

namespace celestrix {

class MenuBar;
class Window;

/// The framework's runtime. Exactly one exists, from the first statement of main to its last.
class Runtime {
 public:
  /// Reads the toolkit's own command-line options. `argc` and `argv` must stay valid and unchanged. `id` is the name
  /// under which the desktop knows the program: that of its launcher and its icon.
  Runtime(int& argc, char** argv, const String& id);

  /// Runs the event loop until Quit; returns the exit code given to it.
  int RunEventLoop();

 private:
  std::shared_ptr<void> toolkit_;
};

/// The application object.
class Application {
 public:
  virtual ~Application() = default;
  void MenuBar(Ref<celestrix::MenuBar> bar) { menuBar_ = std::move(bar); }

 private:
  Ref<celestrix::MenuBar> menuBar_;
};

/// Makes this the application object, and keeps it until another is registered; null releases it.
void RegisterApplication(Ref<Application> application);

/// The implicit windows: one for each class, kept until the program ends.
Ref<Window> ImplicitWindow(const String& className);
void AddImplicitWindow(const String& className, const Ref<Window>& window);
void ReleaseImplicitWindows();

/// Ends the application with that exit code. No other handler runs.
void Quit(std::int32_t exitCode);

/// Asks the application to quit, on behalf of the user: cancels dialogs and closes the windows, whose close handlers
/// end the program.
void RequestQuit();
/// The same on behalf of the system, when nobody may be there to answer: from now on dialogs are cancelled at once, and
/// no alert is shown.
void RequestQuitBySystem();
bool IsEndedBySystem();

/// Reports an error that no handler caught: one alert says what could not be done and why, and the program goes on.
/// An error at start-up is shown when the window is there. Errors in the toolkit's own events, outside the handlers,
/// are reported here too; their alert is queued with the handlers.
void RuntimeUnhandledException(const std::exception& error);

}  // namespace celestrix
