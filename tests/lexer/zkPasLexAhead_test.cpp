// SPDX-License-Identifier: MIT
// The lexer with the second scanner: looking ahead, what the two share, and saving and restoring the state.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/PascalTokens.h"

namespace quorvane {
namespace {

TEST(LookAhead, GivesTheNextTokensThatAreNoJunk) {
  TzkPasLex lexer;
  lexer.SetOrigin("a {x} Read // y\n := 'b'");
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadToken(), "Read");
  EXPECT_EQ(lexer.GetAheadTokenID(), ptIdentifier);
  EXPECT_EQ(lexer.GetAheadExID(), ptRead);
  EXPECT_EQ(lexer.GetAheadGenID(), ptRead);
  lexer.AheadNext();
  EXPECT_EQ(lexer.GetAheadTokenID(), ptAssign);
  lexer.AheadNext();
  EXPECT_EQ(lexer.GetAheadToken(), "'b'");
  lexer.AheadNext();
  EXPECT_EQ(lexer.GetAheadTokenID(), ptNull);
}

TEST(LookAhead, DoesNotMoveTheLexer) {
  TzkPasLex lexer;
  lexer.SetOrigin("a { b\n } c");
  const support::TToken before = support::Current(lexer);
  lexer.InitAhead();
  lexer.AheadNext();
  EXPECT_EQ(support::Current(lexer), before);
}

TEST(LookAhead, StartsAgainFromTheCurrentToken) {
  TzkPasLex lexer;
  lexer.SetOrigin("a b c d");
  lexer.InitAhead();
  lexer.AheadNext();
  lexer.NextNoJunk();
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadToken(), "c");
}

TEST(LookAhead, StartsInsideTheCommentThatTheLexerIsIn) {
  TzkPasLex lexer;
  lexer.SetOrigin("{ a\n b } c");
  EXPECT_EQ(lexer.GetCommentState(), csBor);
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadToken(), "c");
}

TEST(LookAhead, SharesTheLine) {
  TzkPasLex lexer;
  const std::string line = "a b";
  lexer.SetLine(line);
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadToken(), "b");
}

TEST(LookAhead, ReportsNoMessages) {
  TzkPasLex lexer;
  int messages = 0;
  lexer.SetOnMessage([&](TzkBasePasLex&, std::string_view, int, int) { ++messages; });
  lexer.SetOrigin("a | b");
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadTokenID(), ptUnknown);
  EXPECT_EQ(messages, 0);
}

TEST(LookAhead, AnnouncesDirectivesAsTheScannerThatMetThem) {
  using TSetter = void (TzkBasePasLex::*)(TDirectiveEvent);
  const std::vector<std::pair<const char*, TSetter>> rows = {
      {"a{$Q+}", &TzkBasePasLex::SetOnCompDirect},       {"a{$DEFINE x}", &TzkBasePasLex::SetOnDefineDirect},
      {"a{$ELSE}", &TzkBasePasLex::SetOnElseDirect},     {"a{$ENDIF}", &TzkBasePasLex::SetOnEndIfDirect},
      {"a{$IFDEF x}", &TzkBasePasLex::SetOnIfDefDirect}, {"a{$IFNDEF x}", &TzkBasePasLex::SetOnIfNDefDirect},
      {"a{$IFOPT x}", &TzkBasePasLex::SetOnIfOptDirect}, {"a{$I x}", &TzkBasePasLex::SetOnIncludeDirect},
      {"a{$R x}", &TzkBasePasLex::SetOnResourceDirect},  {"a{$UNDEF x}", &TzkBasePasLex::SetOnUnDefDirect}};
  for (const auto& [text, set] : rows) {
    TzkPasLex lexer;
    int own = 0;
    int ahead = 0;
    (lexer.*set)([&](TzkBasePasLex& sender) { &sender == &lexer ? ++own : ++ahead; });
    lexer.SetOrigin(text);
    lexer.InitAhead();
    EXPECT_EQ(own, 0) << text;
    EXPECT_EQ(ahead, 1) << text;
    lexer.Next();
    EXPECT_EQ(own, 1) << text;
  }
}

