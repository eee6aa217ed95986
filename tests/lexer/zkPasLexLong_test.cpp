// SPDX-License-Identifier: MIT
// A million of the same: nothing that repeats costs stack, and lines are counted to the end.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {
namespace {

constexpr int Count = 1'000'000;

struct TPiece {
  const char* Text;
  int Tokens; // in one piece
  int Lines;  // line breaks in one piece
  bool IsJunk;
};

class ManyPieces : public testing::TestWithParam<TPiece> {
protected:
  static std::string Text() {
    const std::string piece = GetParam().Text;
    std::string text;
    text.reserve(piece.size() * Count);
    for (int i = 0; i < Count; ++i)
      text += piece;
    return text;
  }
};

TEST_P(ManyPieces, AreWalkedToTheEnd) {
  const std::string text = Text();
  TzkPasLex lexer;
  int tokens = 0;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull; lexer.Next())
    ++tokens;
  EXPECT_EQ(tokens, GetParam().Tokens * Count);
  EXPECT_EQ(lexer.LineNumber(), GetParam().Lines * Count);
  EXPECT_EQ(lexer.RunPos(), static_cast<std::int32_t>(text.size()));
}

TEST_P(ManyPieces, AreSteppedOverIfTheyAreJunk) {
  const std::string text = Text();
  TzkPasLex lexer;
  lexer.SetOrigin(text.c_str());
  int steps = 0;
  for (; lexer.TokenID() != ptNull; lexer.NextNoJunk())
    ++steps;
  EXPECT_EQ(steps, GetParam().IsJunk ? 1 : Count);
  EXPECT_EQ(lexer.LineNumber(), GetParam().Lines * Count);
}

TEST_P(ManyPieces, AreLookedOverFromTheFirst) {
  const std::string text = Text();
  TzkPasLex lexer;
  lexer.SetOrigin(text.c_str());
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadTokenID(), GetParam().IsJunk ? ptNull : ptCompDirect);
}

INSTANTIATE_TEST_SUITE_P(Texts, ManyPieces,
                         testing::Values(TPiece{"{$Q+}", 1, 0, false}, TPiece{"(*$Q+*)", 1, 0, false},
                                         TPiece{"{$Q+}\n", 2, 1, false}, TPiece{"\n", 1, 1, true},
                                         TPiece{"\r\n", 1, 1, true}, TPiece{"{}", 1, 0, true},
                                         TPiece{"(**)", 1, 0, true}, TPiece{"{\n}", 3, 1, true},
                                         TPiece{"// a\n", 2, 1, true}));

TEST(ManyDirectives, AreAllAnnounced) {
  std::string text;
  for (int i = 0; i < Count; ++i)
    text += "{$IFDEF a}";
  TzkBasePasLex lexer;
  int calls = 0;
  lexer.SetOnIfDefDirect([&](TzkBasePasLex&) { ++calls; });
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull;)
    lexer.NextNoJunk();
  EXPECT_EQ(calls, Count);
  EXPECT_EQ(lexer.LineNumber(), 0);
}

} // namespace
} // namespace quorvane
