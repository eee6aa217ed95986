// SPDX-License-Identifier: MIT
#include "desktop/edit/UsedUnits.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

// The units as they stand in the text, then their names, then their files, each followed by a blank.
std::string unitsOf(const std::string& text) {
  std::string places;
  std::string names;
  std::string files;
  for (const UsedUnit& unit : findUsedUnits(text)) {
    places += text.substr(unit.place.begin, unit.place.end - unit.place.begin) + ' ';
    names += unit.name + ' ';
    files += text.substr(unit.file.begin, unit.file.end - unit.file.begin) + ' ';
  }
  return places + "| " + names + "| " + files;
}

std::string namesIn(const std::string& text) {
  std::string names;
  for (const UsedUnit& unit : findUsedUnits(text))
    names += unit.name + ' ';
  return names;
}

TEST(UsedUnits, AreThoseOfBothClauses) {
  EXPECT_EQ(namesIn("unit U;\r\ninterface\r\nuses A, B;\r\nimplementation\r\nuses C;\r\nend."), "A B C ");
}

TEST(UsedUnits, StandWhereTheirNamesDo) {
  const std::vector<UsedUnit> units = findUsedUnits("uses Alpha, Beta;");
  ASSERT_EQ(units.size(), 2U);
  EXPECT_EQ(units[0].place, (TextRange{5, 10}));
  EXPECT_EQ(units[1].place, (TextRange{12, 16}));
}

TEST(UsedUnits, HaveDottedNames) {
  EXPECT_EQ(unitsOf("uses System.SysUtils, Vcl.Forms;"), "System.SysUtils Vcl.Forms | System.SysUtils Vcl.Forms |   ");
}

TEST(UsedUnits, LeaveWhatStandsBetweenThePartsOutOfTheName) {
  EXPECT_EQ(unitsOf("uses System {s} . SysUtils;"), "System {s} . SysUtils | System.SysUtils |  ");
}

TEST(UsedUnits, HaveTheFileBehindIn) {
  EXPECT_EQ(unitsOf("program P; uses Main in 'forms\\Main.pas' {Form1}, Tools;"),
            "Main Tools | Main Tools | forms\\Main.pas  ");
}

TEST(UsedUnits, TakeWhatThereIsOfAFileThatIsNotClosed) {
  EXPECT_EQ(unitsOf("uses Main in 'Main.pa\r\n"), "Main | Main | Main.pa ");
}

TEST(UsedUnits, AreNotThoseInCommentsAndStrings) {
  EXPECT_EQ(namesIn("{ uses A; } // uses B;\r\ns := 'uses C;'; (* uses\r\nD; *) uses {E,} F // G\r\n;"), "F ");
}

TEST(UsedUnits, AreThoseOfEveryBranch) {
  EXPECT_EQ(namesIn("uses A, {$IFDEF X} B, {$ELSE} C, {$ENDIF} D;"), "A B C D ");
}

TEST(UsedUnits, GoOnBehindBranchesThatTheCommaStandsBehind) {
  EXPECT_EQ(namesIn("uses A, {$IFDEF X} B {$ELSE} C {$ENDIF}, D;"), "A B C D ");
  EXPECT_EQ(namesIn("uses {$IFDEF X}A in 'a.pas'{$ELSE}B{$ENDIF},\r\nC;"), "A B C ");
  EXPECT_EQ(namesIn("uses A {$IFDEF X}, B {$ENDIF}, C;"), "A B C ");
}

TEST(UsedUnits, EndWithTheClause) {
  EXPECT_EQ(namesIn("uses A; B, C;"), "A ");
}

TEST(UsedUnits, AreKnownWhileTheClauseIsTyped) {
  EXPECT_EQ(namesIn("uses A, "), "A ");
  EXPECT_EQ(namesIn("uses A, System."), "A System ");
  EXPECT_EQ(namesIn("uses"), "");
  EXPECT_EQ(namesIn("uses A, begin uses B;"), "A B ");
}

TEST(UsedUnits, MayHaveNamesThatAreWordsElsewhere) {
  EXPECT_EQ(namesIn("uses Index, Message;"), "Index Message ");
}

TEST(UsedUnits, AreNoneInAnEmptyText) {
  EXPECT_EQ(namesIn(""), "");
}

} // namespace
} // namespace desktop
