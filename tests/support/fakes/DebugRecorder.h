// SPDX-License-Identifier: MIT
// Records the debugger output.
#pragma once

#include "platform/Debug.h"

#include <mutex>
#include <string>
#include <vector>

namespace fakes {

// While it lives, every line of the debugger output goes here instead of to standard error.
class DebugRecorder {
public:
  DebugRecorder()
      : before_(platform::SetDebugSink([this](std::string_view line) {
          const std::scoped_lock lock(mutex_);
          lines_.emplace_back(line);
        })) {}
  ~DebugRecorder() { platform::SetDebugSink(before_); }
  DebugRecorder(const DebugRecorder&) = delete;
  DebugRecorder& operator=(const DebugRecorder&) = delete;

  // The lines since the start or the last call, in the order they were written.
  std::vector<std::string> Take() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(lines_, {});
  }

private:
  std::mutex mutex_;
  std::vector<std::string> lines_; // guarded by mutex_
  platform::TDebugSink before_;
};

} // namespace fakes
