// SPDX-License-Identifier: MIT
// Expressions, the references and literals in them, and where width specifiers are taken.
#include <gtest/gtest.h>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

class ExpressionWalks : public testing::TestWithParam<TWalk> {};

TEST_P(ExpressionWalks, GoAsTheGrammarSays) {
  ExpectWalk(GetParam());
}

const TWalk Expressions[] = {
    {"ExpressionMayBeSimple", &P::Expression, "a;", {"SimpleExpression", ";", {}}},
    {"ExpressionComparesForEquality",
     &P::Expression,
     "a = b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionComparesForGreater",
     &P::Expression,
     "a > b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionComparesForGreaterOrEqual",
     &P::Expression,
     "a >= b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionTestsMembership",
     &P::Expression,
     "a in [b];",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionTestsAClass",
     &P::Expression,
     "a is b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionComparesForLower",
     &P::Expression,
     "a < b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionComparesForLowerOrEqual",
     &P::Expression,
     "a <= b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionComparesForInequality",
     &P::Expression,
     "a <> b;",
     {"SimpleExpression RelativeOperator SimpleExpression", ";", {}}},
    {"ExpressionWalksOneComparisonOnly",
     &P::Expression,
     "a = b = c;",
     {"SimpleExpression RelativeOperator SimpleExpression", "=", {}}},
    {"ExpressionEndsAtAColonWithoutTheFormatMode", &P::Expression, "a: 5;", {"SimpleExpression", ":", {}}},
    {"SecondComparisonIsLeftToTheCallerWhoReportsIt",
     &P::IfStatement,
     "if a = b = c then;",
     {"Expression Statement", "=", {"Expected 'Then' found '=' (9, 0)"}}},
    {"ConstantExpressionIsAnExpression", &P::ConstantExpression, "a = b;", {"Expression", ";", {}}},
    {"ExpressionListIsSeparatedByCommas",
     &P::ExpressionList,
     "a, b = c, d)",
     {"Expression Expression Expression", ")", {}}},
    {"SimpleExpressionAdds",
     &P::SimpleExpression,
     "a + b - c or d xor e;",
     {"Term AdditiveOperator Term AdditiveOperator Term AdditiveOperator Term AdditiveOperator Term", ";", {}}},
    {"SimpleExpressionSkipsLeadingSigns", &P::SimpleExpression, "- + - a;", {"Term", ";", {}}},
    {"SimpleExpressionTakesARunOfSignsAsOneOperator",
     &P::SimpleExpression,
     "a - - b + -c;",
     {"Term AdditiveOperator Term AdditiveOperator Term", ";", {}}},
    {"AdditiveOperatorTakesOneOr", &P::AdditiveOperator, "or or", {"", "or", {}}},
    {"AdditiveOperatorTakesOneXor", &P::AdditiveOperator, "xor -", {"", "-", {}}},
    {"AdditiveOperatorTakesARunOfSigns", &P::AdditiveOperator, "+ - + a", {"", "a", {}}},
    {"AdditiveOperatorReportsAnotherToken",
     &P::AdditiveOperator,
     "* a",
     {"", "*", {"InvalidAdditiveOperator found * (0, 0)"}}},
    {"TermMultiplies",
     &P::Term,
     "a and b div c mod d shl e shr f / g * h;",
     {"Factor MultiplicativeOperator Factor MultiplicativeOperator Factor MultiplicativeOperator Factor "
      "MultiplicativeOperator Factor MultiplicativeOperator Factor MultiplicativeOperator Factor "
      "MultiplicativeOperator Factor",
      ";",
      {}}},
    {"MultiplicativeOperatorReportsAnotherToken",
     &P::MultiplicativeOperator,
     "+ a",
     {"", "+", {"InvalidMultiplicativeOperator found + (0, 0)"}}},
    {"MultiplicativeOperatorDoesNotTakeTheWordAs",
     &P::MultiplicativeOperator,
     "as a",
     {"", "as", {"InvalidMultiplicativeOperator found as (0, 0)"}}},
    {"RelativeOperatorTakesTheWordAs", &P::RelativeOperator, "as a", {"", "a", {}}},
    {"RelativeOperatorReportsAnotherToken",
     &P::RelativeOperator,
     "* a",
     {"", "*", {"InvalidRelativeOperator found * (0, 0)"}}},
    {"FactorIsNil", &P::Factor, "nil;", {"", ";", {}}},
    {"FactorIsADesignatorAtAName", &P::Factor, "a;", {"Designator", ";", {}}},
    {"FactorIsADesignatorAtAnAddressSign", &P::Factor, "@a;", {"Designator", ";", {}}},
    {"FactorIsADesignatorAtADoubleAddressSign", &P::Factor, "@@a;", {"Designator", ";", {}}},
    {"FactorIsADesignatorAtInherited", &P::Factor, "inherited a;", {"Designator", ";", {}}},
    {"FactorIsADesignatorAtAControlCharacter", &P::Factor, "^M;", {"Designator", ";", {}}},
    {"FactorIsADesignatorAtABracket", &P::Factor, "(a);", {"Designator", ";", {}}},
    {"FactorIsAnInteger", &P::Factor, "$FF;", {"Number", ";", {}}},
    {"FactorIsAFloat", &P::Factor, "1.5;", {"Number", ";", {}}},
    {"FactorIsACharacter", &P::Factor, "#13;", {"CharString", ";", {}}},
    {"FactorIsAString", &P::Factor, "'ab';", {"CharString", ";", {}}},
    {"FactorIsASet", &P::Factor, "[a];", {"SetConstructor", ";", {}}},
    {"FactorMayBeNegated", &P::Factor, "not a;", {"Factor", ";", {}}},
    {"FactorMayHaveASign", &P::Factor, "-a;", {"Factor", ";", {}}},
    {"FactorMayBeCastToAString", &P::Factor, "string(a);", {"Factor", ";", {}}},
    {"FactorIsNothingElsewhere", &P::Factor, "end", {"", "end", {}}},
    {"NumberMayBeAName", &P::Number, "a;", {"", ";", {}}},
    {"NumberReportsAnotherToken", &P::Number, "'a'", {"", "'a'", {"InvalidNumber found 'a' (0, 0)"}}},
    {"DesignatorIsAReference", &P::Designator, "a;", {"VariableReference", ";", {}}},
    {"SetConstructorMayBeEmpty", &P::SetConstructor, "[];", {"SetElement", ";", {}}},
    {"SetConstructorHasElements", &P::SetConstructor, "[a, 1..2];", {"SetElement SetElement", ";", {}}},
    {"SetElementMayBeARange", &P::SetElement, "a..b]", {"Expression Expression", "]", {}}},
    {"QualifiedIdentifierIsAName", &P::QualifiedIdentifier, "a;", {"", ";", {}}},
    {"QualifiedIdentifierMayBeDotted", &P::QualifiedIdentifier, "a.b.c;", {"", ";", {}}},
    {"QualifiedIdentifierMayHaveASubscript", &P::QualifiedIdentifier, "a[1];", {"ConstantExpression", ";", {}}},
    {"QualifiedIdentifierEndsAtTheSubscriptOfItsFirstName",
     &P::QualifiedIdentifier,
     "a[1].b;",
     {"ConstantExpression", ".", {}}},
    {"QualifiedIdentifierTestsForASubscriptBehindEachDottedName",
     &P::QualifiedIdentifier,
     "a.b[1].c[2];",
     {"ConstantExpression ConstantExpression", ";", {}}},
    {"QualifiedIdentifierListIsSeparatedByCommas",
     &P::QualifiedIdentifierList,
     "a, b.c;",
     {"QualifiedIdentifier QualifiedIdentifier", ";", {}}},
    {"ReferenceMayBeAnAddress", &P::VariableReference, "@ @ @@a;", {"Variable VariableTwo", ";", {}}},
    {"ReferenceMayBeCast",
     &P::VariableReference,
     "a.b as c as d.e;",
     {"Variable VariableTwo Variable VariableTwo Variable VariableTwo", ";", {}}},
    {"ReferenceGoesOnBehindABracketedCast",
     &P::VariableReference,
     "(a as b).c[1]^.d(e)(f);",
     {"Variable VariableTwo", ";", {}}},
    {"VariableReportsWhatIsNoName", &P::Variable, "5;", {"", "5", {"Expected 'Identifier' found '5' (0, 0)"}}},
    {"VariableTwoTakesEverySuffix", &P::VariableTwo, ".a^[b, c](d)();", {"ExpressionList ExpressionList", ";", {}}},
    {"VariableTwoTakesTheWordFileAlone", &P::VariableTwo, "(file)(b);", {"ExpressionList", ";", {}}},
    {"VariableTwoReportsAMissingName", &P::VariableTwo, ".5;", {"", "5", {"Expected 'Identifier' found '5' (1, 0)"}}},
    {"ArgumentsMayBePassedByName", &P::Designator, "a.Open(b, Name := c, Mode := d);", {"VariableReference", ";", {}}},
    {"CharStringJoinsLiteralsAndControlCharacters", &P::CharString, "'a'#13#10^M'b'^A;", {"", ";", {}}},
    {"CharStringMayHaveASubscript", &P::CharString, "'abc'[i];", {"ExpressionList", ";", {}}},
    {"CharStringMayBeAConstant", &P::CharString, "a.b;", {"QualifiedName", ";", {}}},
    {"CharStringReportsAnotherToken", &P::CharString, "5;", {"", "5", {"InvalidCharString found 5 (0, 0)"}}},
};

