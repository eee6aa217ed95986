// SPDX-License-Identifier: MIT
// Questions about the units of a UTF-16 text that may hold lone surrogates.
#pragma once

#include <cstddef>
#include <string_view>

namespace quorvane {

/// Stands for bytes that no character could be made of.
inline constexpr char16_t ReplacementCharacter = 0xFFFD;

constexpr bool IsHighSurrogate(char16_t Unit) {
  return (Unit & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t Unit) {
  return (Unit & 0xFC00) == 0xDC00;
}

/// Whether the unit at Index (from 0, below the size) and the one after it are the two halves of one code point.
constexpr bool StartsPair(std::u16string_view Text, std::size_t Index) {
  return IsHighSurrogate(Text[Index]) && Index + 1 < Text.size() && IsLowSurrogate(Text[Index + 1]);
}

/// The code point of a pair, U+10000 and up.
constexpr char32_t PairCodePoint(char16_t High, char16_t Low) {
  return 0x10000 + ((static_cast<char32_t>(High) - 0xD800) << 10) + (static_cast<char32_t>(Low) - 0xDC00);
}

} // namespace quorvane
