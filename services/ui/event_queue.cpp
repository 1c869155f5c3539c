#include "services/ui/event_queue.h"

#include <deque>
#include <exception>
#include <utility>

#include "services/ui/application.h"

namespace celestrix {

namespace {

struct EventQueue {
  std::deque<std::function<void()>> waiting;
  bool running = false;
  bool open = true;
};

EventQueue& Queue() {
  static EventQueue queue;
  return queue;
}

void Run(const std::function<void()>& handler) {
  try {
    handler();
  } catch (const std::exception& error) {
    RuntimeUnhandledException(error);
  }
}

}  // namespace

void RaiseEvent(std::function<void()> handler) {
  EventQueue& queue = Queue();
  if (!queue.open) return;
  queue.waiting.push_back(std::move(handler));
  if (queue.running) return;

  queue.running = true;
  while (!queue.waiting.empty()) {
    const std::function<void()> next = std::move(queue.waiting.front());
    queue.waiting.pop_front();
    Run(next);
  }
  queue.running = false;
}

void DropEvents() {
  Queue().waiting.clear();
  Queue().open = false;
}

}  // namespace celestrix
