#pragma once

#include <functional>

namespace celestrix {

/// From now on, a request of the system to end the program is an event of the event loop, which calls the function. On
/// Unix these are the signals SIGTERM, SIGINT and SIGHUP; elsewhere there are none: the system closes the window.
/// Called once, when the application object exists.
void CatchTerminationSignals(const std::function<void()>& whenRaised);

}  // namespace celestrix
