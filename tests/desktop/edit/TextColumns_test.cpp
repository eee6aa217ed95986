// SPDX-License-Identifier: MIT
#include "desktop/edit/TextColumns.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

constexpr int tabs = 4;

TEST(TextColumns, CountAPlainLineFromOneAndZero) {
  EXPECT_EQ(columnOfCharIndex(u"abc", 0, tabs), 1);
  EXPECT_EQ(columnOfCharIndex(u"abc", 2, tabs), 3);
  EXPECT_EQ(charIndexOfColumn(u"abc", 3, tabs), 2);
}

TEST(TextColumns, ExpandATabToTheNextStop) {
  EXPECT_EQ(columnOfCharIndex(u"a\tb", 1, tabs), 2);
  EXPECT_EQ(columnOfCharIndex(u"a\tb", 2, tabs), 5);
  EXPECT_EQ(columnOfCharIndex(u"abcd\tb", 5, tabs), 9);
}

TEST(TextColumns, GiveEveryCellOfATabToTheTab) {
  for (int column = 2; column <= 4; ++column) {
    EXPECT_EQ(charIndexOfColumn(u"a\tb", column, tabs), 1) << column;
    EXPECT_EQ(unitOfColumn(u"a\tb", column, tabs), 1) << column;
  }
  EXPECT_EQ(charIndexOfColumn(u"a\tb", 5, tabs), 2);
}

TEST(TextColumns, TakeEachCellBeyondTheEndAsOneCharacter) {
  EXPECT_EQ(columnOfCharIndex(u"\tx", 5, tabs), 9);
  EXPECT_EQ(charIndexOfColumn(u"\tx", 9, tabs), 5);
  EXPECT_EQ(charIndexOfUnit(u"ab", 6), 6);
  EXPECT_EQ(unitOfColumn(u"ab", 9, tabs), 2);
  EXPECT_EQ(unitOfCharIndex(u"ab", 9), 2);
}

TEST(TextColumns, TakeASurrogatePairAsOneCharacter) {
  const QStringView line = u"a\U0001F600b";
  EXPECT_EQ(charIndexOfUnit(line, 3), 2);
  EXPECT_EQ(charIndexOfUnit(line, 2), 1) << "the second half belongs to the character";
  EXPECT_EQ(unitOfCharIndex(line, 2), 3);
  EXPECT_EQ(columnOfUnit(line, 3, tabs), 3);
  EXPECT_EQ(unitOfColumn(line, 3, tabs), 3);
}

TEST(TextColumns, TakeALoneSurrogateAsOneCharacter) {
  const char16_t units[] = {u'a', 0xD83D, u'b', 0xDE00, u'c'};
  const QStringView line(units, 5);
  EXPECT_EQ(charIndexOfUnit(line, 4), 4);
  EXPECT_EQ(columnOfUnit(line, 4, tabs), 5);
}

// A mark may begin left of the text.
TEST(TextColumns, TakeEachCharacterBeforeTheLineAsOneCell) {
  EXPECT_EQ(columnOfCharIndex(u"\tbc", -1, tabs), 0);
  EXPECT_EQ(columnOfCharIndex(u"abc", -5, tabs), -4);
}

TEST(TextColumns, ClipCellsBeforeTheLine) {
  EXPECT_EQ(charIndexOfColumn(u"abc", 0, tabs), 0);
  EXPECT_EQ(charIndexOfColumn(u"abc", -7, tabs), 0);
  EXPECT_EQ(charIndexOfUnit(u"abc", -1), 0);
}

TEST(TextColumns, AgreeInBothDirectionsOnEveryCharacter) {
  const QStringView line = u"\ta\t\tb\U0001F600\tc ";
  for (int tabWidth = 1; tabWidth <= 9; ++tabWidth) {
    for (int index = 0; index < 14; ++index) {
      const int column = columnOfCharIndex(line, index, tabWidth);
      EXPECT_EQ(charIndexOfColumn(line, column, tabWidth), index) << "tab width " << tabWidth;
    }
  }
}

TEST(TextColumns, TakeATabWidthBelowOneAsOne) {
  EXPECT_EQ(columnOfCharIndex(u"\t\tx", 2, 0), 3);
}

TEST(TextColumns, WalkOnFromAPlaceAsFromTheStart) {
  const QStringView line = u"a\tb\U0001F600\tc\td";
  LinePlace place;
  for (qsizetype unit = 0; unit <= line.size(); ++unit) {
    place = walkOn(line, place, unit, tabs);
    EXPECT_EQ(place.column, columnOfUnit(line, unit, tabs)) << unit;
  }
  EXPECT_EQ(place.unit, line.size());
}

} // namespace
} // namespace desktop
