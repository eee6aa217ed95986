// SPDX-License-Identifier: MIT
#include "platform/Debug.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace platform {

namespace {

struct TOutput {
  std::mutex Mutex;
  TDebugSink Sink;
};

// Made at first use and never destroyed: units write their last lines while the process is going down.
TOutput& Output() {
  static auto* output = new TOutput;
  return *output;
}

} // namespace

void OutputDebugString(std::string_view line) noexcept {
  try {
    TOutput& output = Output();
    const std::lock_guard lock(output.Mutex);
    if (output.Sink)
      output.Sink(line);
    else
      std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
  } catch (...) {
    // There is no further place to complain to.
  }
}

TDebugSink SetDebugSink(TDebugSink sink) {
  TOutput& output = Output();
  const std::lock_guard lock(output.Mutex);
  return std::exchange(output.Sink, std::move(sink));
}

} // namespace platform
