// SPDX-License-Identifier: MIT
// Positioning, stepping over tokens, and what the lexer tells about the current one.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include "support/PascalTokens.h"

namespace quorvane {
namespace {

// Puts a lexer on the first token of a text.
class Walk : public testing::Test {
protected:
  TzkBasePasLex& On(const char* text) {
    FLexer.SetOrigin(text);
    return FLexer;
  }

  // Steps on to the token with a text.
  TzkBasePasLex& On(const char* text, std::string_view token) {
    On(text);
    while (FLexer.GetToken() != token && FLexer.TokenID() != ptNull)
      FLexer.Next();
    return FLexer;
  }

private:
  TzkBasePasLex FLexer;
};

TEST_F(Walk, NextNoJunkStepsOverCommentsBlanksAndLineBreaks) {
  TzkBasePasLex& lexer = On("a {b} (*c*) //d\n{\n} e");
  lexer.NextNoJunk();
  EXPECT_EQ(lexer.GetToken(), "e");
  lexer.NextNoJunk();
  EXPECT_EQ(lexer.TokenID(), ptNull);
}

TEST_F(Walk, NextNoJunkStopsAtDirectives) {
  TzkBasePasLex& lexer = On("a {$R+} b");
  lexer.NextNoJunk();
  EXPECT_EQ(lexer.TokenID(), ptCompDirect);
}

TEST_F(Walk, NextNoJunkMovesFromATokenThatIsNoJunk) {
  TzkBasePasLex& lexer = On("ab+c");
  lexer.NextNoJunk();
  EXPECT_EQ(lexer.TokenID(), ptPlus);
}

TEST_F(Walk, NextNoSpaceStopsAtComments) {
  TzkBasePasLex& lexer = On("a \n {b\n} c");
  lexer.NextNoSpace();
  EXPECT_EQ(lexer.TokenID(), ptBorComment);
  lexer.NextNoSpace();
  EXPECT_EQ(lexer.TokenID(), ptCRLFCo);
}

TEST_F(Walk, NextIDFindsTheNextTokenOfAKind) {
  TzkBasePasLex& lexer = On("; a ; b ;");
  lexer.NextID(ptSemiColon);
  EXPECT_EQ(lexer.TokenPos(), 4);
}

TEST_F(Walk, NextIDStopsAtTheEnd) {
  TzkBasePasLex& lexer = On("a b");
  lexer.NextID(ptSemiColon);
  EXPECT_EQ(lexer.TokenID(), ptNull);
  EXPECT_EQ(lexer.RunPos(), 3);
}

TEST_F(Walk, NextIDAtTheEndReturnsAtOnce) {
  TzkBasePasLex& lexer = On("");
  int messages = 0;
  lexer.SetCommentState(csBor);
  lexer.SetOnMessage([&](TzkBasePasLex&, std::string_view, int, int) { ++messages; });
  lexer.NextID(ptNull);
  EXPECT_EQ(lexer.TokenID(), ptNull);
  EXPECT_EQ(messages, 0);
}

TEST_F(Walk, CharAheadSkipsBlanksAndLineBreaks) {
  TzkBasePasLex& lexer = On("a \t\r\n  (b");
  EXPECT_EQ(lexer.CharAhead(), '(');
  EXPECT_EQ(lexer.RunPos(), 1);
  EXPECT_EQ(lexer.LineNumber(), 0);
}

TEST_F(Walk, CharAheadGivesTheCharacterRightAtTheRunPosition) {
  EXPECT_EQ(On("a+").CharAhead(), '+');
}

TEST_F(Walk, CharAheadStopsAtTheEnd) {
  EXPECT_EQ(On("a  ").CharAhead(), '\0');
}

TEST_F(Walk, CharAheadDoesNotSkipCharactersBeyondAscii) {
  EXPECT_EQ(On("a \xA0").CharAhead(), '\xA0');
}

TEST_F(Walk, FirstInLineHoldsAtTheStartOfTheText) {
  EXPECT_TRUE(On("a").FirstInLine());
}

TEST_F(Walk, FirstInLineHoldsAfterLineEnds) {
  EXPECT_TRUE(On("xx\nb", "b").FirstInLine());
  EXPECT_TRUE(On("xx\rb", "b").FirstInLine());
  EXPECT_TRUE(On("xx\r\n \tb", "b").FirstInLine());
}

TEST_F(Walk, FirstInLineHoldsAfterBlanksThatReachTheStart) {
  EXPECT_TRUE(On("   b", "b").FirstInLine());
}

TEST_F(Walk, FirstInLineFailsAfterAnotherToken) {
  EXPECT_FALSE(On("xx b", "b").FirstInLine());
  EXPECT_FALSE(On("\nx b", "b").FirstInLine());
}

TEST_F(Walk, FirstInLineHoldsAfterOneCharacterAtTheStartOfTheText) {
  EXPECT_TRUE(On("x b", "b").FirstInLine());
  EXPECT_TRUE(On(";b", "b").FirstInLine());
}

TEST_F(Walk, SetRunPosScansTheTokenThere) {
  TzkBasePasLex& lexer = On("alpha beta");
  lexer.SetRunPos(6);
  EXPECT_EQ(lexer.GetToken(), "beta");
  EXPECT_EQ(lexer.TokenPos(), 6);
  EXPECT_EQ(lexer.RunPos(), 10);
}

TEST_F(Walk, InitGoesBackToTheStartWithoutScanning) {
  TzkBasePasLex& lexer = On("a\n{b", "{b");
  lexer.Init();
  EXPECT_EQ(lexer.RunPos(), 0);
  EXPECT_EQ(lexer.LineNumber(), 0);
  EXPECT_EQ(lexer.LinePos(), 0);
  EXPECT_EQ(lexer.GetCommentState(), csNo);
  EXPECT_EQ(lexer.TokenID(), ptBorComment);
}

TEST_F(Walk, InitLineKeepsTheCommentState) {
  TzkBasePasLex& lexer = On("a\n{b", "{b");
  lexer.InitLine();
  EXPECT_EQ(lexer.RunPos(), 0);
  EXPECT_EQ(lexer.LineNumber(), 0);
  EXPECT_EQ(lexer.GetCommentState(), csBor);
}

TEST_F(Walk, SetLineCountsFromTheFirstLineAgain) {
  TzkBasePasLex& lexer = On("a\nb", "b");
  const std::string line = "c";
  lexer.SetLine(line);
  EXPECT_EQ(lexer.LineNumber(), 0);
  EXPECT_EQ(lexer.TokenPos(), 0);
  EXPECT_EQ(lexer.GetToken(), "c");
}

TEST_F(Walk, GetPosXYIsTheColumnAndLineOfTheToken) {
  const TzkPoint point = On("a\n  b", "b").GetPosXY();
  EXPECT_EQ(point.X, 2);
  EXPECT_EQ(point.Y, 1);
}

TEST_F(Walk, GetGenIDPrefersTheExtendedKindOfIdentifiers) {
  EXPECT_EQ(On("Read").GetGenID(), ptRead);
  EXPECT_EQ(On("foo").GetGenID(), ptIdentifier);
  EXPECT_EQ(On("begin").GetGenID(), ptBegin);
  EXPECT_EQ(On(";").GetGenID(), ptSemiColon);
}

TEST_F(Walk, TheExtendedKindIsForgottenByTheNextToken) {
  TzkBasePasLex& lexer = On("Read;");
  lexer.Next();
  EXPECT_EQ(lexer.ExID(), ptUnknown);
}

using TTest = bool (TzkBasePasLex::*)() const;

struct TClassRow {
  const char* Name;
  TTest Test;
  std::vector<const char*> Yes;
  std::vector<const char*> No;
};

class Classes : public testing::TestWithParam<TClassRow> {};

TEST_P(Classes, HoldForTheirTokensOnly) {
  TzkBasePasLex lexer;
  for (const char* text : GetParam().Yes) {
    lexer.SetOrigin(text);
    EXPECT_TRUE((lexer.*GetParam().Test)()) << text;
  }
  for (const char* text : GetParam().No) {
    lexer.SetOrigin(text);
    EXPECT_FALSE((lexer.*GetParam().Test)()) << text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, Classes,
    testing::Values(
        TClassRow{"Junk", &TzkBasePasLex::GetIsJunk, {" ", "\n", "{a}", "(*a*)", "//"}, {"{$R+}", "a", "", ";"}},
        TClassRow{"Space", &TzkBasePasLex::GetIsSpace, {" ", "\n", "\r\n"}, {"{a}", "//", "", "a"}},
        TClassRow{"OrdIdent",
                  &TzkBasePasLex::GetIsOrdIdent,
                  {"Integer", "PChar", "DWORD", "Int64"},
                  {"Cardinal", "ByteBool", "WordBool", "LongBool", "1", "'a'", "foo", "string", "Double"}},
        TClassRow{"OrdinalType",
                  &TzkBasePasLex::GetIsOrdinalType,
                  {"Integer", "Char", "1", "$F", "'a'", "#13"},
                  {"Cardinal", "'ab'", "1.5", "foo", ""}},
        TClassRow{"RealType",
                  &TzkBasePasLex::GetIsRealType,
                  {"Real", "Real48", "Currency", "Comp", "Single"},
                  {"1.5", "Integer", "foo"}},
        TClassRow{"StringType",
                  &TzkBasePasLex::GetIsStringType,
                  {"string", "'ab'", "''", "AnsiString", "WideString"},
                  {"'a'", "ShortString", "PChar", "foo"}},
        TClassRow{"VarantType", &TzkBasePasLex::GetIsVarantType, {"Variant", "OleVariant"}, {"foo", "var"}},
        TClassRow{"AddOperator", &TzkBasePasLex::GetIsAddOperator, {"+", "-", "or", "xor"}, {"*", "and", "a"}},
        TClassRow{"MulOperator",
                  &TzkBasePasLex::GetIsMulOperator,
                  {"*", "/", "div", "mod", "and", "shl", "shr", "as"},
                  {"+", "or", "is", "//"}},
        TClassRow{"RelativeOperator",
                  &TzkBasePasLex::GetIsRelativeOperator,
                  {"=", "<", ">", "<=", ">=", "<>", "in", "is", "as"},
                  {":=", "not", "and"}},
        TClassRow{"CompilerDirective",
                  &TzkBasePasLex::GetIsCompilerDirective,
                  {"{$R+}", "{$I a}", "{$IFDEF a}", "{$ELSE}", "(*$ENDIF*)"},
                  {"{a}", "{ $R+}", "$"}}),
    [](const testing::TestParamInfo<TClassRow>& row) { return row.param.Name; });

TEST_F(Walk, ALineBreakInsideACommentIsJunkButNoSpace) {
  TzkBasePasLex& lexer = On("{a\nb}");
  lexer.Next();
  EXPECT_EQ(lexer.TokenID(), ptCRLFCo);
  EXPECT_TRUE(lexer.GetIsJunk());
  EXPECT_FALSE(lexer.GetIsSpace());
}

} // namespace
} // namespace quorvane
