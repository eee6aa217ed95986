// SPDX-License-Identifier: MIT
#include "analysis/QVLiteParse.h"

#include <gtest/gtest.h>

#include "support/LitePasReference.h"

namespace quorvane {
namespace {

using support::TLiteEvent;

// "[begin end] ([(] [)])": what is announced, as the texts of the elements; an element that was not seen is a dash.
std::string Summary(const std::string& text) {
  TQVLitePasParser parser;
  std::string result;
  for (const TLiteEvent& event : support::Announced(parser, text)) {
    result += result.empty() ? "[" : " [";
    std::string separator;
    for (const TQVLitePasElement& element : event.Elements) {
      result += separator + (element.Text.empty() ? "-" : element.Text);
      separator = " ";
    }
    result += "]";
  }
  return result;
}

std::vector<TptTokenKind> KindsOf(const TLiteEvent& event) {
  std::vector<TptTokenKind> kinds;
  for (const TQVLitePasElement& element : event.Elements)
    kinds.push_back(element.Kind);
  return kinds;
}

// The only announcement of a text, or the last one where the block around it is left open.
TLiteEvent EventOf(const std::string& text) {
  TQVLitePasParser parser;
  const std::vector<TLiteEvent> events = support::Announced(parser, text);
  EXPECT_EQ(events.size(), 1U) << text;
  return events.empty() ? TLiteEvent{} : events.back();
}

struct TRow {
  const char* Text;
  const char* Events;
};

class LiteParse : public testing::TestWithParam<TRow> {};

TEST_P(LiteParse, Announces) {
  EXPECT_EQ(Summary(GetParam().Text), GetParam().Events);
}

INSTANTIATE_TEST_SUITE_P(Constructs, LiteParse,
                         testing::Values(TRow{"begin end", "[begin end]"}, TRow{"BEGIN x End", "[BEGIN End]"},
                                         TRow{"begin case x of 1: a; end end", "[case of end] [begin end]"},
                                         TRow{"begin if a then b; end", "[if then] [begin end]"},
                                         TRow{"begin if a then b else c; end", "[if then else] [begin end]"},
                                         TRow{"begin repeat x until y end", "[repeat until] [begin end]"},
                                         TRow{"begin try a except b end end", "[try except end] [begin end]"},
                                         TRow{"begin try a finally b end end", "[try finally end] [begin end]"},
                                         TRow{"f(a, (b))", "[( )] [( )]"}));

INSTANTIATE_TEST_SUITE_P(OnlyBeginAndParenthesesAtTheTop, LiteParse,
                         testing::Values(TRow{"repeat x until y", ""}, TRow{"if a then b;", ""},
                                         TRow{"try a finally b end", ""}, TRow{"case a of b: c end", ""},
                                         TRow{"end begin end", "[begin end]"}, TRow{"type t = class a: b end;", ""},
                                         TRow{"type t = record a: b end;", ""}, TRow{") begin end", "[begin end]"}));

INSTANTIATE_TEST_SUITE_P(OpenConstructsAreDropped, LiteParse,
                         testing::Values(TRow{"begin begin end", "[begin end]"}, TRow{"begin", ""}, TRow{"(", ""},
                                         TRow{"((a)", "[( )]"}, TRow{"begin try a end", "[try - end]"}, TRow{"", ""},
                                         TRow{"begin if a then b", ""}));

INSTANTIATE_TEST_SUITE_P(StringsAndCommentsHideWhatTheyHold, LiteParse,
                         testing::Values(TRow{"'begin' 'end'", ""}, TRow{"{ begin } { end }", ""},
                                         TRow{"(* begin end ( ) *)", ""}, TRow{"// begin end", ""},
                                         TRow{"begin 'end' { end } end", "[begin end]"}));

INSTANTIATE_TEST_SUITE_P(MissingMiddlesAreUnfilled, LiteParse,
                         testing::Values(TRow{"begin case x end end", "[case - end] [begin end]"},
                                         TRow{"begin try x end end", "[try - end] [begin end]"},
                                         TRow{"begin if x; end", "[if -] [begin end]"},
                                         TRow{"begin if x else y; end", "[if - else] [begin end]"}));

INSTANTIATE_TEST_SUITE_P(UnbalancedClosersCloseEarly, LiteParse,
                         testing::Values(TRow{"begin try a end b end", "[try - end] [begin end]"},
                                         TRow{"begin ) end", "[begin end]"}, TRow{"(end)", "[( )]"}));

INSTANTIATE_TEST_SUITE_P(NothingIsLookedForInParenthesesButParentheses, LiteParse,
                         testing::Values(TRow{"(begin end)", "[( )]"},
                                         TRow{"begin (if a then (b;)) end", "[( )] [( )] [begin end]"}));

INSTANTIATE_TEST_SUITE_P(ACaseDoesNotLookAtIts, LiteParse,
                         testing::Values(TRow{"begin case a of 1: if b then c; end end", "[case of end] [begin end]"}));

INSTANTIATE_TEST_SUITE_P(TheTokenAfterANestedCloserOpensNothing, LiteParse,
                         testing::Values(TRow{"begin (a)(b) end", "[( )] [begin end]"}, TRow{"(a)(b)", "[( )]"},
                                         TRow{"(a) (b)", "[( )] [( )]"},
                                         TRow{"begin (a)begin end end", "[( )] [begin end]"},
                                         TRow{"begin (a)end", "[( )] [begin end]"}, TRow{"((a))", "[( )] [( )]"},
                                         TRow{"begin if (a)then b; end", "[( )] [if -] [begin end]"}));

INSTANTIATE_TEST_SUITE_P(AnIfRunsToASemicolon, LiteParse,
                         testing::Values(TRow{"begin if a then if b then c; d; end", "[if then] [if then] [begin end]"},
                                         TRow{"begin if a then if b then c; d end", "[if then]"},
                                         TRow{"begin if a then b end; c end", "[if then] [begin end]"},
                                         TRow{"begin if a then begin b; end; end",
                                              "[begin end] [if then] [begin end]"}));

TEST(LiteParseElements, GivePlaceKindAndText) {
  const TLiteEvent event = EventOf("begin end");
  EXPECT_EQ(event, (TLiteEvent{false, {{5, 1, 0, ptBegin, "begin"}, {9, 1, 6, ptEnd, "end"}}}));
}

TEST(LiteParseElements, CountLinesFromOneAndColumnsFromZero) {
  const TLiteEvent event = EventOf("\r\n  Begin\n\n End");
  EXPECT_EQ(event, (TLiteEvent{false, {{9, 2, 2, ptBegin, "Begin"}, {15, 4, 1, ptEnd, "End"}}}));
}

TEST(LiteParseElements, OfParenthesesGoToTheirOwnEvent) {
  const TLiteEvent event = EventOf("a(b)");
  EXPECT_EQ(event, (TLiteEvent{true, {{2, 1, 1, ptRoundOpen, "("}, {4, 1, 3, ptRoundClose, ")"}}}));
}

TEST(LiteParseElements, TellTheirConstruct) {
  EXPECT_EQ(KindsOf(EventOf("begin case a of end")), (std::vector{ptCase, ptCase, ptEnd}));
  EXPECT_EQ(KindsOf(EventOf("begin repeat until")), (std::vector{ptRepeat, ptRepeat}));
}

TEST(LiteParseElements, OfOtherConstructsCarryTheirOwnKinds) {
  EXPECT_EQ(KindsOf(EventOf("begin try except end ")), (std::vector{ptTry, ptExcept, ptEnd}));
  EXPECT_EQ(KindsOf(EventOf("begin try finally end ")), (std::vector{ptTry, ptFinally, ptEnd}));
  EXPECT_EQ(KindsOf(EventOf("begin if then else ; ")), (std::vector{ptIf, ptThen, ptElse}));
}

TEST(LiteParseElements, ThatWereNeverFilledAreZero) {
  const TLiteEvent event = EventOf("begin try end ");
  ASSERT_EQ(event.Elements.size(), 3U);
  const TQVLitePasElement& middle = event.Elements[1];
  EXPECT_EQ(middle.Position, 0);
  EXPECT_EQ(middle.Line, 0);
  EXPECT_EQ(middle.Column, 0);
  EXPECT_EQ(middle.Kind, ptAbsolute);
  EXPECT_EQ(middle.Text, "");
}

TEST(LiteParseElements, OfAMiddleThatComesTwiceAreThoseOfTheLast) {
  const TLiteEvent event = EventOf("begin try Except finally end ");
  ASSERT_EQ(event.Elements.size(), 3U);
  EXPECT_EQ(event.Elements[1].Text, "finally");
  EXPECT_EQ(event.Elements[1].Kind, ptFinally);
  EXPECT_EQ(event.Elements[1].Position, 24);
}

TEST(LiteParser, DoesWithoutEvents) {
  TQVLitePasParser parser;
  EXPECT_FALSE(parser.OnBlock());
  EXPECT_FALSE(parser.OnRound());
  parser.ParseFull("begin (a) end ");
  EXPECT_EQ(parser.Lexer().TokenID(), ptNull);
  EXPECT_EQ(parser.Lexer().RunPos(), 14);
}

TEST(LiteParser, CallsTheEventWhileTheLexerStandsOnTheCloser) {
  TQVLitePasParser parser;
  std::string token;
  parser.SetOnBlock([&](auto) { token = parser.Lexer().GetToken(); });
  parser.ParseFull("begin End x");
  EXPECT_EQ(token, "End");
}

TEST(LiteParser, LetsExceptionsOfItsEventsThrough) {
  TQVLitePasParser parser;
  parser.SetOnRound([](auto) { throw std::runtime_error("from the event"); });
  EXPECT_THROW(parser.ParseFull("begin (a) end "), std::runtime_error);
}

TEST(LiteParser, StartsAfreshAfterAnException) {
  TQVLitePasParser parser;
  parser.SetOnRound([](auto) { throw std::runtime_error("from the event"); });
  EXPECT_THROW(parser.ParseFull("begin try (a) end "), std::runtime_error);
  EXPECT_TRUE(support::Announced(parser, "end end x").empty());
}

TEST(LiteParser, KeepsItsEndOfFileToItself) {
  TQVLitePasParser parser;
  EXPECT_NO_THROW(parser.ParseFull("begin"));
  EXPECT_NO_THROW(parser.ParseFull(""));
  EXPECT_NO_THROW(parser.ParseFull(nullptr));
}

TEST(LiteParser, RaisesEndOfFileWhereTheTextEnds) {
  TQVLitePasParser parser;
  parser.ParseFull("");
  EXPECT_THROW(parser.NextToken(), EEndOfFile);
}

TEST(LiteParser, StepsOverEveryKindOfToken) {
  TQVLitePasParser parser;
  parser.Lexer().SetOrigin("a {b}");
  parser.NextToken();
  EXPECT_EQ(parser.Lexer().TokenID(), ptSpace);
  parser.NextToken();
  EXPECT_EQ(parser.Lexer().TokenID(), ptBorComment);
}

TEST(LiteParser, MayBeUsedAgainInsideItsOwnEvent) {
  TQVLitePasParser parser;
  int rounds = 0;
  parser.SetOnRound([&](auto) { ++rounds; });
  parser.SetOnBlock([&](auto) {
    if (rounds == 0)
      parser.ParseFull("(a) (b)");
  });
  parser.ParseFull("begin begin end end (c) ");
  EXPECT_EQ(rounds, 2);
}

TEST(LiteParser, DoesNotImplementParseTo) {
  TQVLitePasParser parser;
  try {
    parser.ParseTo("begin end", 1, 2);
    FAIL() << "ParseTo returned";
  } catch (const EParserError& error) {
    EXPECT_STREQ(error.what(), "TQVLitePasParser.ParseTo(..) is unimplemented");
  }
}

TEST(LiteParser, HasOperationsThatDoNothing) {
  TQVLitePasParser parser;
  int events = 0;
  parser.SetOnBlock([&](auto) { ++events; });
  parser.SetOnRound([&](auto) { ++events; });
  parser.Lexer().SetOrigin("begin (a) end");
  const std::int32_t run = parser.Lexer().RunPos();
  parser.DoBraceComment();
  parser.DoLineComment();
  parser.DoParenComment();
  parser.DoString();
  parser.DoOther();
  parser.DoFor();
  parser.DoWith();
  EXPECT_EQ(parser.Lexer().RunPos(), run);
  EXPECT_EQ(events, 0);
}

TEST(LiteParser, DeclaresItsStatesInOrder) {
  EXPECT_EQ((std::vector<int>{stTop, stLineComment, stBraceComment, stParenComment, stString, stOther}),
            (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST(LiteParser, KnowsTheFormFileParserByName) {
  EXPECT_TRUE(std::is_empty_v<TQVLiteDFMParser>);
}

} // namespace
} // namespace quorvane
