// SPDX-License-Identifier: MIT
#include "settings/model/QVOptions.h"

#include "settings/model/QVOptionTable.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvane {

namespace {

// Controls that remember what they were asked for.
class TAskedControls {
public:
  constexpr std::int32_t Number(TQVOption option) {
    asked_.at(static_cast<std::size_t>(option)) = true;
    return RowOf(option).Designed;
  }
  constexpr bool Flag(TQVOption option) { return Number(option) != 0; }
  constexpr char Character(TQVOption option) { return static_cast<char>(Number(option)); }

  constexpr bool WereAskedFor(TQVOption option) const { return asked_.at(static_cast<std::size_t>(option)); }

private:
  std::array<bool, QVOptionTable.size()> asked_{};
};

// Whether each option with a control comes to a global.
constexpr bool EveryControlCounts() {
  TAskedControls Controls;
#define QV_GLOBAL(global, value) static_cast<void>(value);
#include "settings/model/QVOptionGlobals.def"
  return std::ranges::all_of(QVOptionTable, [&Controls](const TQVOptionRow& row) {
    return Controls.WereAskedFor(row.Option) || row.Kind == TQVOptionKind::Folder; // read straight into its global
  });
}
static_assert(EveryControlCounts(), "a row of QVOptions.def comes to no global in QVOptionGlobals.def");

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
