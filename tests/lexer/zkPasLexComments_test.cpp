// SPDX-License-Identifier: MIT
// Comments, on one line and across lines, in a whole text and line by line.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include "support/PascalTokens.h"

namespace quorvane {
namespace {

using support::Compact;
using support::CompactOn;
using support::Messages;

struct TRow {
  const char* Text;
  const char* Tokens;
};

class CommentTable : public testing::TestWithParam<TRow> {};

TEST_P(CommentTable, GivesTheTokens) {
  EXPECT_EQ(Compact(GetParam().Text), GetParam().Tokens);
}

INSTANTIATE_TEST_SUITE_P(
    OnOneLine, CommentTable,
    testing::Values(TRow{"{}", "BorComment[{}]"}, TRow{"{ a }b", "BorComment[{ a }] Identifier[b]"},
                    TRow{"{ { }", "BorComment[{ { }]"}, TRow{"{ *) }", "BorComment[{ *) }]"},
                    TRow{"(**)", "AnsiComment[(**)]"}, TRow{"(***)", "AnsiComment[(***)]"},
                    TRow{"(* a *)b", "AnsiComment[(* a *)] Identifier[b]"},
                    TRow{"(* } * ) *)", "AnsiComment[(* } * ) *)]"}, TRow{"// a } *)", "SlashesComment[// a } *)]"},
                    TRow{"//\n/", "SlashesComment[//] CRLF[\\n] Slash[/]"},
                    TRow{"//a\r\n", "SlashesComment[//a] CRLF[\\r\\n]"},
                    TRow{"a//", "Identifier[a] SlashesComment[//]"}, TRow{"( *", "RoundOpen[(] Space[ ] Star[*]"}));

INSTANTIATE_TEST_SUITE_P(TheOpenerDoesNotClose, CommentTable,
                         testing::Values(TRow{"(*) a *)b", "AnsiComment[(*) a *)] Identifier[b]"},
                                         TRow{"(*)", "AnsiComment[(*)]"}));

INSTANTIATE_TEST_SUITE_P(
    AcrossLines, CommentTable,
    testing::Values(TRow{"{a\nb}c", "BorComment[{a] CRLFCo[\\n] BorComment[b}] Identifier[c]"},
                    TRow{"{a\r\nb}c", "BorComment[{a] CRLFCo[\\r\\n] BorComment[b}] Identifier[c]"},
                    TRow{"{\r}", "BorComment[{] CRLFCo[\\r] BorComment[}]"},
                    TRow{"(*a\nb*)c", "AnsiComment[(*a] CRLFCo[\\n] AnsiComment[b*)] Identifier[c]"},
                    TRow{"(*a\n*)\n", "AnsiComment[(*a] CRLFCo[\\n] AnsiComment[*)] CRLF[\\n]"},
                    TRow{"(*a*\n)*)", "AnsiComment[(*a*] CRLFCo[\\n] AnsiComment[)*)]"},
                    TRow{"{\n\n}", "BorComment[{] CRLFCo[\\n] CRLFCo[\\n] BorComment[}]"},
                    TRow{"{\nbegin { (* '\n}",
                         "BorComment[{] CRLFCo[\\n] BorComment[begin { (* '] CRLFCo[\\n] BorComment[}]"}));

TEST(Comments, CountLinesInside) {
  TzkBasePasLex lexer;
  support::Scan(lexer, "{\n\r\n\r} a");
  EXPECT_EQ(lexer.LineNumber(), 3);
}

TEST(Comments, ReportTheEndOfTheTextInsideThem) {
  EXPECT_EQ(Messages("a {b"), std::vector<std::string>{"Unexpected file end at (4, 0)"});
  EXPECT_EQ(Messages("\n(*"), std::vector<std::string>{"Unexpected file end at (2, 1)"});
}

TEST(Comments, ReportTheEndAgainWithEveryStepThere) {
  TzkBasePasLex lexer;
  int count = 0;
  lexer.SetOnMessage([&](TzkBasePasLex&, std::string_view, int, int) { ++count; });
  lexer.SetOrigin("{");
  for (int step = 0; step < 3; ++step) {
    lexer.Next();
    EXPECT_EQ(lexer.TokenID(), ptNull);
    EXPECT_EQ(lexer.GetCommentState(), csBor);
  }
  EXPECT_EQ(count, 3);
}

TEST(Comments, KeepTheirStateAcrossLinesThatAreScannedOneByOne) {
  TzkBasePasLex lexer;
  const std::string first = "x { open";
  const std::string second = "still } x";
  lexer.SetLine(first);
  EXPECT_EQ(CompactOn(lexer), "Identifier[x] Space[ ] BorComment[{ open]");
  EXPECT_EQ(lexer.GetCommentState(), csBor);
  lexer.SetLine(second);
  EXPECT_EQ(CompactOn(lexer), "BorComment[still }] Space[ ] Identifier[x]");
  EXPECT_EQ(lexer.GetCommentState(), csNo);
}

TEST(Comments, KeepTheStateOfParenthesisStarsToo) {
  TzkBasePasLex lexer;
  const std::string first = "(* open }";
  const std::string second = "} *) x";
  lexer.SetLine(first);
  CompactOn(lexer);
  EXPECT_EQ(lexer.GetCommentState(), csAnsi);
  lexer.SetLine(second);
  EXPECT_EQ(CompactOn(lexer), "AnsiComment[} *)] Space[ ] Identifier[x]");
}

TEST(Comments, AStateThatIsSetContinuesOnTheNextLine) {
  TzkBasePasLex lexer;
  const std::string line = "a } b";
  lexer.SetCommentState(csBor);
  lexer.SetLine(line);
  EXPECT_EQ(CompactOn(lexer), "BorComment[a }] Space[ ] Identifier[b]");
}

TEST(Comments, AnEmptyLineInsideLeavesTheState) {
  TzkBasePasLex lexer;
  const std::string line;
  lexer.SetCommentState(csAnsi);
  lexer.SetLine(line);
  EXPECT_EQ(lexer.TokenID(), ptNull);
  EXPECT_EQ(lexer.GetCommentState(), csAnsi);
}

TEST(Comments, ANewTextStartsOutside) {
  TzkBasePasLex lexer;
  lexer.SetOrigin("{ open");
  EXPECT_EQ(lexer.GetCommentState(), csBor);
  lexer.SetOrigin("a");
  EXPECT_EQ(lexer.TokenID(), ptIdentifier);
  EXPECT_EQ(lexer.GetCommentState(), csNo);
}

} // namespace
} // namespace quorvane
