// SPDX-License-Identifier: MIT
#include "analysis/QVNameList.h"

#include <algorithm>
#include <cstddef>

namespace quorvane {
namespace {

constexpr char Fold(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

void TQVNameList::Add(std::string_view name, std::int32_t line) {
  FAdded.push_back({FChars.size(), name.size(), line});
  FFolded += name;
  std::transform(name.begin(), name.end(), FFolded.begin() + static_cast<std::ptrdiff_t>(FChars.size()), Fold);
  FChars += name;
  FIsSettled = false;
}

void TQVNameList::Settle() const {
  if (FIsSettled)
    return;
  FNames.clear();
  FNames.reserve(FAdded.size());
  for (const TAdded& added : FAdded)
    FNames.emplace_back(std::string_view(FChars).substr(added.Start, added.Length), added.Line);
  const auto folded = [this](const value_type& name) { return FoldedOf(name); };
  std::ranges::stable_sort(FNames, {}, folded);
  const auto isSame = [&](const value_type& left, const value_type& right) { return folded(left) == folded(right); };
  FNames.erase(std::unique(FNames.begin(), FNames.end(), isSame), FNames.end());
  FIsSettled = true;
}

bool TQVNameList::contains(std::string_view name) const {
  std::string wanted(name);
  std::ranges::transform(wanted, wanted.begin(), Fold);
  return std::ranges::binary_search(Names(), std::string_view(wanted), {},
                                    [this](const value_type& known) { return FoldedOf(known); });
}

} // namespace quorvane
