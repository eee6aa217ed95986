// SPDX-License-Identifier: MIT
// Measures of the desktop's look.
#pragma once

#include "platform/Export.h"

namespace platform {

enum TSystemMetric : int {
  SM_CYHSCROLL = 3, // height of a horizontal scroll bar
  SM_CYEDGE = 46,   // height of an etched edge
};

// The measure in logical pixels; 0 for one that is not known. Main thread, with an application object.
VIRELLE_PLATFORM int GetSystemMetrics(int index);

} // namespace platform
