#include "services/ui/event_queue.h"

#include <deque>

#include "services/ui/application.h"

namespace celestrix {

namespace {

std::deque<std::function<void()>> waiting;
bool isRunning = false;
bool isOpen = true;

}  // namespace

void RaiseEvent(std::function<void()> handler) {
  if (!isOpen) return;
  waiting.push_back(std::move(handler));
  if (isRunning) return;

  // On leaving, also where the alert itself fails, as it may when there is no memory.
  const std::shared_ptr<void> whenDone(nullptr, [](void* /*nothing*/) { isRunning = false; });
  isRunning = true;
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
