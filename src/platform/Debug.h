// SPDX-License-Identifier: MIT
// The debugger output: one line a call, for whoever watches the process from outside.
#pragma once

#include "platform/Export.h"

#include <functional>
#include <string>
#include <string_view>

namespace platform {

// Receives one line without its line end. Called on the thread that wrote the line, one call at a time.
using TDebugSink = std::function<void(std::string_view line)>;

// Writes one line to the sink, or to standard error when none is set. Safe from any thread; never throws.
VIRELLE_PLATFORM void OutputDebugString(std::string_view line) noexcept;

// Replaces the sink and returns the one before. An empty function means standard error. A sink must not write debugger
// output itself.
VIRELLE_PLATFORM TDebugSink SetDebugSink(TDebugSink sink);

} // namespace platform
