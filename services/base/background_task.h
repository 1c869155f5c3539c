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
  /// This many passes take less than a millisecond; the cost of the task is small against theirs.
  static constexpr std::int32_t kPassesPerRun = 1024;

  /// Sets the task, which replaces an earlier one and runs at the next pass. Without a task a yield does nothing.
  static void Install(std::function<void()> task) {
    task_ = std::move(task);
    passesLeft_ = 0;
  }

 private:
  friend void RuntimeBackgroundTask();
  static inline std::function<void()> task_;
  static inline std::int32_t passesLeft_ = 0;
};

/// Lets the event loop handle pending events, if any are due.
inline void RuntimeBackgroundTask() {
  if (--BackgroundTask::passesLeft_ > 0) return;
  BackgroundTask::passesLeft_ = INT32_MAX;  // also for the yields within the task itself
  if (BackgroundTask::task_) BackgroundTask::task_();
  // Set last, so that the compiler knows it in the loops and keeps it in a register: a conversion takes 1.2 times as
  // long where it is read from memory in each pass.
  BackgroundTask::passesLeft_ = BackgroundTask::kPassesPerRun;
}

}  // namespace celestrix
