// How the program's handlers are run: one at a time, on the one thread of the event loop.
//
// While a handler yields or shows a dialog, the event loop goes on, and more events come in: a click on the
// same button, a drop, a request to close the window. No handler runs inside another one. Each waits its turn,
// and runs when those before it have ended. So no other handler changes the window's state under a running one,
// a file is written by one save from start to end, and nothing that a handler uses is destroyed before it ends.
// Only the toolkit's own work (drawing, scrolling, typing) goes on in the meantime.
#pragma once

#include <functional>

namespace celestrix {

/// Runs the handler now, or, if one is running, when all that were raised before it have ended. Its exceptions go to
/// RuntimeUnhandledException.
void RaiseEvent(std::function<void()> handler);

/// Drops the handlers that wait and all that are raised from now on, because the program ends.
void DropEvents();

}  // namespace celestrix
