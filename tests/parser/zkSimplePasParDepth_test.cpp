// SPDX-License-Identifier: MIT
// A million of the same inside of each other: what nests ends at the limit, what stands in a row is walked to its end.
// The parser that fills an outline is tried along with the plain one, since it does more on the way.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "analysis/QVPasInfo.h"
#include "analysis/QVPasParser.h"
#include "parser/zkSimplePasPar.h"

namespace quorvane {
namespace {

constexpr int Count = 1'000'000;

std::string Repeated(std::string_view piece, int count = Count) {
  std::string text;
  text.reserve(piece.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    text += piece;
  return text;
}

// The message that ended the parse, or "end" where it came to the end of the text.
std::string OutcomeOf(TzkSimplePasPar& parser, std::string text) {
  try {
    parser.Run("", &text);
  } catch (const ESyntaxError& error) {
    return error.what();
  }
  return "end";
}

std::string PlainOutcome(std::string text) {
  TzkSimplePasPar parser;
  return OutcomeOf(parser, std::move(text));
}

std::string OutlineOutcome(std::string text) {
  TQVPasParser parser;
  parser.SetPasInfo(std::make_shared<TQVPasInfo>());
  return OutcomeOf(parser, std::move(text));
}

constexpr const char* TooDeep = "Nested more than 4000 levels deep";

// A text is Before, a million openers, Middle, and a million closers.
struct TNest {
  const char* Name;
  const char* Before;
  const char* Opener;
  const char* Middle;
  const char* Closer;
};

std::ostream& operator<<(std::ostream& out, const TNest& nest) {
  return out << nest.Name;
}

class DeepNesting : public testing::TestWithParam<TNest> {
protected:
  static std::string Opened() { return GetParam().Before + Repeated(GetParam().Opener) + GetParam().Middle; }
  static std::string Closed() { return Opened() + Repeated(GetParam().Closer) + "; end."; }
};

TEST_P(DeepNesting, EndsAtTheLimit) {
  EXPECT_EQ(PlainOutcome(Closed()), TooDeep);
}

TEST_P(DeepNesting, ThatIsNeverClosedEndsAtTheLimit) {
  EXPECT_EQ(PlainOutcome(Opened()), TooDeep);
}

TEST_P(DeepNesting, EndsAtTheLimitInAnOutline) {
  EXPECT_EQ(OutlineOutcome(Closed()), TooDeep);
}

TEST_P(DeepNesting, ThatIsNeverClosedEndsAtTheLimitInAnOutline) {
  EXPECT_EQ(OutlineOutcome(Opened()), TooDeep);
}

const TNest Nests[] = {
    {"OfParentheses", "begin a := ", "(", "b", ")"},
    {"OfParenthesesInAStatement", "begin ", "(", "b", ")"},
    {"OfCalls", "begin a := ", "f(", "b", ")"},
    {"OfSubscripts", "begin a := ", "f[", "b", "]"},
    {"OfBlocks", "", "begin ", "", " end"},
    {"OfNegations", "begin a := ", "not ", "b", ""},
    {"OfMinusesBehindNegations", "begin a := ", "not -", "b", ""},
    {"OfCasts", "begin a := ", "string ", "b", ""},
    {"OfCastsOfStatements", "begin ", "string ", "b", ""},
    {"OfInheritedStatements", "begin ", "inherited ", "b", ""},
    {"OfSets", "begin a := ", "[", "b", "]"},
    {"OfRangesInSets", "begin a := ", "[1..[", "b", "]]"},
    {"OfRecords", "type a = ", "record b: ", "c", " end"},
    {"OfVariants", "type a = record ", "case b of 1: (", "c: d", ")"},
    {"OfArrayTypes", "type a = ", "array of ", "b", ""},
    {"OfArrayTypesWithIndexes", "type a = ", "array[1..2] of ", "b", ""},
    {"OfFileTypes", "type a = ", "file of ", "b", ""},
    {"OfObjects", "type a = ", "packed object b: ", "c", " end"},
    {"OfClasses", "type a = ", "packed class b: ", "c", " end"},
    {"OfArrayConstants", "const a: b = ", "(", "1", ")"},
    {"OfRecordConstants", "const a: b = ", "(c: ", "1", ")"},
    {"OfBracketsInConstants", "const a = ", "(1 + ", "1", ")"},
    {"OfIfs", "begin ", "if a then ", "b", ""},
    {"OfElseIfs", "begin ", "if a then b else ", "c", ""},
    {"OfCases", "begin ", "case a of 1: ", "b", " end"},
    {"OfElsesOfCases", "begin ", "case a of 1: b else ", "b", " end"},
    {"OfRepeats", "begin ", "repeat ", "a", " until b"},
    {"OfTries", "begin ", "try ", "a", " finally b end"},
    {"OfHandlers", "begin ", "try a except on b do ", "c", " end"},
    {"OfFinallies", "begin ", "try a finally ", "b", " end"},
    {"OfLoops", "begin ", "while a do for i := 1 to 2 do with b do ", "c", ""},
    {"OfLabels", "begin ", "a: ", "b", ""},
    {"OfRoutines", "", "procedure a; ", "begin end", "; begin end"},
    {"OfFunctions", "", "function a: b; ", "begin end", "; begin end"},
};

std::string NameOfNest(const testing::TestParamInfo<TNest>& info) {
  return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(All, DeepNesting, testing::ValuesIn(Nests), NameOfNest);

// A text is Before, a million pieces, and After.
struct TRow {
  const char* Name;
  const char* Before;
  const char* Piece;
  const char* After;
};

std::ostream& operator<<(std::ostream& out, const TRow& row) {
  return out << row.Name;
}

class LongRow : public testing::TestWithParam<TRow> {
protected:
  static std::string Text() { return GetParam().Before + Repeated(GetParam().Piece) + GetParam().After; }
};

TEST_P(LongRow, IsWalkedToTheEnd) {
  EXPECT_EQ(PlainOutcome(Text()), "end");
}

TEST_P(LongRow, IsWalkedToTheEndForAnOutline) {
  EXPECT_EQ(OutlineOutcome(Text()), "end");
}

const TRow Rows[] = {
    {"OfDirectivesBesideEachOther", "begin ", "{$Q+}", " end."},
    {"OfDirectivesAtTheStart", "", "{$Q+}", "begin end."},
    {"OfDirectivesInRoundBrackets", "begin ", "(*$Q+*)", " end."},
    {"OfDirectivesOnLines", "begin ", "{$Q+}\n", " end."},
    {"OfConditions", "begin ", "{$IFDEF a}", " end."},
    {"OfEndsOfConditions", "begin ", "{$ENDIF}", " end."},
    {"OfWholeConditions", "begin ", "{$IFDEF a}b;{$ELSE}c;{$ENDIF}", " end."},
    {"OfElsesAndEndsOfConditions", "begin ", "{$ELSE}{$ENDIF}", " end."},
    {"OfElsesAndEndsOfConditionsInTheLookAhead", "begin a", "{$ELSE}{$ENDIF}", ": end."},
    {"OfDirectivesInTheLookAhead", "begin a ", "{$Q+}", " := b end."},
    {"OfCommentsInBraces", "begin ", "{}", " end."},
    {"OfCommentsInRoundBrackets", "begin ", "(**)", " end."},
    {"OfCommentsOnLines", "begin ", "// a\n", " end."},
    {"OfCommentsOverLines", "begin ", "{\n}", " end."},
    {"OfCommentsOfAllKinds", "begin ", "{}(**)//\n \r\n\t", " end."},
    {"OfCommentsInTheLookAhead", "begin a", "{}", ": b end."},
    {"OfBlankLines", "begin ", "\n", " end."},
    {"OfBlankLinesWithCarriageReturns", "begin ", "\r\n", " end."},
    {"OfBlankLinesAtTheStart", "", "\n", "begin end."},
    {"OfBlanks", "begin ", " ", " end."},
    {"OfLinesOfBlanks", "begin ", " \n", " end."},
    {"OfMinuses", "begin a := ", "-", "b end."},
    {"OfAddressSigns", "begin a := ", "@", "b end."},
    {"OfDoubleAddressSigns", "begin a := ", "@@", "b end."},
    {"OfPointerSigns", "begin a", "^", " := b end."},
    {"OfMembers", "begin a", ".b", " end."},
    {"OfCastsByTheWordAs", "begin a := b", " as c", " end."},
    {"OfSubscripts", "begin a", "[b]", " end."},
    {"OfCalls", "begin a", "(b)", " end."},
    {"OfSums", "begin a := b", " + c", " end."},
    {"OfProducts", "begin a := b", " * c", " end."},
    {"OfArguments", "begin a(b", ", c", ") end."},
    {"OfWidths", "begin Write(b", ": c", ") end."},
    {"OfStrings", "begin a := ''", "#13'b'", " end."},
    {"OfSemicolons", "begin ", ";", " end."},
    {"OfStatements", "begin ", "a := b;", " end."},
    {"OfRoutines", "", "procedure a; begin end;", "begin end."},
    {"OfForwardRoutines", "", "procedure a; forward;", "begin end."},
    {"OfVariables", "var ", "a: b;", "begin end."},
    {"OfSections", "", "var ", "begin end."},
    {"OfTypes", "type ", "a = class;", "begin end."},
    {"OfConstants", "const a: b = (1", ", 2", "); begin end."},
    {"OfFields", "type a = class ", "b: c;", "end; begin end."},
    {"OfVisibilities", "type a = class ", "private ", "end; begin end."},
    {"OfConventions", "type a = procedure", "; stdcall", "; begin end."},
    {"OfHints", "type a = b", " platform", "; begin end."},
    {"OfWrongTokens", "begin end ", "]", ";."},
    {"OfWrongStatements", "begin ", "1;", " end."},
    {"OfIllegalCharacters", "begin ", "\x01", " end."},
};

std::string NameOfRow(const testing::TestParamInfo<TRow>& info) {
  return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(All, LongRow, testing::ValuesIn(Rows), NameOfRow);

TEST(LongRowOfElses, IsWalkedToTheEnd) {
  EXPECT_EQ(PlainOutcome("begin " + Repeated("{$ELSE}") + " end."), "end");
}

TEST(LongRowOfElses, IsWalkedToTheEndInAnOutline) {
  // Every other one begins a skip, and each skip passes one more token at its end.
  EXPECT_EQ(OutlineOutcome("begin " + Repeated("{$ELSE}") + Repeated(";") + " end."), "end");
  EXPECT_EQ(OutlineOutcome("begin {$ELSE}" + Repeated("{$ELSE}") + " a b c {$ENDIF}" + Repeated(";") + " end."), "end");
}

TEST(LongRowOfDeprecatedHints, IsSwallowedByAnOutline) {
  for (const char* piece : {"deprecated;", "deprecated; ", "{}deprecated;\n", "deprecated ;"})
    EXPECT_EQ(OutlineOutcome("begin a; " + Repeated(piece) + " end."), "end") << piece;
}

} // namespace
} // namespace quorvane
