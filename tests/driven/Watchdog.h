// SPDX-License-Identifier: MIT
// Ends a program that hangs.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace driven {

// Aborts the process when it has not been told for `limit` that the program still serves events. `tell` is called
// before that, on the watchdog's own thread.
class Watchdog {
public:
  Watchdog(std::chrono::seconds limit, std::function<void()> tell)
      : limit_(limit), tell_(std::move(tell)), thread_([this] { watch(); }) {}
  ~Watchdog() {
    change([this] { ended_ = true; });
    thread_.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // The program is alive. Any thread.
  void beat() {
    change([this] { ++beats_; });
  }

private:
  template <class TChange> void change(TChange&& make) {
    {
      const std::scoped_lock lock(mutex_);
      make();
    }
    changed_.notify_one();
  }

  void watch() {
    std::unique_lock lock(mutex_);
    while (!ended_) {
      const long long seen = beats_;
      if (changed_.wait_for(lock, limit_, [&] { return ended_ || beats_ != seen; }))
        continue;
      tell_();
      std::abort();
    }
  }

  std::chrono::seconds limit_;
  std::function<void()> tell_;
  std::mutex mutex_;
  std::condition_variable changed_;
  long long beats_ = 0; // guarded by mutex_, as is ended_
  bool ended_ = false;
  std::thread thread_; // the last, as it uses the others
};

} // namespace driven
