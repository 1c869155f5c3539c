#include "services/base/background_task.h"

#include <utility>

namespace celestrix {

namespace {

BackgroundTask::Task& InstalledTask() {
  static BackgroundTask::Task task;
  return task;
}

}  // namespace

void BackgroundTask::Install(Task task) {
  InstalledTask() = std::move(task);
  passesLeft_ = 0;
}

void BackgroundTask::Run() {
  passesLeft_ = INT32_MAX;  // also for the yields within the task itself
  if (InstalledTask()) passesLeft_ = InstalledTask()();
}

}  // namespace celestrix
