// How the program's handlers are run: one at a time, on the one thread of the event loop.
//
// A handler that yields, or shows a dialog, lets the event loop go on, and then more events come in: a click
// on the same button, a drop, the window's closing. None of them runs inside the handler. Each waits its
// turn, and runs when those before it have ended. So a handler never finds the window's state changed under
// it by another one, a file is written by one save from start to end, and nothing that a handler uses is
// destroyed before it ends. Only the toolkit's own work (drawing, scrolling, typing) goes on in between.
#pragma once

#include <functional>

namespace celestrix {

/// Runs the handler now, or, if one is running, when all that were raised before it have ended. What it
/// raises as an exception ends in RuntimeUnhandledException.
void RaiseEvent(std::function<void()> handler);

/// Forgets the handlers that wait, and those that are raised from now on: the program ends.
void DropEvents();

}  // namespace celestrix
