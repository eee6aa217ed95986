// SPDX-License-Identifier: MIT
#include "platform/Control.h"

namespace platform {

TWinControl::~TWinControl() = default;

} // namespace platform
