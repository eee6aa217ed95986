// SPDX-License-Identifier: MIT
// The designed colours of the options on a light and on a dark ground.
#pragma once

#include "settings/model/QVOptionValues.h"

namespace quorvane {

// Gives each colour among `values` that is the designed one for the other ground the one for this: dark, where text is
// light, or light. A colour that somebody has chosen stays. Returns whether a colour is another one now.
bool FollowGround(TQVOptionValues& values, bool dark);

} // namespace quorvane
