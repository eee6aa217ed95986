// SPDX-License-Identifier: MIT
// A machine that has other things to do.
#pragma once

#include <algorithm>
#include <stop_token>
#include <thread>
#include <vector>

namespace support {

// While it lives, keeps every processor busy at the usual priority, twice over.
class BusyProcessors {
public:
  BusyProcessors() {
    const unsigned count = 2 * std::max(1U, std::thread::hardware_concurrency());
    for (unsigned index = 0; index < count; ++index) {
      threads_.emplace_back([](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
        }
      });
    }
  }
  // All stop before the first is waited for.
  ~BusyProcessors() {
    for (std::jthread& thread : threads_)
      thread.request_stop();
  }
  BusyProcessors(const BusyProcessors&) = delete;
  BusyProcessors& operator=(const BusyProcessors&) = delete;

private:
  std::vector<std::jthread> threads_;
};

} // namespace support
