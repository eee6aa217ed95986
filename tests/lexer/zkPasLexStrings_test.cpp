// SPDX-License-Identifier: MIT
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include "support/PascalTokens.h"

namespace quorvane {
namespace {

using support::Compact;
using support::Messages;

std::string ContentOf(const char* text) {
  TzkBasePasLex lexer;
  lexer.SetOrigin(text);
  return lexer.GetStringContent();
}

struct TRow {
  const char* Text;
  const char* Tokens;
};

class StringTable : public testing::TestWithParam<TRow> {};

TEST_P(StringTable, GivesTheTokens) {
  EXPECT_EQ(Compact(GetParam().Text), GetParam().Tokens);
}

INSTANTIATE_TEST_SUITE_P(Closed, StringTable,
                         testing::Values(TRow{"''", "StringConst['']"}, TRow{"'a'", "AsciiChar['a']"},
                                         TRow{"'ab'", "StringConst['ab']"}, TRow{"'it''s'", "StringConst['it''s']"},
                                         TRow{"''''", "StringConst['''']"}, TRow{"''''''", "StringConst['''''']"},
                                         TRow{"'a'''", "StringConst['a''']"}, TRow{"'''a'", "StringConst['''a']"},
                                         TRow{"'a'b'c'", "AsciiChar['a'] Identifier[b] AsciiChar['c']"},
                                         TRow{"'{' }", "AsciiChar['{'] Space[ ] Error[}]"},
                                         TRow{"'begin//(*'", "StringConst['begin//(*']"}));

INSTANTIATE_TEST_SUITE_P(Unterminated, StringTable,
                         testing::Values(TRow{"'", "StringConst[']"},
                                         TRow{"'abc\nx", "StringConst['abc] CRLF[\\n] Identifier[x]"},
                                         TRow{"'abc\r\nx", "StringConst['abc] CRLF[\\r\\n] Identifier[x]"},
                                         TRow{"'\n'", "StringConst['] CRLF[\\n] StringConst[']"}));

INSTANTIATE_TEST_SUITE_P(DoubledQuotesBeforeTheLineEnd, StringTable,
                         testing::Values(TRow{"'a''\nb", "StringConst['a''] CRLF[\\n] Identifier[b]"},
                                         TRow{"'a''\r\nb'",
                                              "StringConst['a''] CRLF[\\r\\n] Identifier[b] StringConst[']"},
                                         TRow{"'a''", "StringConst['a'']"}));

INSTANTIATE_TEST_SUITE_P(ThreeCharactersWithoutAClosingQuote, StringTable,
                         testing::Values(TRow{"'ab", "StringConst['ab]"}, TRow{"'ab\n", "StringConst['ab] CRLF[\\n]"},
                                         TRow{"'''", "StringConst[''']"}, TRow{"'''\n", "StringConst['''] CRLF[\\n]"}));

TEST(Strings, ReportWhereAnUnterminatedOneStarts) {
  EXPECT_EQ(Messages("x\n  'abc\ny"), std::vector<std::string>{"Unterminated string at (2, 1)"});
  EXPECT_EQ(Messages("'abc"), std::vector<std::string>{"Unterminated string at (0, 0)"});
  EXPECT_EQ(Messages("'a''\n'''"),
            (std::vector<std::string>{"Unterminated string at (0, 0)", "Unterminated string at (0, 1)"}));
}

TEST(Strings, ReportNothingWhenClosed) {
  EXPECT_TRUE(Messages("'a' 'it''s' '' ''''").empty());
}

TEST(GetStringContent, LeavesOutTheQuotes) {
  EXPECT_EQ(ContentOf("'hello'"), "hello");
  EXPECT_EQ(ContentOf("''"), "");
}

TEST(GetStringContent, KeepsDoubledQuotes) {
  EXPECT_EQ(ContentOf("'it''s'"), "it''s");
  EXPECT_EQ(ContentOf("''''"), "''");
  EXPECT_EQ(ContentOf("'ab'''"), "ab''");
}

TEST(GetStringContent, TakesAnUnterminatedStringToItsEnd) {
  EXPECT_EQ(ContentOf("'hello"), "hello");
  EXPECT_EQ(ContentOf("'"), "");
}

TEST(GetStringContent, DoesNotTakeDoubledQuotesForAClosingOne) {
  EXPECT_EQ(ContentOf("'a''\n"), "a''");
  EXPECT_EQ(ContentOf("'''"), "''");
}

TEST(GetStringContent, IsEmptyForALiteralOfOneCharacter) {
  EXPECT_EQ(ContentOf("'a'"), "");
}

TEST(GetStringContent, IsEmptyForEveryOtherToken) {
  EXPECT_EQ(ContentOf("hello"), "");
  EXPECT_EQ(ContentOf("#13"), "");
  EXPECT_EQ(ContentOf(""), "");
}

} // namespace
} // namespace quorvane
