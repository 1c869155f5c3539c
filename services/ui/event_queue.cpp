#include "services/ui/event_queue.h"

#include <deque>

#include "services/ui/application.h"

namespace celestrix {

namespace {

std::deque<std::function<void()>> waiting;
bool isRunning = false;
bool isOpen = true;

/// Marks, while it exists, that a handler runs. The mark goes even if the alert itself fails, as it may when there is
/// no memory.
struct Running {
  Running() { isRunning = true; }
  ~Running() { isRunning = false; }
};

}  // namespace

void RaiseEvent(std::function<void()> handler) {
  if (!isOpen) return;
  waiting.push_back(std::move(handler));
  if (isRunning) return;

  const Running running;
  while (!waiting.empty()) {
    const std::function<void()> next = std::move(waiting.front());
    waiting.pop_front();
    try {
      next();
    } catch (const std::exception& error) {
      RuntimeUnhandledException(error);
    }
  }
}

void DropEvents() {
  waiting.clear();
  isOpen = false;
}

}  // namespace celestrix
