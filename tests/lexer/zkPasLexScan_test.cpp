// SPDX-License-Identifier: MIT
// What single tokens look like: symbols, numbers, blanks, line ends, and characters that nothing claims.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include "support/PascalTokens.h"

namespace quorvane {
namespace {

using support::Compact;
using support::Messages;
using support::Scan;
using support::TToken;

struct TRow {
  const char* Text;
  const char* Tokens;
};

class ScanTable : public testing::TestWithParam<TRow> {};

TEST_P(ScanTable, GivesTheTokens) {
  EXPECT_EQ(Compact(GetParam().Text), GetParam().Tokens);
}

INSTANTIATE_TEST_SUITE_P(
    Symbols, ScanTable,
    testing::Values(TRow{")", "RoundClose[)]"}, TRow{"*", "Star[*]"}, TRow{"+", "Plus[+]"}, TRow{",", "Comma[,]"},
                    TRow{"-", "Minus[-]"}, TRow{";", "SemiColon[;]"}, TRow{"=", "Equal[=]"}, TRow{"[", "SquareOpen[[]"},
                    TRow{"]", "SquareClose[]]"}, TRow{"^", "PointerSymbol[^]"}, TRow{"(", "RoundOpen[(]"},
                    TRow{".", "Point[.]"}, TRow{"/", "Slash[/]"}, TRow{":", "Colon[:]"}, TRow{"<", "Lower[<]"},
                    TRow{">", "Greater[>]"}, TRow{"@", "AddressOp[@]"}, TRow{":=", "Assign[:=]"},
                    TRow{"..", "DotDot[..]"}, TRow{"<=", "LowerEqual[<=]"}, TRow{"<>", "NotEqual[<>]"},
                    TRow{">=", "GreaterEqual[>=]"}, TRow{"@@", "DoubleAddressOp[@@]"},
                    TRow{"><", "Greater[>] Lower[<]"}, TRow{"=<", "Equal[=] Lower[<]"},
                    TRow{"...", "DotDot[..] Point[.]"}, TRow{"@@@", "DoubleAddressOp[@@] AddressOp[@]"},
                    TRow{"a^.b", "Identifier[a] PointerSymbol[^] Point[.] Identifier[b]"}));

INSTANTIATE_TEST_SUITE_P(SquareBracketsInTwoCharacters, ScanTable,
                         testing::Values(TRow{"(.", "SquareOpen[(.]"}, TRow{".)", "SquareClose[.)]"},
                                         TRow{"a(.1.)", "Identifier[a] SquareOpen[(.] Float[1.] RoundClose[)]"},
                                         TRow{"(..)", "SquareOpen[(.] SquareClose[.)]"}));

INSTANTIATE_TEST_SUITE_P(CharactersWithoutAMeaning, ScanTable,
                         testing::Values(TRow{"!", "Symbol[!]"}, TRow{"\"", "Symbol[\"]"}, TRow{"%", "Symbol[%]"},
                                         TRow{"&", "Symbol[&]"}, TRow{"?", "Symbol[?]"}, TRow{"\\", "Symbol[\\]"},
                                         TRow{"`", "Symbol[`]"}, TRow{"~", "Symbol[~]"}, TRow{"|", "Unknown[|]"},
                                         TRow{"\x7F", "Unknown[\x7F]"}, TRow{"\xE4", "Unknown[\xE4]"},
                                         TRow{"\xFF\x80", "Unknown[\xFF] Unknown[\x80]"}, TRow{"}", "Error[}]"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, ScanTable,
    testing::Values(TRow{"0", "IntegerConst[0]"}, TRow{"1234567890", "IntegerConst[1234567890]"},
                    TRow{"1.5E3", "Float[1.5E3]"}, TRow{"1e5", "IntegerConst[1e5]"},
                    TRow{"1..9", "IntegerConst[1] DotDot[..] IntegerConst[9]"},
                    TRow{"1.5..9", "Float[1.5] DotDot[..] IntegerConst[9]"}, TRow{"1.2.3", "Float[1.2.3]"},
                    TRow{"1.", "Float[1.]"}, TRow{"1E-5", "IntegerConst[1E] Minus[-] IntegerConst[5]"},
                    TRow{"12ab", "IntegerConst[12] Identifier[ab]"}, TRow{"12e", "IntegerConst[12e]"},
                    TRow{"1x2", "IntegerConst[1] Identifier[x2]"}, TRow{"$FF", "IntegerConst[$FF]"},
                    TRow{"$dEaD09", "IntegerConst[$dEaD09]"}, TRow{"$G", "IntegerConst[$] Identifier[G]"},
                    TRow{"$", "IntegerConst[$]"}, TRow{"$1.5", "IntegerConst[$1] Point[.] IntegerConst[5]"}));

INSTANTIATE_TEST_SUITE_P(CharacterCodes, ScanTable,
                         testing::Values(TRow{"#13", "AsciiChar[#13]"}, TRow{"#$0D", "AsciiChar[#$0D]"},
                                         TRow{"#", "AsciiChar[#]"}, TRow{"#$", "AsciiChar[#$]"},
                                         TRow{"#13#10", "AsciiChar[#13] AsciiChar[#10]"},
                                         TRow{"#1A", "AsciiChar[#1] Identifier[A]"},
                                         TRow{"#$1G", "AsciiChar[#$1] Identifier[G]"}));

INSTANTIATE_TEST_SUITE_P(BlanksAndLineEnds, ScanTable,
                         testing::Values(TRow{" ", "Space[ ]"},
                                         TRow{" \t\x01\x0B\x0C\x1F", "Space[ \t\x01\x0B\x0C\x1F]"},
                                         TRow{"\n", "CRLF[\\n]"}, TRow{"\r", "CRLF[\\r]"}, TRow{"\r\n", "CRLF[\\r\\n]"},
                                         TRow{"\n\r", "CRLF[\\n] CRLF[\\r]"}, TRow{"\r\r\n", "CRLF[\\r] CRLF[\\r\\n]"},
                                         TRow{" \n ", "Space[ ] CRLF[\\n] Space[ ]"}));

INSTANTIATE_TEST_SUITE_P(Sentences, ScanTable,
                         testing::Values(TRow{"x:=1..2",
                                              "Identifier[x] Assign[:=] IntegerConst[1] DotDot[..] IntegerConst[2]"},
                                         TRow{"", ""}));

TEST(Scan, EveryCharacterStartsATokenAndOnlyNulEndsTheText) {
  TzkBasePasLex lexer;
  for (int c = 1; c < 256; ++c) {
    const std::string text(1, static_cast<char>(c));
    lexer.SetOrigin(text.c_str());
    EXPECT_NE(lexer.TokenID(), ptNull) << c;
    EXPECT_EQ(lexer.RunPos(), 1) << c;
    lexer.Next();
    EXPECT_EQ(lexer.TokenID(), ptNull) << c;
  }
}

TEST(Scan, StaysAtTheEndOfTheText) {
  TzkBasePasLex lexer;
  lexer.SetOrigin("a");
  for (int round = 0; round < 3; ++round) {
    lexer.Next();
    EXPECT_EQ(support::Current(lexer), (TToken{.Kind = ptNull, .Pos = 1, .X = 1}));
  }
}

TEST(Scan, EndsAtTheFirstNul) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(Compact(text), "Identifier[a]");
}

TEST(Scan, CountsALineForLoneLineEndsAndForPairs) {
  TzkBasePasLex lexer;
  const auto tokens = Scan(lexer, "a\nb\rc\r\nd");
  EXPECT_EQ(lexer.LineNumber(), 3);
  EXPECT_EQ(lexer.LinePos(), 7);
  EXPECT_EQ(tokens.at(6), (TToken{.Kind = ptIdentifier, .Pos = 7, .Len = 1, .X = 0, .Y = 3}));
}

TEST(Scan, ALineBreakBelongsToTheLineThatItStarts) {
  TzkBasePasLex lexer;
  const auto tokens = Scan(lexer, "ab\n\r\n");
  EXPECT_EQ(tokens.at(1), (TToken{.Kind = ptCRLF, .Pos = 2, .Len = 1, .X = -1, .Y = 1}));
  EXPECT_EQ(tokens.at(2), (TToken{.Kind = ptCRLF, .Pos = 3, .Len = 2, .X = -2, .Y = 2}));
}

TEST(Scan, ReportsAStrayBraceAsIllegal) {
  EXPECT_EQ(Messages("a\n }"), std::vector<std::string>{"Illegal character at (1, 1)"});
}

TEST(Scan, ReportsCharactersThatNothingClaims) {
  EXPECT_EQ(Messages("| \xFF"),
            (std::vector<std::string>{"Unknown Character at (0, 0)", "Unknown Character at (2, 0)"}));
}

TEST(Scan, ReportsNothingAboutSymbolsWithoutAMeaning) {
  EXPECT_TRUE(Messages("!\"%&?\\`~").empty());
}

TEST(Scan, PassesItselfToTheMessageHandler) {
  TzkBasePasLex lexer;
  const TzkBasePasLex* sender = nullptr;
  TptTokenKind kind = ptNull;
  lexer.SetOnMessage([&](TzkBasePasLex& from, std::string_view, int, int) {
    sender = &from;
    kind = from.TokenID();
  });
  lexer.SetOrigin("}");
  EXPECT_EQ(sender, &lexer);
  EXPECT_EQ(kind, ptError);
}

TEST(Scan, ANewLexerHasNoTextAndIsAtTheEnd) {
  TzkBasePasLex lexer;
  EXPECT_EQ(lexer.Origin(), nullptr);
  EXPECT_EQ(lexer.TokenID(), ptNull);
  EXPECT_EQ(lexer.ExID(), ptUnknown);
  EXPECT_EQ(lexer.GetCommentState(), csNo);
  lexer.Next();
  EXPECT_EQ(lexer.TokenID(), ptNull);
}

TEST(Scan, NoTextScansAsAnEmptyOne) {
  TzkPasLex lexer;
  lexer.SetOrigin("a b");
  lexer.SetOrigin(nullptr);
  EXPECT_EQ(lexer.Origin(), nullptr);
  EXPECT_EQ(lexer.TokenID(), ptNull);
}

TEST(Scan, ReadsTheTextInPlace) {
  std::string text = "a b";
  TzkBasePasLex lexer;
  lexer.SetOrigin(text.c_str());
  EXPECT_EQ(lexer.Origin(), text.c_str());
  text[2] = '+';
  lexer.Next();
  lexer.Next();
  EXPECT_EQ(lexer.TokenID(), ptPlus);
}

} // namespace
} // namespace quorvane
