// SPDX-License-Identifier: MIT
#include "desktop/files/TaskQueue.h"

#include <utility>

namespace desktop {

TaskQueue::~TaskQueue() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_one();
  if (thread_.joinable())
    thread_.join();
}

void TaskQueue::add(Task task) {
  {
    const std::lock_guard lock(mutex_);
    tasks_.push(std::move(task));
    if (!thread_.joinable())
      thread_ = std::thread([this] { run(); });
  }
  changed_.notify_one();
}

void TaskQueue::run() {
  for (;;) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ending_ || !tasks_.empty(); });
    if (tasks_.empty())
      return;
    const Task task = std::move(tasks_.front());
    tasks_.pop();
    lock.unlock();
    task();
  }
}

} // namespace desktop