INSTANTIATE_TEST_SUITE_P(All, ExpressionWalks, testing::ValuesIn(Expressions), NameOfWalk);

// Statements that may hold width specifiers; the report is of the colon that is not taken.
struct TWidthCase {
  const char* Name;
  const char* Statement;
  bool AreTaken;
};

std::ostream& operator<<(std::ostream& out, const TWidthCase& row) {
  return out << row.Name;
}

class WidthSpecifiers : public testing::TestWithParam<TWidthCase> {};

TEST_P(WidthSpecifiers, AreTakenWhereTheyBelong) {
  TProbe probe;
  const TReports reports = probe.Walk(&P::Statement, GetParam().Statement).Reports;
  if (GetParam().AreTaken) {
    EXPECT_EQ(reports, TReports{});
    EXPECT_EQ(probe.TokenID(), ptSemiColon);
  } else {
    ASSERT_FALSE(reports.empty());
    EXPECT_TRUE(reports.front().find(" found ':' (") != std::string::npos) << reports.front();
  }
}

const TWidthCase WidthCases[] = {
    {"InWrite", "Write(a: 5);", true},
    {"InWriteOfAFile", "Write(f, a: 5: 2, b: c + 1);", true},
    {"InWriteLn", "WriteLn(a = b: 5);", true},
    {"InStr", "Str(a: 5: 2, s);", true},
    {"WhateverTheCaseOfTheName", "wRITElN(a: 5);", true},
    {"InWriteOfTheUnitSystem", "System.Write(a: 5);", true},
    {"InWriteLnOfTheUnitSystem", "SYSTEM.WriteLn(a: 5);", true},
    {"InStrOfTheUnitSystem", "System.Str(a: 5, s);", true},
    {"BehindANestedBracket", "Write((a): 5);", true},
    {"BehindANestedCall", "Write(f(a): 5, b[1]: 5, [c]: 5);", true},
    {"InANestedWrite", "f(Write(a: 5));", true},
    {"NotInAnotherCall", "f(a: 5);", false},
    {"NotInRead", "Read(a: 5);", false},
    {"NotInANestedBracket", "Write((a: 5));", false},
    {"NotInANestedCall", "Write(f(a: 5));", false},
    {"NotInANestedSubscript", "Write(b[a: 5]);", false},
    {"NotInANestedSet", "Write([a: 5]);", false},
    {"NotInAMethodOfThatName", "X.Write(a: 5);", false},
    {"NotInAMethodOfThatNameOfAFieldNamedSystem", "X.System.Write(a: 5);", false},
    {"NotInAnInheritedMethodOfThatName", "inherited Foo.Write(a: 5);", false},
    {"NotInTheResultsArguments", "Write(a)(b: 5);", false},
    {"NotBehindASubscript", "Write[1](a: 5);", false},
    {"NotBehindAPointer", "Write^(a: 5);", false},
    {"NotInAMemberOfWrite", "Write.f(a: 5);", false},
    {"NotInASubscriptOfWrite", "Write[a: 5];", false},
    {"NotInANameThatOnlyStartsAlike", "Writes(a: 5);", false},
    {"NotInACaseLabelBehindWrite", "if f(Write(a: 5), b: 5) then;", false},
};

std::string NameOfWidthCase(const testing::TestParamInfo<TWidthCase>& info) {
  return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(All, WidthSpecifiers, testing::ValuesIn(WidthCases), NameOfWidthCase);

TEST(AColonBehindWidthSpecifiers, EndsACaseLabel) {
  TProbe probe;
  EXPECT_EQ(probe.Walk(&P::CaseStatement, "case Write(a: 5) of 1: b; end;").Reports, TReports{});
}

} // namespace
} // namespace quorvane
