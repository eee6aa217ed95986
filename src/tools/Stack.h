// SPDX-License-Identifier: MIT
// A stack that a parse of any depth fits in.
#pragma once

#include <functional>

namespace quorvane {

// Does `work` in a thread of its own, with a stack for the deepest parse whatever the shell's limit is, and waits for
// its end. All threads that are started later have such a stack too. `work` must not throw. Throws std::system_error if
// the thread cannot be started.
void RunOnDeepStack(const std::function<void()>& work);

} // namespace quorvane
