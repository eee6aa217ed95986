// SPDX-License-Identifier: MIT
// Identifiers and the recognition of keywords: the sum of a word's character values selects the keyword function.
#include "lexer/zkPasLex.h"

#include "lexer/zkPasLexTables.h"

namespace quorvane {
namespace {

// The keywords of one hash, as rows of the keyword table, and the lengths that they have, one bit per length: most
// identifiers that share a hash with a keyword are told apart by their length.
struct TKeywordRow {
  std::uint8_t First = 0;
  std::uint8_t End = 0;
  std::uint16_t Lengths = 0;
};

constexpr std::size_t LongestLength = 15;

constexpr std::array<TKeywordRow, KeywordHashCount> KeywordRows = [] {
  std::array<TKeywordRow, KeywordHashCount> rows{};
  for (std::size_t index = 0; index < Keywords.size(); ++index) {
    TKeywordRow& row = rows[Keywords[index].Hash];
    if (row.End == 0)
      row.First = static_cast<std::uint8_t>(index);
    row.End = static_cast<std::uint8_t>(index + 1);
    row.Lengths = static_cast<std::uint16_t>(row.Lengths | 1U << Keywords[index].Word.size());
  }
  return rows;
}();

static_assert(std::ranges::all_of(Keywords, [](const TKeyword& row) { return row.Word.size() < LongestLength; }));

} // namespace

constinit const TzkBasePasLex::TIdentFuncTable TzkBasePasLex::IdentFuncs = [] {
  TIdentFuncTable funcs{};
  funcs.fill(NoKeyword);
  for (const TKeyword& row : Keywords)
    funcs[row.Hash] = Keyword;
  return funcs;
}();

void TzkBasePasLex::IdentProc(TzkBasePasLex& lex) {
  lex.FTokenID = lex.IdentKind();
}

unsigned TzkBasePasLex::KeyHash() {
  unsigned hash = 0;
  std::int32_t run = FRun;
  for (unsigned char c = CharAt(run); IdentChars[c]; c = CharAt(run)) {
    hash += HashValues[c];
    ++run;
  }
  FRun = run;
  return hash;
}

bool TzkBasePasLex::KeyComp(std::string_view word) const {
  return static_cast<std::size_t>(GetTokenLen()) == word.size() &&
         std::equal(word.begin(), word.end(), FOrigin + FTokenPos, [](char a, char b) {
           return HashValues[static_cast<unsigned char>(a)] == HashValues[static_cast<unsigned char>(b)];
         });
}

TptTokenKind TzkBasePasLex::IdentKind() {
  const unsigned hash = KeyHash();
  return hash >= KeywordHashCount ? ptIdentifier : FIdentFuncTable[hash](*this, hash);
}

TptTokenKind TzkBasePasLex::NoKeyword(TzkBasePasLex&, unsigned) {
  return ptIdentifier;
}

TptTokenKind TzkBasePasLex::Keyword(TzkBasePasLex& lex, unsigned hash) {
  const TKeywordRow& row = KeywordRows[hash];
  const auto length = std::min<std::size_t>(static_cast<std::size_t>(lex.GetTokenLen()), LongestLength);
  if ((row.Lengths >> length & 1U) == 0)
    return ptIdentifier;
  for (std::size_t index = row.First; index < row.End; ++index) {
    const TKeyword& keyword = Keywords[index];
    if (!lex.KeyComp(keyword.Word))
      continue;
    if (TokenGroup(keyword.Kind) == TTokenGroup::Reserved)
      return keyword.Kind;
    lex.FExID = keyword.Kind;
    return ptIdentifier;
  }
  return ptIdentifier;
}

} // namespace quorvane
