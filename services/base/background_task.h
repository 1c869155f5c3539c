// The cooperative yield.
//
// Long loops call RuntimeBackgroundTask once in each pass. A pass may take a few nanoseconds, and there
// are millions: so the call itself only counts down, and the task behind it runs when the count is used
// up. The task says after how many passes it wants to run again, which lets it keep its distance in time.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace celestrix {

class BackgroundTask {
 public:
  /// Does what is due; returns in how many passes it wants to run again, at least 1.
  using Task = std::function<std::int32_t()>;

  /// Makes this the task, in place of the last one, and lets it run at the next pass. Without a task a
  /// yield does nothing.
  static void Install(Task task) {
    task_ = std::move(task);
    passesLeft_ = 0;
  }

 private:
  friend void RuntimeBackgroundTask();
  static inline Task task_;
  static inline std::int32_t passesLeft_ = 0;
};

/// Lets the event loop handle pending events, if any are due.
inline void RuntimeBackgroundTask() {
  if (--BackgroundTask::passesLeft_ > 0) return;
  BackgroundTask::passesLeft_ = INT32_MAX;  // also for the yields within the task itself
  if (BackgroundTask::task_) BackgroundTask::passesLeft_ = BackgroundTask::task_();
}

}  // namespace celestrix
