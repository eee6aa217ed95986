// SPDX-License-Identifier: MIT
// Identifiers and the recognition of keywords: the sum of a word's character values selects the keyword function.
#include "lexer/zkPasLex.h"

#include "lexer/zkPasLexTables.h"

namespace quorvane {
namespace {

// The keywords of one hash, as a range of the keyword table.
struct TKeywordRow {
  std::uint8_t First = 0;
  std::uint8_t End = 0;
};

constexpr std::array<TKeywordRow, KeywordHashCount> KeywordRows = [] {
  std::array<TKeywordRow, KeywordHashCount> rows{};
  for (std::size_t index = 0; index < Keywords.size(); ++index) {
    TKeywordRow& row = rows[Keywords[index].Hash];
    if (row.End == 0)
      row.First = static_cast<std::uint8_t>(index);
    row.End = static_cast<std::uint8_t>(index + 1);
  }
  return rows;
}();

bool HasEqualHashValues(char a, char b) {
  return HashValues[static_cast<unsigned char>(a)] == HashValues[static_cast<unsigned char>(b)];
}

} // namespace

constinit const TzkBasePasLex::TIdentFuncTable TzkBasePasLex::IdentFuncs = [] {
  TIdentFuncTable funcs{};
  funcs.fill(NoKeyword);
  for (const TKeyword& keyword : Keywords)
    funcs[keyword.Hash] = Keyword;
  return funcs;
}();

void TzkBasePasLex::IdentProc(TzkBasePasLex& lex) {
  lex.FTokenID = lex.IdentKind();
}

TWordSum TzkBasePasLex::KeyHash() {
  TWordSum sum;
  const char* run = FOrigin + FRun;
  for (;; ++run) {
    const std::uint8_t value = IdentValues[static_cast<unsigned char>(*run)];
    if (value == NoIdentChar)
      break;
    sum.Add(value);
  }
  FRun = static_cast<std::int32_t>(run - FOrigin);
  return sum;
}

// Letters settle nearly every comparison without a second look at the text; only long words, which they do not hold
// whole, are compared once more.
bool TzkBasePasLex::KeyComp(TWordSum sum, const TKeyword& keyword) const {
  const std::string_view word = keyword.Word;
  return sum.Letters == keyword.Letters && static_cast<std::size_t>(GetTokenLen()) == word.size() &&
         (word.size() <= LettersHeld || std::equal(word.begin(), word.end(), FOrigin + FTokenPos, HasEqualHashValues));
}

TptTokenKind TzkBasePasLex::IdentKind() {
  const TWordSum sum = KeyHash();
  return sum.Hash >= KeywordHashCount ? ptIdentifier : FIdentFuncTable[sum.Hash](*this, sum);
}

TptTokenKind TzkBasePasLex::NoKeyword(TzkBasePasLex&, TWordSum) {
  return ptIdentifier;
}

TptTokenKind TzkBasePasLex::Keyword(TzkBasePasLex& lex, TWordSum sum) {
  const TKeywordRow row = KeywordRows[sum.Hash];
  for (std::size_t index = row.First; index < row.End; ++index) {
    const TKeyword& keyword = Keywords[index];
    if (!lex.KeyComp(sum, keyword))
      continue;
    if (TokenGroup(keyword.Kind) == TTokenGroup::Reserved)
      return keyword.Kind;
    lex.FExID = keyword.Kind;
    return ptIdentifier;
  }
  return ptIdentifier;
}

} // namespace quorvane
