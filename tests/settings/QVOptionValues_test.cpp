// SPDX-License-Identifier: MIT
#include "settings/model/QVOptionValues.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

namespace quorvane {
namespace {

using enum TQVRegistryType;

struct TExpectedRow {
  std::string_view Value;
  TQVRegistryType Type;
  std::int32_t Designed;
  std::string_view Control;
};

// Written out a second time on purpose: users' stored settings depend on every one of these.
constexpr std::array<TExpectedRow, 24> ExpectedRows = {{
    {"ParenColor", Integer, 12632256, "ParenColorBox"},
    {"BlockIndex", Integer, 0, "BlockMarkerGroup"},
    {"LineNumbers", Boolean, 1, "ShowLineNumbersCheck"},
    {"MarkParens", Boolean, 1, "MarkParensCheck"},
    {"BlockShape", Integer, 0, "BlockMarkerShapeGroup"},
    {"LinesInSecondGutter", Boolean, 1, "SecondGutterCheck"},
    {"BlockColor1", Integer, 13434828, "BlockColorBox1"},
    {"BlockColor2", Integer, 15654348, "BlockColorBox2"},
    {"BlockColor3", Integer, 14535901, "BlockColorBox3"},
    {"BlockColor4", Integer, 13421823, "BlockColorBox4"},
    {"ShowToolbar", Boolean, 1, "ShowNavBarCheck"},
    {"UnevenBrackets", Boolean, 0, "UnevenBracketsCheck"},
    {"LineNumberColor", Integer, 0, "LineNumberColorBox"},
    {"GutterSeparator", Boolean, 1, "GutterSeparatorCheck"},
    {"LineNumbersLeft", Boolean, 1, "LineNumbersLeftCheck"},
    {"FlyoutBar", Boolean, 1, "ShowFlyoutBarCheck"},
    {"EnableTemplates", Boolean, 1, "EnableTemplatesCheck"},
    {"TemplateKey", Integer, 32, "TemplateKeyEdit"},
    {"StorageDir", String, 0, ""},
    {"LineWidth", Integer, 2, "LineWidthSpin"},
    {"SyntaxCheck", Boolean, 1, "LiveSyntaxCheckCheck"},
    {"MarkerLive", Integer, 0, "MarkerActivationGroup"},
    {"MarkerHotKey", String, 0xA030, "MarkerActivateHotkey"},
    {"FlyoutDelay", Integer, 2000, "FlyDelaySpin"},
}};

TEST(QVOptionTable, HasTheNamesTypesAndDefaultsThatUsersHaveStored) {
  ASSERT_EQ(QVOptionTable.size(), ExpectedRows.size());
  for (std::size_t i = 0; i < ExpectedRows.size(); ++i) {
    const TQVOptionRow& row = QVOptionTable[i];
    EXPECT_EQ(row.Value, ExpectedRows[i].Value);
    EXPECT_EQ(RegistryType(row.Kind), ExpectedRows[i].Type) << row.Value;
    EXPECT_EQ(row.Designed, ExpectedRows[i].Designed) << row.Value;
    EXPECT_EQ(row.Control, ExpectedRows[i].Control);
  }
}

TEST(QVOptionTable, IsIndexedByItsOptions) {
  for (const TQVOptionRow& row : QVOptionTable)
    EXPECT_EQ(&RowOf(row.Option), &row) << row.Value;
}

TEST(QVOptionTable, HoldsItsDesignedDefaultsWithinTheirLimits) {
  for (const TQVOptionRow& row : QVOptionTable)
    EXPECT_TRUE(row.Limits.Hold(row.Designed)) << row.Value;
}

TEST(QVOptionValues, BeginAsDesigned) {
  const TQVOptionValues values;
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Kind == TQVOptionKind::Flag)
      EXPECT_EQ(values.Flag(row.Option), row.Designed == 1) << row.Value;
    else if (row.Kind == TQVOptionKind::Character)
      EXPECT_EQ(values.Text(row.Option), " ") << row.Value;
    else if (row.Kind == TQVOptionKind::Folder)
      EXPECT_EQ(values.Text(row.Option), "") << row.Value;
    else
      EXPECT_EQ(values.Number(row.Option), row.Designed) << row.Value;
  }
}

TEST(QVOptionValues, AreEqualWhenEveryControlIs) {
  TQVOptionValues values;
  EXPECT_EQ(values, TQVOptionValues());
  values.SetFlag(TQVOption::SyntaxCheck, false);
  EXPECT_NE(values, TQVOptionValues());
}

struct TLimitRow {
  TQVOption Option;
  std::int32_t Given;
  std::int32_t Held;
};

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

constexpr TLimitRow LimitRows[] = {
    {TQVOption::LineWidth, 0, 1},          {TQVOption::LineWidth, 1, 1},     {TQVOption::LineWidth, 9, 9},
    {TQVOption::LineWidth, 10, 9},         {TQVOption::LineWidth, Least, 1}, {TQVOption::LineWidth, Most, 9},
    {TQVOption::FlyoutDelay, -1, 0},       {TQVOption::FlyoutDelay, 0, 0},   {TQVOption::FlyoutDelay, 9999, 9999},
    {TQVOption::FlyoutDelay, 10000, 9999}, {TQVOption::BlockIndex, -1, -1},  {TQVOption::BlockIndex, -2, -1},
    {TQVOption::BlockIndex, 2, 2},         {TQVOption::BlockIndex, 3, 2},    {TQVOption::BlockIndex, Most, 2},
    {TQVOption::BlockShape, 1, 1},         {TQVOption::BlockShape, 2, 1},    {TQVOption::BlockShape, Least, -1},
    {TQVOption::MarkerLive, 1, 1},         {TQVOption::MarkerLive, 2, 1},    {TQVOption::MarkerLive, -5, -1},
};

TEST(QVOptionValues, BringNumbersIntoTheLimitsOfTheirControls) {
  for (const TLimitRow& row : LimitRows) {
    TQVOptionValues values;
    values.SetNumber(row.Option, row.Given);
    EXPECT_EQ(values.Number(row.Option), row.Held) << RowOf(row.Option).Value << ' ' << row.Given;
  }
}

TEST(QVOptionValues, TakeColoursAsTheyStand) {
  for (const std::int32_t color : {Least, -1, 0, 0x00FFFFFF, 0x1FFFFFFF, 0x20000000, Most}) {
    TQVOptionValues values;
    values.SetNumber(TQVOption::ParenColor, color);
    EXPECT_EQ(values.Number(TQVOption::ParenColor), color);
  }
}

TEST(QVOptionValues, GiveTheFirstCharacterOfATextOrZero) {
  TQVOptionValues values;
  values.SetText(TQVOption::TemplateKey, "xy");
  EXPECT_EQ(values.Character(TQVOption::TemplateKey), 'x');
  values.SetText(TQVOption::TemplateKey, "");
  EXPECT_EQ(values.Character(TQVOption::TemplateKey), '\0');
}

TEST(QVOptionValues, RefuseAnotherTypeThanTheirOwn) {
  TQVOptionValues values;
  EXPECT_THROW((void)values.Flag(TQVOption::LineWidth), std::bad_variant_access);
  EXPECT_THROW((void)values.Number(TQVOption::LineNumbers), std::bad_variant_access);
  EXPECT_THROW((void)values.Text(TQVOption::MarkerHotKey), std::bad_variant_access);
  EXPECT_THROW(values.SetFlag(TQVOption::LineWidth, true), std::bad_variant_access);
  EXPECT_EQ(values, TQVOptionValues());
}

} // namespace
} // namespace quorvane
