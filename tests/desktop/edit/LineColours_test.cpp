// SPDX-License-Identifier: MIT
#include "desktop/edit/LineColours.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

using enum SyntaxAttribute;
using quorvane::csAnsi;
using quorvane::csBor;
using quorvane::csNo;
using quorvane::TCommentState;

// The line's attributes as one letter a unit: blank, comment, reserved word, identifier, symbol, string, number,
// directive, illegal.
std::string attributes(QStringView line, TCommentState start = csNo) {
  LineScanner scanner;
  std::vector<ColourRun> runs;
  scanner.scan(line, start, &runs);
  std::string result(static_cast<std::size_t>(line.size()), ' ');
  for (const ColourRun& run : runs)
    result.replace(static_cast<std::size_t>(run.start), static_cast<std::size_t>(run.length),
                   static_cast<std::size_t>(run.length), " cris#ndx"[static_cast<std::size_t>(run.attribute)]);
  return result;
}

TCommentState stateAfter(QStringView line, TCommentState start = csNo) {
  return LineScanner().scan(line, start, nullptr);
}

TEST(LineColours, TellsTheKindsOfTokensApart) {
  EXPECT_EQ(attributes(u"if A1 = $F then {c}"), "rr ii s nn rrrr ccc");
  EXPECT_EQ(attributes(u"S := 'it''s' // c"), "i ss ####### cccc");
  EXPECT_EQ(attributes(u"C = #13'x';"), "i s ######s");
  EXPECT_EQ(attributes(u"{$R+} x (*$I a*)"), "ddddd i dddddddd");
  EXPECT_EQ(attributes(u"1..2 | }"), "nssn x x");
}

TEST(LineColours, TakesVisibilityAsReservedOnlyFirstOnItsLine) {
  EXPECT_EQ(attributes(u"  private"), "  rrrrrrr");
  EXPECT_EQ(attributes(u"x.Public"), "isiiiiii");
}

TEST(LineColours, TakesRoutineDirectivesAsReservedOnlyAfterASemicolon) {
  EXPECT_EQ(attributes(u"P; virtual;"), "is rrrrrrrs");
  EXPECT_EQ(attributes(u"virtual := 1;"), "iiiiiii ss ns");
}

TEST(LineColours, TakesPropertyWordsAndTypesAsIdentifiers) {
  EXPECT_EQ(attributes(u"read Name Integer"), "iiii iiii iiiiiii");
}

TEST(LineColours, CarriesACommentOverTheEndOfALine) {
  EXPECT_EQ(stateAfter(u"x { open"), csBor);
  EXPECT_EQ(stateAfter(u"(* open"), csAnsi);
  EXPECT_EQ(stateAfter(u"still", csBor), csBor);
  EXPECT_EQ(attributes(u"still } x", csBor), "ccccccc i");
  EXPECT_EQ(stateAfter(u"still } x", csBor), csNo);
  EXPECT_EQ(attributes(u"a } *) end", csAnsi), "cccccc rrr");
}

TEST(LineColours, LeavesADirectiveThatIsNotClosedToItsLine) {
  EXPECT_EQ(stateAfter(u"{$IFDEF x"), csNo);
  EXPECT_EQ(attributes(u"{$IFDEF x"), "ddddddddd");
}

TEST(LineColours, GoesOnBehindANul) {
  EXPECT_EQ(attributes(QStringView(u"if\0end", 6)), "rr rrr");
  EXPECT_EQ(attributes(QStringView(u"\0\0x", 3)), "  i");
  EXPECT_EQ(attributes(QStringView(u"{\0} end\0", 8)), "c c rrr ");
  EXPECT_EQ(stateAfter(QStringView(u"{\0", 2)), csBor);
}

TEST(LineColours, CountsUnitsWhateverTheCharacters) {
  EXPECT_EQ(attributes(u"'\u00E9\u4E2D\U0001F600' end"), "###### rrr");
  EXPECT_EQ(attributes(u"\u4E2D end"), "x rrr");
}

TEST(LineColours, TellsTheAttributeRightOfTheCaret) {
  LineScanner scanner;
  const QStringView line = u"x := 'a'; {c} 1";
  EXPECT_EQ(scanner.attributeAt(line, csNo, 0), Identifier);
  EXPECT_EQ(scanner.attributeAt(line, csNo, 1), Blank);
  EXPECT_EQ(scanner.attributeAt(line, csNo, 5), String);
  EXPECT_EQ(scanner.attributeAt(line, csNo, 7), String);
  EXPECT_EQ(scanner.attributeAt(line, csNo, 8), Symbol);
  EXPECT_EQ(scanner.attributeAt(line, csNo, 10), Comment);
  EXPECT_EQ(scanner.attributeAt(line, csNo, 14), Number);
}

TEST(LineColours, TellsAtTheEndOfALineWhatIsOpenThere) {
  const auto atEnd = [](QStringView line, TCommentState start = csNo) {
    return LineScanner().attributeAt(line, start, static_cast<int>(line.size()));
  };
  EXPECT_EQ(atEnd(u"x // c"), Comment);
  EXPECT_EQ(atEnd(u"x { c"), Comment);
  EXPECT_EQ(atEnd(u"c", csBor), Comment);
  EXPECT_EQ(atEnd(u"", csAnsi), Comment);
  EXPECT_EQ(atEnd(u"x := 'abc"), String);
  EXPECT_EQ(atEnd(u"{$IFDEF"), Directive);
  EXPECT_EQ(atEnd(u"x := 'abc'"), Blank);
  EXPECT_EQ(atEnd(u"{c}"), Blank);
  EXPECT_EQ(atEnd(u"end"), Blank);
  EXPECT_EQ(atEnd(u""), Blank);
}

TEST(LineColours, PublishesTheNumbersThatAddInsKnow) {
  EXPECT_EQ(static_cast<int>(Comment), 1);
  EXPECT_EQ(static_cast<int>(String), 5);
}

} // namespace
} // namespace desktop
