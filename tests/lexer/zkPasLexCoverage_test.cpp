// SPDX-License-Identifier: MIT
// Every token kind that the lexer can produce stands in the sample data/pascal/EveryToken.pas.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>

#include "support/PascalTokens.h"
#include "support/PascalUnits.h"

namespace quorvane {
namespace {

// Declared for the parsers, or for completeness, and never scanned.
constexpr std::array NeverScanned = {ptAmpersand,     ptBraceClose,     ptBraceOpen, ptClassForward,
                                     ptClassFunction, ptClassProcedure, ptNone};

TEST(EveryToken, OfTheLanguageOccursInTheSample) {
  const std::string text = support::ReadFile(VIRELLE_TEST_DATA "/pascal/EveryToken.pas");
  ASSERT_FALSE(text.empty());
  std::bitset<TokenKindCount> kinds;
  std::bitset<TokenKindCount> extendedKinds;
  TzkBasePasLex lexer;
  for (const support::TToken& token : support::Scan(lexer, text)) {
    kinds.set(token.Kind);
    extendedKinds.set(token.ExKind);
  }
  for (int ordinal = 0; ordinal < TokenKindCount; ++ordinal) {
    const auto kind = static_cast<TptTokenKind>(ordinal);
    const bool isScanned = std::ranges::find(NeverScanned, kind) == NeverScanned.end();
    const bool isWord = TokenGroup(kind) == TTokenGroup::Word;
    EXPECT_EQ(kinds.test(kind), isScanned && !isWord) << ptTokenName(kind);
    EXPECT_EQ(extendedKinds.test(kind), isWord || kind == ptUnknown) << ptTokenName(kind);
  }
}

} // namespace
} // namespace quorvane
