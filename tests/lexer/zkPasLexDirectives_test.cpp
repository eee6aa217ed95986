// SPDX-License-Identifier: MIT
// Compiler directives: their kinds, texts, parameters and events.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include "support/PascalTokens.h"

namespace quorvane {
namespace {

using support::Compact;

struct TRow {
  const char* Text;
  TptTokenKind Kind;
  const char* Directive;
  const char* Param;
};

class DirectiveTable : public testing::TestWithParam<TRow> {};

TEST_P(DirectiveTable, GivesKindTextAndParameter) {
  TzkBasePasLex lexer;
  lexer.SetOrigin(GetParam().Text);
  EXPECT_EQ(ptTokenName(lexer.TokenID()), ptTokenName(GetParam().Kind)) << GetParam().Text;
  EXPECT_EQ(lexer.GetCompilerDirective(), GetParam().Directive) << GetParam().Text;
  EXPECT_EQ(lexer.GetDirectiveParam(), GetParam().Param) << GetParam().Text;
  EXPECT_TRUE(lexer.GetIsCompilerDirective());
  EXPECT_EQ(lexer.GetCommentState(), csNo);
}

INSTANTIATE_TEST_SUITE_P(
    Names, DirectiveTable,
    testing::Values(TRow{"{$ifdef X}", ptIfDefDirect, "", "X"}, TRow{"{$IFDEF Debug}", ptIfDefDirect, "", "DEBUG"},
                    TRow{"{$IfNDef x_1}", ptIfNDefDirect, "", "X_1"}, TRow{"{$IFOPT R+}", ptIfOptDirect, "", "R+"},
                    TRow{"{$ELSE}", ptElseDirect, "", ""}, TRow{"{$ENDIF}", ptEndIfDirect, "endif", ""},
                    TRow{"{$endif Debug}", ptEndIfDirect, "endif", "DEBUG"},
                    TRow{"{$DEFINE X}", ptDefineDirect, "", "X"}, TRow{"{$UNDEF X}", ptUndefDirect, "", "X"},
                    TRow{"{$INCLUDE Inc.inc}", ptIncludeDirect, "", "INC.INC"},
                    TRow{"{$RESOURCE a.res}", ptResourceDirect, "", "A.RES"},
                    TRow{"{$APPTYPE CONSOLE}", ptCompDirect, "$APPTYPE CONSOLE", "CONSOLE"},
                    TRow{"{$warnings off}", ptCompDirect, "$WARNINGS OFF", "OFF"},
                    TRow{"{$IFDEFX a}", ptCompDirect, "$IFDEFX A", "A"}, TRow{"{$}", ptCompDirect, "$", ""},
                    TRow{"{$0I}", ptCompDirect, "$0I", ""}));

INSTANTIATE_TEST_SUITE_P(
    Switches, DirectiveTable,
    testing::Values(TRow{"{$R+}", ptCompDirect, "$R+", ""}, TRow{"{$r-}", ptCompDirect, "$R-", ""},
                    TRow{"{$R Res.res}", ptResourceDirect, "", "RES.RES"},
                    TRow{"{$R *.dfm}", ptResourceDirect, "", "*.DFM"}, TRow{"{$Q-}", ptCompDirect, "$Q-", ""},
                    TRow{"{$Q+,R-}", ptCompDirect, "$Q+,R-", ""}, TRow{"{$Q+,R- X}", ptCompDirect, "$Q+,R- X", "X"},
                    TRow{"{$Q+ ,R-  X}", ptCompDirect, "$Q+ ,R-  X", "X"},
                    TRow{"{$R-   X}", ptCompDirect, "$R-   X", " X"}, TRow{"{$A8}", ptCompDirect, "$A8", ""}));

INSTANTIATE_TEST_SUITE_P(TheLetterIIsAnIncludeEvenAsASwitch, DirectiveTable,
                         testing::Values(TRow{"{$I+}", ptIncludeDirect, "", ""}, TRow{"{$I-}", ptIncludeDirect, "", ""},
                                         TRow{"{$I Inc.inc}", ptIncludeDirect, "", "INC.INC"},
                                         TRow{"{$I}", ptIncludeDirect, "", ""}));

INSTANTIATE_TEST_SUITE_P(
    InParenthesisStars, DirectiveTable,
    testing::Values(TRow{"(*$I Inc.inc*)", ptIncludeDirect, "", "INC.INC"}, TRow{"(*$R+*)", ptCompDirect, "$R+", ""},
                    TRow{"(*$ENDIF*)", ptEndIfDirect, "endif", ""}, TRow{"(*$IFDEF a*)", ptIfDefDirect, "", "A"},
                    TRow{"(*$*)", ptCompDirect, "$", ""}, TRow{"(*$DEFINE }*)", ptDefineDirect, "", "}"}));

INSTANTIATE_TEST_SUITE_P(OnlyLettersAToZAreUpperCased, DirectiveTable,
                         testing::Values(TRow{"{$DEFINE \xE4z}", ptDefineDirect, "", "\xE4Z"}));

INSTANTIATE_TEST_SUITE_P(OnlyOneBlankIsSkipped, DirectiveTable,
                         testing::Values(TRow{"{$IFDEF  a}", ptIfDefDirect, "", " A"},
                                         TRow{"{$IFDEF\ta}", ptIfDefDirect, "", "\tA"},
                                         TRow{"{$IFDEF a }", ptIfDefDirect, "", "A "}));

INSTANTIATE_TEST_SUITE_P(NotClosedOnTheLineLosesItsLastCharacter, DirectiveTable,
                         testing::Values(TRow{"{$IFDEF Debug", ptIfDefDirect, "", "DEBU"},
                                         TRow{"{$IFDEF Debug\nx}", ptIfDefDirect, "", "DEBU"},
                                         TRow{"(*$IFDEF Debug\nx*)", ptIfDefDirect, "", "DEB"},
                                         TRow{"{$Q", ptCompDirect, "$", ""}, TRow{"{$", ptCompDirect, "", ""},
                                         TRow{"(*$", ptCompDirect, "", ""}, TRow{"(*$Q+", ptCompDirect, "$", ""}));

TEST(Directives, ADollarFurtherInMakesAComment) {
  EXPECT_EQ(Compact("{ $R+}"), "BorComment[{ $R+}]");
  EXPECT_EQ(Compact("(* $R+*)"), "AnsiComment[(* $R+*)]");
}

TEST(Directives, NotClosedOnTheLineLeaveTheNextLineAsCode) {
  EXPECT_EQ(Compact("{$DEFINE a\nb}"), "DefineDirect[{$DEFINE a] CRLF[\\n] Identifier[b] Error[}]");
}

TEST(Directives, AreTakenAsTokensOfTheirWholeText) {
  EXPECT_EQ(Compact("a{$IFDEF b}c"), "Identifier[a] IfDefDirect[{$IFDEF b}] Identifier[c]");
  EXPECT_EQ(Compact("a(*$IFDEF b*)c"), "Identifier[a] IfDefDirect[(*$IFDEF b*)] Identifier[c]");
}

// A leading digit adds nothing to the hash or to the letters of a name, so only the length tells these from the names
// that are known.
TEST(Directives, WithADigitBeforeTheirNameAreUnknown) {
  for (const char* text : {"{$0IFDEF a}", "{$00I a}", "(*$0ENDIF*)", "{$9R a.res}"}) {
    TzkBasePasLex lexer;
    lexer.SetOrigin(text);
    EXPECT_EQ(lexer.TokenID(), ptCompDirect) << text;
  }
}

TEST(Directives, TextIsEmptyForOtherTokens) {
  TzkBasePasLex lexer;
  for (const char* text : {"{ $R+}", "a", "", "(*a*)", "{$I a}"}) {
    lexer.SetOrigin(text);
    EXPECT_EQ(lexer.GetCompilerDirective(), "") << text;
  }
}

TEST(Directives, AskingOtherTokensForAParameterStaysInsideTheText) {
  TzkBasePasLex lexer;
  for (const char* text : {"", "a", "(", "(*", "{", "(.", "ab"}) {
    // A copy of its own, so that a read past the end is seen by the sanitizers.
    const std::string copy(text);
    lexer.SetOrigin(copy.c_str());
    EXPECT_EQ(lexer.GetDirectiveParam(), "") << text;
  }
}

TEST(Directives, AskingForTheParameterMovesNothing) {
  TzkBasePasLex lexer;
  lexer.SetOrigin("{$IFDEF a} b");
  const support::TToken before = support::Current(lexer);
  lexer.GetDirectiveParam();
  EXPECT_EQ(support::Current(lexer), before);
}

using TSetter = void (TzkBasePasLex::*)(TDirectiveEvent);
using TGetter = const TDirectiveEvent& (TzkBasePasLex::*)() const;

struct TEventRow {
  const char* Text;
  TSetter Set;
  TGetter Get;
};

const TEventRow EventRows[] = {
    {"{$Q+}", &TzkBasePasLex::SetOnCompDirect, &TzkBasePasLex::OnCompDirect},
    {"{$DEFINE a}", &TzkBasePasLex::SetOnDefineDirect, &TzkBasePasLex::OnDefineDirect},
    {"{$ELSE}", &TzkBasePasLex::SetOnElseDirect, &TzkBasePasLex::OnElseDirect},
    {"{$ENDIF}", &TzkBasePasLex::SetOnEndIfDirect, &TzkBasePasLex::OnEndIfDirect},
    {"{$IFDEF a}", &TzkBasePasLex::SetOnIfDefDirect, &TzkBasePasLex::OnIfDefDirect},
    {"{$IFNDEF a}", &TzkBasePasLex::SetOnIfNDefDirect, &TzkBasePasLex::OnIfNDefDirect},
    {"{$IFOPT a}", &TzkBasePasLex::SetOnIfOptDirect, &TzkBasePasLex::OnIfOptDirect},
    {"{$I a}", &TzkBasePasLex::SetOnIncludeDirect, &TzkBasePasLex::OnIncludeDirect},
    {"{$R a}", &TzkBasePasLex::SetOnResourceDirect, &TzkBasePasLex::OnResourceDirect},
    {"{$UNDEF a}", &TzkBasePasLex::SetOnUnDefDirect, &TzkBasePasLex::OnUnDefDirect},
};

TEST(DirectiveEvents, AreCalledForTheirOwnKindOnly) {
  for (const TEventRow& set : EventRows)
    for (const TEventRow& scanned : EventRows) {
      TzkBasePasLex lexer;
      int calls = 0;
      (lexer.*set.Set)([&](TzkBasePasLex& sender) {
        EXPECT_EQ(&sender, &lexer);
        ++calls;
      });
      EXPECT_TRUE((lexer.*set.Get)());
      lexer.SetOrigin(scanned.Text);
      EXPECT_EQ(calls, &set == &scanned ? 1 : 0) << set.Text << " on " << scanned.Text;
    }
}

TEST(DirectiveEvents, AreCalledForParenthesisStarsToo) {
  TzkBasePasLex lexer;
  int calls = 0;
  lexer.SetOnElseDirect([&](TzkBasePasLex&) { ++calls; });
  support::Scan(lexer, "(*$ELSE*) {$ELSE}");
  EXPECT_EQ(calls, 2);
}

TEST(DirectiveEvents, SeeTheFinishedToken) {
  TzkBasePasLex lexer;
  std::string seen;
  lexer.SetOnIfDefDirect([&](TzkBasePasLex& sender) { seen = sender.GetToken() + "|" + sender.GetDirectiveParam(); });
  lexer.SetOrigin("{$IFDEF a} b");
  EXPECT_EQ(seen, "{$IFDEF a}|A");
}

TEST(DirectiveEvents, MayCallNextAndSoChooseTheTokenThatIsReturned) {
  TzkBasePasLex lexer;
  lexer.SetOnIfDefDirect([](TzkBasePasLex& sender) { sender.NextID(ptEndIfDirect); });
  lexer.SetOrigin("{$IFDEF a} b {$ENDIF} c");
  EXPECT_EQ(lexer.TokenID(), ptEndIfDirect);
  lexer.NextNoJunk();
  EXPECT_EQ(lexer.GetToken(), "c");
}

TEST(DirectiveEvents, AreNotCalledForComments) {
  TzkBasePasLex lexer;
  int calls = 0;
  for (const TEventRow& row : EventRows)
    (lexer.*row.Set)([&](TzkBasePasLex&) { ++calls; });
  support::Scan(lexer, "{ $R+ } (* *) // {$R+}\n'{$R+}'");
  EXPECT_EQ(calls, 0);
}

} // namespace
} // namespace quorvane
