// SPDX-License-Identifier: MIT
#include "settings/model/QVOptionValues.h"

#include <algorithm>

namespace quorvane {

TQVOptionValues::TQVOptionValues() {
  for (const TQVOptionRow& row : QVOptionTable) {
    switch (row.Kind) {
    case TQVOptionKind::Flag:
      Slot(row.Option) = row.Designed != 0;
      break;
    case TQVOptionKind::Character:
      Slot(row.Option) = std::string(1, static_cast<char>(row.Designed));
      break;
    case TQVOptionKind::Folder:
      Slot(row.Option) = std::string();
      break;
    default:
      Slot(row.Option) = row.Designed;
    }
  }
}

char TQVOptionValues::Character(TQVOption option) const {
  const std::string& text = Text(option);
  return text.empty() ? '\0' : text.front();
}

void TQVOptionValues::SetNumber(TQVOption option, std::int32_t number) {
  const TQVLimits limits = RowOf(option).Limits;
  std::get<std::int32_t>(Slot(option)) = std::clamp(number, limits.First, limits.Last);
}

} // namespace quorvane
