// The cooperative yield.
//
// Long loops call RuntimeBackgroundTask once in each pass. There may be millions of passes of a few nanoseconds
// each, so the call only counts down, and the task runs at every kPassesPerRun-th call.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace celestrix {

class BackgroundTask {
 public:
  using Task = std::function<void()>;

  /// This many passes take less than a millisecond; the cost of the task is small against theirs.
  static constexpr std::int32_t kPassesPerRun = 1024;

  /// Sets the task, which replaces an earlier one and runs at the next pass. Without a task a yield does nothing.
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
