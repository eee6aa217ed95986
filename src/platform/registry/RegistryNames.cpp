// SPDX-License-Identifier: MIT
#include "platform/registry/RegistryNames.h"

#include <algorithm>

namespace platform {
namespace {

constexpr char16_t Lower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

} // namespace

bool TNoCaseLess::operator()(std::u16string_view left, std::u16string_view right) const {
  return std::ranges::lexicographical_compare(left, right, {}, Lower, Lower);
}

bool SameName(std::u16string_view left, std::u16string_view right) {
  return std::ranges::equal(left, right, {}, Lower, Lower);
}

bool StartsWithName(std::u16string_view text, std::u16string_view start) {
  return SameName(text.substr(0, start.size()), start);
}

bool IsAtOrBelow(std::u16string_view path, std::u16string_view key) {
  return StartsWithName(path, key) && (path.size() == key.size() || path[key.size()] == u'\\');
}

std::size_t CommonParts(std::u16string_view path, std::u16string_view key) {
  const auto differing = std::ranges::mismatch(path, key, {}, Lower, Lower).in1;
  auto length = static_cast<std::size_t>(differing - path.begin());
  const auto endsPart = [&length](std::u16string_view text) { return length == text.size() || text[length] == u'\\'; };
  while (length > 0 && !(endsPart(path) && endsPart(key)))
    --length;
  return length;
}

} // namespace platform