TEST(LookAhead, AnnouncesTheDirectiveThatATextStartsWithAsBothScanners) {
  TzkPasLex lexer;
  int own = 0;
  int ahead = 0;
  lexer.SetOnIfDefDirect([&](TzkBasePasLex& sender) { &sender == &lexer ? ++own : ++ahead; });
  lexer.SetOrigin("{$IFDEF X} a");
  EXPECT_EQ(own, 1);
  EXPECT_EQ(ahead, 1);
  const std::string line = "(*$IFDEF X*) a";
  lexer.SetLine(line);
  EXPECT_EQ(own, 2);
  EXPECT_EQ(ahead, 2);
}

// A lexer whose handler of {$IFDEF} looks ahead, and what it finds there.
class LookAheadInAHandler : public testing::Test {
protected:
  LookAheadInAHandler() {
    FLexer.SetOnIfDefDirect([this](TzkBasePasLex& sender) {
      if (&sender != &FLexer)
        return;
      FBefore.push_back(FLexer.GetAheadToken());
      FLexer.InitAhead();
      FFound.push_back(FLexer.GetAheadToken());
    });
  }

  TzkPasLex FLexer;
  std::vector<std::string> FBefore; // the token ahead when the handler is called
  std::vector<std::string> FFound;  // and after it has looked
};

TEST_F(LookAheadInAHandler, FindsTheTokenAfterTheFirstDirectiveOfAText) {
  FLexer.SetOrigin("{$IFDEF X} a");
  EXPECT_EQ(FBefore, std::vector<std::string>{""});
  EXPECT_EQ(FFound, std::vector<std::string>{"a"});
}

TEST_F(LookAheadInAHandler, ReadsTheNewTextWhenTheOldOneIsGone) {
  auto text = std::make_unique<std::string>(1000, 'x');
  FLexer.SetOrigin(text->c_str());
  FLexer.InitAhead();
  text = std::make_unique<std::string>("{$IFDEF X} a");
  FLexer.SetOrigin(text->c_str());
  text = std::make_unique<std::string>("{$IFDEF X} b");
  FLexer.SetLine(*text);
  EXPECT_EQ(FBefore, (std::vector<std::string>{"", ""}));
  EXPECT_EQ(FFound, (std::vector<std::string>{"a", "b"}));
}

TEST(Status, HoldsEverythingAboutTheToken) {
  TzkPasLex lexer;
  const char* text = "x\n  Read";
  lexer.SetOrigin(text);
  lexer.NextNoJunk();
  TzkPasLexStatus status;
  lexer.GetStatus(status);
  EXPECT_EQ(status.CommentState, csNo);
  EXPECT_EQ(status.ExID, ptRead);
  EXPECT_EQ(status.LineNumber, 1);
  EXPECT_EQ(status.LinePos, 2);
  EXPECT_EQ(status.Origin, text);
  EXPECT_EQ(status.RunPos, 8);
  EXPECT_EQ(status.TokenPos, 4);
  EXPECT_EQ(status.TokenID, ptIdentifier);
}

TEST(Status, PutsTheTokenBackWithoutScanningIt) {
  TzkPasLex lexer;
  int messages = 0;
  lexer.SetOrigin("a } b");
  lexer.NextNoJunk();
  TzkPasLexStatus status;
  lexer.GetStatus(status);
  const support::TToken at = support::Current(lexer);
  lexer.SetOnMessage([&](TzkBasePasLex&, std::string_view, int, int) { ++messages; });
  lexer.SetOrigin("other text");
  lexer.SetStatus(status);
  EXPECT_EQ(support::Current(lexer), at);
  EXPECT_EQ(messages, 0);
  lexer.NextNoJunk();
  EXPECT_EQ(lexer.GetToken(), "b");
}

TEST(Status, StartsTheSecondScannerOverOnTheText) {
  TzkPasLex lexer;
  lexer.SetOrigin("first second third");
  lexer.NextNoJunk();
  TzkPasLexStatus status;
  lexer.GetStatus(status);
  lexer.InitAhead();
  EXPECT_EQ(lexer.GetAheadToken(), "third");
  lexer.SetStatus(status);
  EXPECT_EQ(lexer.GetAheadToken(), "first");
}

TEST(Status, OfALexerWithoutTextCanBePutBack) {
  TzkPasLex lexer;
  TzkPasLexStatus status;
  lexer.GetStatus(status);
  lexer.SetOrigin("a");
  lexer.SetStatus(status);
  EXPECT_EQ(lexer.Origin(), nullptr);
  lexer.Next();
  EXPECT_EQ(lexer.TokenID(), ptNull);
}

} // namespace
} // namespace quorvane
