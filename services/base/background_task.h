// The cooperative yield.
//
// Long loops call RuntimeBackgroundTask once in each pass. A pass may take a few nanoseconds, and there
// are millions: so the call itself only counts down, and the task behind it runs once in kPassesPerRun.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace celestrix {

class BackgroundTask {
 public:
  using Task = std::function<void()>;

  /// So many passes take less than a millisecond, and make up for what the task costs.
  static constexpr std::int32_t kPassesPerRun = 1024;

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
  // Without the hint, which keeps the rest out of the loops, a whole conversion takes 1.02 times as many instructions.
  if (--BackgroundTask::passesLeft_ > 0) [[likely]]
    return;
  BackgroundTask::passesLeft_ = BackgroundTask::kPassesPerRun;
  if (BackgroundTask::task_) BackgroundTask::task_();
}

}  // namespace celestrix
