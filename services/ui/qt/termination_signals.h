#pragma once

#include <functional>

namespace celestrix {

/// From now on the event loop calls the function when the system asks the program to end: on Unix by SIGTERM, SIGINT
/// or SIGHUP. Elsewhere there are no such signals, and the system closes the window instead. Must be called once, when
/// Qt's application object exists.
void CatchTerminationSignals(const std::function<void()>& whenRaised);

}  // namespace celestrix
