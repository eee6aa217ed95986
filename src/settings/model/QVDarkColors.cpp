// SPDX-License-Identifier: MIT
#include "settings/model/QVDarkColors.h"

#include <algorithm>
#include <cstdint>

namespace quorvane {

namespace {

struct TDarkColor {
  TQVOption Option;
  std::int32_t Color;
};

constexpr auto kDarkColors = std::to_array<TDarkColor>({
#define QV_DARK_COLOR(value, color) {TQVOption::value, color},
#include "settings/model/QVDarkColors.def"
});

static_assert(std::ranges::all_of(QVOptionTable, [](const TQVOptionRow& row) {
  return (row.Kind == TQVOptionKind::Color) == (std::ranges::count(kDarkColors, row.Option, &TDarkColor::Option) == 1);
}));

} // namespace

bool FollowGround(TQVOptionValues& values, bool dark) {
  bool changed = false;
  for (const auto& [option, color] : kDarkColors) {
    const std::int32_t designed = RowOf(option).Designed;
    if (values.Number(option) != (dark ? designed : color))
      continue;
    values.SetNumber(option, dark ? color : designed);
    changed = true;
  }
  return changed;
}

} // namespace quorvane
