// SPDX-License-Identifier: MIT
#include "analysis/QVPasInfo.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr unsigned char Fold(char c) {
  return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

void AddName(TQVNameList& list, std::string_view name, std::int32_t line) {
  const auto place = list.lower_bound(name);
  if (place == list.end() || list.key_comp()(name, place->first))
    list.emplace_hint(place, name, line);
}

} // namespace

// Names of one class start alike, so what is equal as it stands is passed over first.
bool TQVNameLess::operator()(std::string_view left, std::string_view right) const {
  const std::size_t length = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < length; ++i)
    if (left[i] != right[i] && Fold(left[i]) != Fold(right[i]))
      return Fold(left[i]) < Fold(right[i]);
  return left.size() < right.size();
}

std::shared_ptr<IQVDrawElement> TQVPasInfo::GetElement(std::int32_t index) const {
  return FElements.at(static_cast<std::size_t>(index));
}

bool TQVPasInfo::IsSameInfo(const IQVPasInfo* other) const {
  return other != nullptr && other->GetHash() == FHash;
}

void TQVPasInfo::AddMethod(std::string_view name, std::int32_t line) {
  AddName(FMethods, name, line);
}

void TQVPasInfo::AddClass(std::string_view name, std::int32_t line) {
  AddName(FClasses, name, line);
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
