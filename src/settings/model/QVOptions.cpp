// SPDX-License-Identifier: MIT
#include "settings/model/QVOptions.h"

#include "settings/model/QVOptionTable.h"

namespace quorvane {

namespace {
constexpr TQVDesignedControls Controls;
} // namespace

// Known at compile time, so that no start order matters.
// NOLINTNEXTLINE(bugprone-macro-parentheses): the name that is declared.
#define QV_GLOBAL(global, value) constinit decltype(global) global = (value);
#include "settings/model/QVOptionGlobals.def"
TShortCut OptBlockHiliteKey = 0;
std::string OptStorageDir;

void ResetOptions() {
#define QV_GLOBAL(global, value) global = (value);
#include "settings/model/QVOptionGlobals.def"
  OptBlockHiliteKey = 0;
  OptStorageDir.clear();
}

} // namespace quorvane
