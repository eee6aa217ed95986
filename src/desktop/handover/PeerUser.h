// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

// Whether the process at the other end of the connected local socket `descriptor` is the same user's.
bool isOwnUser(int descriptor);

} // namespace desktop
