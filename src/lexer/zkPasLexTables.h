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

using TCharSet = std::array<bool, 256>;

template <typename TPredicate> constexpr TCharSet MakeCharSet(TPredicate contains) {
  TCharSet set{};
  for (unsigned c = 0; c < set.size(); ++c)
    set[c] = contains(c);
  return set;
}

inline constexpr TCharSet Letters =
    MakeCharSet([](unsigned c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); });

inline constexpr TCharSet Digits = MakeCharSet([](unsigned c) { return c >= '0' && c <= '9'; });

// What ends a line: its line end, or the NUL that ends the text.
inline constexpr TCharSet LineStops = MakeCharSet([](unsigned c) { return c == 0 || c == '\n' || c == '\r'; });

// Whether a character may stand in an identifier. Read by the hash and by the directive parameter.
inline constexpr TCharSet IdentChars = MakeCharSet([](unsigned c) { return Letters[c] || Digits[c] || c == '_'; });

// Whether a character is one of a run of blanks: everything up to the space but NUL and the line ends.
inline constexpr TCharSet Blanks = MakeCharSet([](unsigned c) { return c <= ' ' && !LineStops[c]; });

// What a character adds to the hash of a word: a letter its place in the alphabet, in either case, the underscore 31,
// all else, digits included, 0. Words are compared by these values too, so digits are not told apart.
inline constexpr std::array<std::uint8_t, 256> HashValues = [] {
  std::array<std::uint8_t, 256> table{};
  for (unsigned c = 0; c < table.size(); ++c)
    if (Letters[c] || c == '_')
      table[c] = c & 31U;
  return table;
}();

// The value of a character that ends an identifier, where one look-up is to give both that and the hash value.
inline constexpr std::uint8_t NoIdentChar = 0xFF;

// Both tables above in one, for the loop that runs over every identifier.
inline constexpr std::array<std::uint8_t, 256> IdentValues = [] {
  std::array<std::uint8_t, 256> table{};
  for (unsigned c = 0; c < table.size(); ++c)
    table[c] = IdentChars[c] ? HashValues[c] : NoIdentChar;
  return table;
}();

// What one pass over a word gives: the sum of its hash values, and the values themselves, five bits each, as far back
// from its end as they fit. Words of one length up to LettersHeld are the same where their letters are.
struct TWordSum {
  unsigned Hash = 0;
  std::uint64_t Letters = 0;

  constexpr void Add(std::uint8_t value) {
    Hash += value;
    Letters = Letters << 5U | value;
  }
};

inline constexpr std::size_t LettersHeld = 12;

constexpr TWordSum SumOfWord(std::string_view word) {
  TWordSum sum;
  for (const char c : word)
    sum.Add(HashValues[static_cast<unsigned char>(c)]);
  return sum;
}

// One more than the highest hash that a keyword has.
inline constexpr unsigned KeywordHashCount = 192;

// A word that a keyword function or the directive classification compares the token with.
struct TKeyword {
  unsigned Hash;
  std::string_view Word;
  TptTokenKind Kind;
  std::uint64_t Letters = SumOfWord(Word).Letters;
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
         std::ranges::all_of(rows, [](const TKeyword& row) { return SumOfWord(row.Word).Hash == row.Hash; });
}
static_assert(AreHashedInOrder(Keywords) && AreHashedInOrder(DirectiveNames));
static_assert(Keywords.back().Hash < KeywordHashCount);

} // namespace quorvane
