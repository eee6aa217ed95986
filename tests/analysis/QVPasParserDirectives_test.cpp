// SPDX-License-Identifier: MIT
// Conditional compilation: the first branch is taken, whatever is defined.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "Outlines.h"

namespace quorvane {
namespace {

using support::Listed;
using support::Outlined;
using support::TOutlined;

struct TRow {
  const char* Claim;
  const char* Types; // declarations of types, "A" to "D" for `A = Byte;` and so on
  const char* Taken;
};

std::ostream& operator<<(std::ostream& out, const TRow& row) {
  return out << row.Types;
}

std::string Claim(const testing::TestParamInfo<TRow>& info) {
  return info.param.Claim;
}

// Each letter of A to D that stands alone becomes the declaration of a type of that name.
std::string Declarations(const std::string& types) {
  std::string text;
  for (std::size_t index = 0; index < types.size(); ++index) {
    const bool isAlone =
        (index == 0 || types[index - 1] == ' ') && (index + 1 == types.size() || types[index + 1] == ' ');
    text += types[index];
    if (isAlone && types[index] >= 'A' && types[index] <= 'D')
      text += " = Byte;";
  }
  return text;
}

class OutlineBranches : public testing::TestWithParam<TRow> {};

TEST_P(OutlineBranches, AreTaken) {
  const TOutlined outlined =
      Outlined("unit U; interface type " + Declarations(GetParam().Types) + "\nimplementation end.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(outlined.Fatal, "");
  std::string taken;
  for (const auto& [name, line] : outlined.Info->GetClasses())
    taken += name;
  EXPECT_EQ(taken, GetParam().Taken);
}

INSTANTIATE_TEST_SUITE_P(
    TheFirst, OutlineBranches,
    testing::Values(TRow{"OfIfDef", "{$ifdef X} A {$else} B {$endif} D", "AD"},
                    TRow{"OfIfNDef", "{$ifndef X} A {$else} B {$endif} D", "AD"},
                    TRow{"OfIfOpt", "{$ifopt R+} A {$else} B {$endif} D", "AD"},
                    TRow{"OfADefinedSymbol", "{$define X} {$ifdef X} A {$else} B {$endif} D", "AD"},
                    TRow{"OfASymbolThatIsNotDefined", "{$undef X} {$ifdef X} A {$else} B {$endif} D", "AD"},
                    TRow{"WithoutASecond", "{$ifdef X} A {$endif} D", "AD"},
                    TRow{"InUpperCase", "{$IFDEF X} A {$ELSE} B {$ENDIF} D", "AD"},
                    TRow{"InRoundBrackets", "(*$ifdef X*) A (*$else*) B (*$endif*) D", "AD"},
                    TRow{"OfEachInARow", "{$ifdef X} A {$else} B {$endif} {$ifdef Y} C {$else} B {$endif} D", "ACD"},
                    TRow{"OverSeveralLines", "{$ifdef X}\n A \n{$else}\n B \n{$endif}\n D", "AD"}),
    Claim);

// There is no count of what is nested.
INSTANTIATE_TEST_SUITE_P(
    OfNestedConditionals, OutlineBranches,
    testing::Values(TRow{"InTheFirst", "{$ifdef X} {$ifdef Y} A {$else} B {$endif} C {$endif} D", "ACD"},
                    TRow{"InTheFirstOfTwo", "{$ifdef X} {$ifdef Y} A {$endif} C {$else} B {$endif} D", "ACD"},
                    TRow{"TheFirstEndIfEndsTheSkip", "{$ifdef X} A {$else} {$ifdef Y} B {$endif} C {$endif} D", "ACD"},
                    TRow{"ANestedElseEndsTheSkip", "{$ifdef X} A {$else} {$ifdef Y} B {$else} C {$endif} D {$endif}",
                         "ACD"},
                    TRow{"TheTokenRightBehindANestedElseIsLost",
                         "{$ifdef X} A {$else} {$ifdef Y} B {$else}] C {$endif} D {$endif}", "ACD"},
                    TRow{"AnElseBehindThatSkipsAgain",
                         "{$ifdef X} A {$else} {$ifdef Y} B {$else} C {$endif} {$else} B {$endif} D", "ACD"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(
    OfOddOnes, OutlineBranches,
    testing::Values(TRow{"AnElseAloneSkips", "A {$else} B {$endif} D", "AD"},
                    TRow{"AnEndIfAloneIsPassedOver", "A {$endif} B {$endif}{$endif} D", "ABD"},
                    TRow{"EmptyBranches", "A {$ifdef X}{$else}{$endif} D", "AD"},
                    TRow{"AnEmptySecond", "{$ifdef X} A {$else}{$endif} D", "AD"},
                    TRow{"AnEmptyFirst", "{$ifdef X}{$else} A {$endif} D", "D"},
                    TRow{"OtherDirectivesWithinASkip",
                         "A {$else} {$define Y}{$undef Y}{$I a.inc}{$R *.res}{$A+} B {$endif} D", "AD"},
                    TRow{"BranchesThatCutADeclaration", "A {$ifdef X} C {$else} B = {$endif} D", "ACD"},
                    TRow{"SkippedTextThatIsNoPascal", "A {$else} it's\n ]] ? end. ) {$endif} D", "AD"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(OfDirectivesThatAreNone, OutlineBranches,
                         testing::Values(TRow{"InStrings", "A E = '{$else}'..'x'; B {$endif} D", "ABDE"},
                                         TRow{"InComments", "A { {$else } (* {$else} *) // {$else}\n B {$endif} D",
                                              "ABD"}),
                         Claim);

TEST(OutlineDirectives, AreNotReported) {
  const TOutlined outlined =
      Outlined("unit U; interface {$define X}{$undef X}{$ifdef X}{$endif}{$ifndef X}{$endif}{$ifopt R+}{$endif}\n"
               "{$I file.inc}{$INCLUDE file.inc}{$R *.res}{$A+}{$MODE DELPHI}\nimplementation end.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(outlined.Fatal, "");
}

TEST(OutlineDirectives, MayOpenTheText) {
  for (const char* directives :
       {"{$A+}", "{$ifdef X}", "{$ifdef X}{$else}{$endif}", "{$else} x {$endif}", "{$endif}"}) {
    const TOutlined outlined = Outlined(std::string(directives) + "unit U;\ninterface implementation end.");
    EXPECT_EQ(outlined.Reports, std::vector<std::string>{}) << directives;
    EXPECT_EQ(outlined.Info->GetInterfaceLine(), 1) << directives;
  }
}

TEST(OutlineDirectives, SkipToTheEndOfTheTextWhereNoEndIfComes) {
  const TOutlined outlined = Outlined("unit U; interface type A = Byte; {$else} implementation end.");
  EXPECT_EQ(outlined.Fatal, "Expected 'Implementation' found 'end of file'");
  EXPECT_EQ(Listed(outlined.Info->GetClasses()), "A@0");
}

// Writes down what is current before and after a directive that the look-ahead meets.
class TWatchingParser : public TQVPasParser {
public:
  struct TMeeting {
    std::int32_t Before;
    std::int32_t After;
    bool IsDirective; // what the parser's own lexer stands on
  };
  std::vector<TMeeting> Meetings;
  int OfItsOwn = 0;

protected:
  void HandlePtElseDirect(TzkBasePasLex& lex) override {
    if (&lex == &Lexer()) {
      ++OfItsOwn;
      TQVPasParser::HandlePtElseDirect(lex);
      return;
    }
    const std::int32_t before = Lexer().TokenPos();
    TQVPasParser::HandlePtElseDirect(lex);
    Meetings.push_back({before, Lexer().TokenPos(), Lexer().GetIsCompilerDirective()});
  }
};

TEST(OutlineLookAhead, LeavesTheCurrentTokenWhereItIs) {
  TWatchingParser parser;
  const auto info = std::make_shared<TQVPasInfo>();
  parser.SetPasInfo(info);
  std::string text = "unit U; interface implementation procedure Foo {$else} ] {$endif}.Bar; begin end; end.";
  parser.Run("", &text);
  ASSERT_EQ(parser.Meetings.size(), 1U);
  const auto foo = static_cast<std::int32_t>(text.find("Foo"));
  EXPECT_EQ(parser.Meetings[0].Before, foo);
  EXPECT_EQ(parser.Meetings[0].After, foo);
  EXPECT_FALSE(parser.Meetings[0].IsDirective);
  EXPECT_EQ(parser.OfItsOwn, 1);
  EXPECT_EQ(Listed(info->GetMethods()), "Foo.Bar@0");
}

TEST(OutlineLookAhead, TakesTheFirstBranchToo) {
  const TOutlined outlined = Outlined("unit U; interface implementation\n"
                                      "procedure Foo{$ifdef X}.Bar{$else};{$endif}; begin end;\n"
                                      "procedure Foo{$ifdef X};{$else}.Bar;{$endif} begin end; end.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "Foo@2 Foo.Bar@1");
}

TEST(OutlineLookAhead, LeavesTheBranchTakenAfterASkip) {
  const TOutlined outlined = Outlined("unit U; interface implementation procedure Foo{$else} ] {$endif}; begin end;\n"
                                      "type A = Byte; {$ifdef X} B = Byte; {$else} C = Byte; {$endif} end.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(Listed(outlined.Info->GetClasses()), "A@1 B@1");
}

// The handler of an end-if moves on only while the branch is taken.
TEST(OutlineLookAhead, LeavesTheBranchTakenAfterASkipToTheEndOfTheText) {
  class TCuttingParser : public TQVPasParser {
  public:
    bool IsTaken = false;

  protected:
    void FunctionProcedureName() override {
      TQVPasParser::HandlePtEndIfDirect(Lexer());
      IsTaken = TokenID() != ptIdentifier;
      TQVPasParser::FunctionProcedureName();
    }
  } parser;
  std::string text = "unit U; interface implementation procedure Foo {$else} ; begin end; end.";
  EXPECT_THROW(parser.Run("", &text), ESyntaxError);
  EXPECT_TRUE(parser.IsTaken);
}

TEST(OutlineLookAhead, MeetsSkippedDirectivesInsideOfASkip) {
  const TOutlined outlined = Outlined(
      "unit U; interface implementation procedure Foo{$else} {$ifdef Y} ] {$else} .Bar{$endif}; begin end; end.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "Foo.Bar@0");
}

} // namespace
} // namespace quorvane
