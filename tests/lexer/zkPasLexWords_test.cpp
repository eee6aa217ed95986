// SPDX-License-Identifier: MIT
// Which words are keywords.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <set>

#include "lexer/zkPasLexTables.h"
#include "support/PascalTokens.h"

namespace quorvane {
namespace {

using support::Compact;

std::string InCase(std::string_view word, int (*convert)(int)) {
  std::string result(word);
  for (char& c : result)
    c = static_cast<char>(convert(static_cast<unsigned char>(c)));
  return result;
}

// What is left of a word when case and the difference between digits are taken away.
std::string Folded(std::string_view word) {
  std::string result = InCase(word, std::tolower);
  for (char& c : result)
    if (std::isdigit(static_cast<unsigned char>(c)) != 0)
      c = '0';
  return result;
}

// The kind that a word must get, found without hashes.
TptTokenKind ExpectedGenID(std::string_view word) {
  static const std::map<std::string, TptTokenKind> kinds = [] {
    std::map<std::string, TptTokenKind> result;
    for (const TKeyword& keyword : Keywords)
      result[Folded(keyword.Word)] = keyword.Kind;
    return result;
  }();
  const auto found = kinds.find(Folded(word));
  return found == kinds.end() ? ptIdentifier : found->second;
}

TEST(Words, AreKeywordsInEveryCase) {
  for (const TKeyword& keyword : Keywords)
    for (const std::string& word :
         {std::string(keyword.Word), InCase(keyword.Word, std::tolower), InCase(keyword.Word, std::toupper)}) {
      TzkBasePasLex lexer;
      lexer.SetOrigin(word.c_str());
      const bool isReserved = TokenGroup(keyword.Kind) == TTokenGroup::Reserved;
      EXPECT_EQ(lexer.TokenID(), isReserved ? keyword.Kind : ptIdentifier) << word;
      EXPECT_EQ(lexer.ExID(), isReserved ? ptUnknown : keyword.Kind) << word;
      EXPECT_EQ(lexer.GetGenID(), keyword.Kind) << word;
      EXPECT_EQ(lexer.GetTokenLen(), static_cast<int>(word.size())) << word;
    }
}

TEST(Words, HaveAKeywordFunctionFor83Hashes) {
  std::set<unsigned> hashes;
  for (const TKeyword& keyword : Keywords)
    hashes.insert(keyword.Hash);
  EXPECT_EQ(hashes.size(), 83U);
  EXPECT_EQ(Keywords.size(), 136U);
}

TEST(Words, AreNamedLikeTheirKinds) {
  for (const TKeyword& keyword : Keywords)
    EXPECT_EQ(Folded(keyword.Word), Folded(TokenName(keyword.Kind)));
}

TEST(Words, AreIdentifiersWithALetterMoreOrLess) {
  EXPECT_EQ(Compact("Beginx"), "Identifier[Beginx]");
  EXPECT_EQ(Compact("Begi"), "Identifier[Begi]");
  EXPECT_EQ(Compact("_Begin"), "Identifier[_Begin]");
}

TEST(Words, AreIdentifiersWithTheSameHashOnly) {
  EXPECT_EQ(SumOfWord("Nde").Hash, SumOfWord("End").Hash);
  EXPECT_EQ(Compact("Nde"), "Identifier[Nde]");
  EXPECT_EQ(SumOfWord("Busourcestring").Hash, SumOfWord("Resourcestring").Hash);
  EXPECT_EQ(Compact("Busourcestring"), "Identifier[Busourcestring]");
}

TEST(Words, AreIdentifiersWhenTheirHashIsTooHigh) {
  EXPECT_EQ(SumOfWord("Zzzzzzzz").Hash, 208U);
  EXPECT_EQ(Compact("Zzzzzzzz"), "Identifier[Zzzzzzzz]");
}

TEST(Words, ReservedOnesHaveNoExtendedKind) {
  EXPECT_EQ(Compact("Record"), "Record[Record]");
  EXPECT_EQ(Compact("Cardinal"), "Identifier/Cardinal[Cardinal]");
}

TEST(Words, DoNotTellDigitsApart) {
  EXPECT_EQ(Compact("Int12"), "Identifier/Int64[Int12]");
  EXPECT_EQ(Compact("Real00"), "Identifier/Real48[Real00]");
  EXPECT_EQ(Compact("Real4"), "Identifier[Real4]");
  EXPECT_EQ(Compact("Int640"), "Identifier[Int640]");
}

TEST(Words, AnUnderscoreAloneIsAPlainIdentifier) {
  EXPECT_EQ(SumOfWord("_").Hash, 31U);
  EXPECT_EQ(Compact("_"), "Identifier[_]");
}

TEST(Words, GoOnOverDigitsAndUnderscores) {
  EXPECT_EQ(Compact("a_1b+_9"), "Identifier[a_1b] Plus[+] Identifier[_9]");
  EXPECT_EQ(Compact("begin0"), "Identifier[begin0]");
}

TEST(Words, EndBeforeEveryOtherCharacter) {
  for (int c = 1; c < 256; ++c) {
    const bool isIdentChar = std::isalnum(c) != 0 || c == '_';
    const std::string text = std::string("ab") + static_cast<char>(c);
    TzkBasePasLex lexer;
    lexer.SetOrigin(text.c_str());
    EXPECT_EQ(lexer.GetTokenLen(), isIdentChar ? 3 : 2) << c;
  }
}

TEST(Words, MayBeOfAnyLength) {
  const std::string text(1'000'000, 'a');
  TzkBasePasLex lexer;
  lexer.SetOrigin(text.c_str());
  EXPECT_EQ(lexer.TokenID(), ptIdentifier);
  EXPECT_EQ(lexer.GetTokenLen(), 1'000'000);
}

RC_GTEST_PROP(Words, AreRecognisedAsWithoutHashes, ()) {
  const auto letter = rc::gen::elementOf(std::string("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_"));
  const auto follower = rc::gen::oneOf(letter, rc::gen::elementOf(std::string("0123456789")));
  const std::string word = *letter + *rc::gen::container<std::string>(follower);
  TzkBasePasLex lexer;
  lexer.SetOrigin(word.c_str());
  RC_ASSERT(lexer.GetGenID() == ExpectedGenID(word));
  RC_ASSERT(lexer.GetToken() == word);
}

RC_GTEST_PROP(Words, AreRecognisedAsWithoutHashesWhenOneCharacterOfAKeywordIsChanged, ()) {
  std::string word((*rc::gen::elementOf(std::vector<TKeyword>(Keywords.begin(), Keywords.end()))).Word);
  const auto place = *rc::gen::inRange<std::size_t>(0, word.size());
  word[place] = *rc::gen::elementOf(std::string("abcdefghijklmnopqrstuvwxyz_"));
  TzkBasePasLex lexer;
  lexer.SetOrigin(word.c_str());
  RC_ASSERT(lexer.GetGenID() == ExpectedGenID(word));
}

} // namespace
} // namespace quorvane
