// SPDX-License-Identifier: MIT
#include "analysis/QVPasInfo.h"

namespace quorvane {
std::shared_ptr<IQVDrawElement> TQVPasInfo::GetElement(std::int32_t index) const {
  return FElements.at(static_cast<std::size_t>(index));
}

bool TQVPasInfo::IsSameInfo(const IQVPasInfo* other) const {
  return other != nullptr && other->GetHash() == FHash;
}

void TQVPasInfo::AddElement(std::int32_t line, std::int32_t col, std::int32_t linearPos, std::int32_t length,
                            TQVPasElementType elementType) {
  FElements.push_back(std::make_shared<TQVPasElement>(line, col, linearPos, length, elementType));
  auto hash = static_cast<std::uint32_t>(FHash);
  for (const std::int32_t value : {line, col, linearPos, length})
    hash += static_cast<std::uint32_t>(value);
  FHash = static_cast<std::int32_t>(hash);
}

} // namespace quorvane
