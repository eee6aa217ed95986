// SPDX-License-Identifier: MIT
// The read-only tables of the scanner. They are built by the compiler, so they are there before any lexer is made and
// any number of lexers in any threads may read them.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "lexer/zkPasLexTypes.h"

namespace quorvane {

// Whether a character may stand in an identifier. Read by the hash and by the directive parameter.
inline constexpr std::array<bool, 256> IdentChars = [] {
  std::array<bool, 256> table{};
  for (unsigned c = 0; c < table.size(); ++c)
    table[c] = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || c == '_' || (c >= 'a' && c <= 'z');
  return table;
}();

// Whether a character is one of a run of blanks: everything up to the space but NUL and the line ends.
inline constexpr std::array<bool, 256> Blanks = [] {
  std::array<bool, 256> table{};
  for (unsigned c = 1; c <= ' '; ++c)
    table[c] = c != '\n' && c != '\r';
  return table;
}();

// What a character adds to the hash of a word: a letter its place in the alphabet, in either case, the underscore 31,
// all else, digits included, 0. Words are compared by these values too, so digits are not told apart.
inline constexpr std::array<std::uint8_t, 256> HashValues = [] {
  std::array<std::uint8_t, 256> table{};
  for (unsigned c = 0; c < table.size(); ++c)
    if (c == '_' || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))
      table[c] = c & 31U;
  return table;
}();

constexpr unsigned HashOfWord(std::string_view word) {
  unsigned hash = 0;
  for (const char c : word)
    hash += HashValues[static_cast<unsigned char>(c)];
  return hash;
}

// One more than the highest hash that a keyword has.
inline constexpr unsigned KeywordHashCount = 192;

// A word that a keyword function or the directive classification compares the token with.
struct TKeyword {
  unsigned Hash;
  std::string_view Word;
  TptTokenKind Kind;
};

inline constexpr auto Keywords = std::to_array<TKeyword>({
#define PT_WORD(hash, word, kind) {hash, word, kind},
#include "lexer/TokenKinds.def"
});

inline constexpr auto DirectiveNames = std::to_array<TKeyword>({
#define PT_DIRECTIVE_NAME(hash, name, kind) {hash, name, kind},
#include "lexer/TokenKinds.def"
});

constexpr bool AreHashedInOrder(const auto& rows) {
  return std::ranges::is_sorted(rows, {}, &TKeyword::Hash) &&
         std::ranges::all_of(rows, [](const TKeyword& row) { return HashOfWord(row.Word) == row.Hash; });
}
static_assert(AreHashedInOrder(Keywords) && AreHashedInOrder(DirectiveNames));
static_assert(Keywords.back().Hash < KeywordHashCount);

} // namespace quorvane
