// SPDX-License-Identifier: MIT
#include "desktop/ui/ViewState.h"

#include "desktop/edit/EditControl.h"

#include <algorithm>

namespace desktop {

namespace {

const auto caretKey = QLatin1StringView("caret");
const auto anchorKey = QLatin1StringView("anchor");
const auto topLineKey = QLatin1StringView("topLine");
const auto leftCellKey = QLatin1StringView("leftCell");

} // namespace

QJsonObject toJson(const EditState& state) {
  return {
      {caretKey, state.caret}, {anchorKey, state.anchor}, {topLineKey, state.topLine}, {leftCellKey, state.leftCell}};
}

EditState editStateOf(const QJsonObject& json) {
  // The edit control counts lines and columns from 1, so there has to be room for one more.
  constexpr int most = 1'000'000'000;
  const auto number = [&](QLatin1StringView key) { return std::clamp(json[key].toInt(), 0, most); };
  return {number(caretKey), number(anchorKey), number(topLineKey), number(leftCellKey)};
}

} // namespace desktop
