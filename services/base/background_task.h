// The cooperative yield.
//
// Long loops call RuntimeBackgroundTask for each pass. There may be millions of passes of a few nanoseconds each, so
// the call only counts down, and the task runs once in kPassesPerRun passes.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace celestrix {

class BackgroundTask {
 public:
  /// This many passes take less than a millisecond; compared with them, the task costs little.
  static constexpr std::int32_t kPassesPerRun = 1024;

  /// Sets the task, which replaces an earlier one and runs at the next pass. Without a task a yield does nothing.
  static void Install(std::function<void()> task) {
    task_ = std::move(task);
    passesLeft_ = 0;
  }

 private:
  friend void RuntimeBackgroundTask(std::int32_t passes);
  static inline std::function<void()> task_;
  static inline std::int32_t passesLeft_ = 0;
};

/// Lets the event loop handle pending events from time to time. A loop calls it in each pass, or once for several
/// passes.
inline void RuntimeBackgroundTask(std::int32_t passes = 1) {
  BackgroundTask::passesLeft_ -= passes;
  if (BackgroundTask::passesLeft_ > 0) return;
  BackgroundTask::passesLeft_ = BackgroundTask::kPassesPerRun;  // before the task, which may raise an exception
  if (BackgroundTask::task_) BackgroundTask::task_();
}

}  // namespace celestrix
