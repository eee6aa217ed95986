// SPDX-License-Identifier: MIT
// Questions about the units of a UTF-16 text that may hold lone surrogates.
#pragma once

#include <cstddef>
#include <string_view>

namespace quorvane {

// Stands for bytes that no character could be made of.
inline constexpr char16_t ReplacementCharacter = 0xFFFD;

constexpr bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

// Whether the unit at `index` (from 0, below the size) and the one after it are the two halves of one code point.
constexpr bool StartsPair(std::u16string_view text, std::size_t index) {
  return IsHighSurrogate(text[index]) && index + 1 < text.size() && IsLowSurrogate(text[index + 1]);
}

// The code point of a pair, U+10000 and up.
constexpr char32_t PairCodePoint(char16_t high, char16_t low) {
  return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00);
}

} // namespace quorvane
