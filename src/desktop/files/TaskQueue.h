// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <queue>
#include <thread>

namespace desktop {

// A thread that runs tasks one after the other in the order in which they were added. It is started by the first.
class TaskQueue {
public:
  using Task = std::function<void()>;

  TaskQueue() = default;
  // Waits until all tasks are done.
  ~TaskQueue();
  TaskQueue(const TaskQueue&) = delete;
  TaskQueue& operator=(const TaskQueue&) = delete;

  // Any thread. A task must not throw.
  void add(Task task);

private:
  void run();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::queue<Task> tasks_;
  bool ending_ = false;
  std::thread thread_;
};

} // namespace desktop
