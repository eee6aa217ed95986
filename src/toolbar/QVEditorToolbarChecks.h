// SPDX-License-Identifier: MIT
// The checks of the unit QVEditorToolbar, whose code stands in several files.
#pragma once

#include "platform/Errors.h"

#include <string_view>

namespace quorvane {

// The numbers by which the failed checks of the unit are known. They are fixed, whatever the lines of its files.
enum TEditorToolbarCheck : unsigned {
  chHook = 77,
  chEditor = 165,
  chForm = 196,
  chOwner = 269,
  chOwnerClass = 270,
};

// EAssertionFailed that names the unit and the check, unless `condition` holds.
inline void RequireInEditorToolbar(bool condition, TEditorToolbarCheck check,
                                   std::string_view text = "Assertion failure") {
  platform::Require(condition, "QVEditorToolbar", text, check);
}

} // namespace quorvane
