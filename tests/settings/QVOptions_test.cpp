// SPDX-License-Identifier: MIT
#include "settings/model/QVOptions.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace quorvane {
namespace {

constexpr TColor Rgb(int red, int green, int blue) {
  return red | green << 8 | blue << 16;
}

void ExpectDesignedDefaults() {
  EXPECT_EQ(OptParenMatchColor, Rgb(192, 192, 192));
  EXPECT_TRUE(OptMarkParens);
  EXPECT_EQ(OptBlockHiliteColors[0], Rgb(204, 255, 204));
  EXPECT_EQ(OptBlockHiliteColors[1], Rgb(204, 221, 238));
  EXPECT_EQ(OptBlockHiliteColors[2], Rgb(221, 204, 221));
  EXPECT_EQ(OptBlockHiliteColors[3], Rgb(255, 204, 204));
  EXPECT_TRUE(OptShowLineNumbers);
  EXPECT_FALSE(OptLinesInGutter);
  EXPECT_EQ(OptBlockHiliteKey, 0);
  EXPECT_FALSE(OptMarkAllBlocks);
  EXPECT_TRUE(OptMarkBlocks);
  EXPECT_TRUE(OptShowNavBar);
  EXPECT_TRUE(OptBlockBrackets);
  EXPECT_FALSE(OptUnevenBrackets);
  EXPECT_EQ(OptLineNumberColor, Rgb(0, 0, 0));
  EXPECT_TRUE(OptGutterSeparator);
  EXPECT_TRUE(OptLineNumbersLeft);
  EXPECT_TRUE(OptFlyoutBar);
  EXPECT_TRUE(OptEnableTemplates);
  EXPECT_EQ(OptTemplateKey, ' ');
  EXPECT_EQ(OptStorageDir, "");
  EXPECT_EQ(OptLineWidth, 2);
  EXPECT_TRUE(OptSyntaxCheck);
  EXPECT_TRUE(OptMarkerLive);
  EXPECT_EQ(OptMarkerHotkey, 0x2000 | 0x8000 | '0');
  EXPECT_EQ(OptFlyoutDelay, 2000);
}

TEST(QVOptions, HoldsTheDesignedDefaultsFromTheStartOfTheProcess) {
  ExpectDesignedDefaults();
}

TEST(QVOptions, BlockColoursHaveTheIntegerValuesThatAreStored) {
  EXPECT_EQ(OptBlockHiliteColors, (std::array<TColor, 4>{13434828, 15654348, 14535901, 13421823}));
}

TEST(QVOptions, ResetPutsEveryGlobalBack) {
  OptParenMatchColor = 1;
  OptMarkParens = false;
  OptBlockHiliteColors = {1, 2, 3, 4};
  OptShowLineNumbers = false;
  OptLinesInGutter = true;
  OptBlockHiliteKey = 1;
  OptMarkAllBlocks = true;
  OptMarkBlocks = false;
  OptShowNavBar = false;
  OptBlockBrackets = false;
  OptUnevenBrackets = true;
  OptLineNumberColor = 1;
  OptGutterSeparator = false;
  OptLineNumbersLeft = false;
  OptFlyoutBar = false;
  OptEnableTemplates = false;
  OptTemplateKey = 'x';
  OptStorageDir = "x";
  OptLineWidth = 9;
  OptSyntaxCheck = false;
  OptMarkerLive = false;
  OptMarkerHotkey = 0;
  OptFlyoutDelay = 0;

  ResetOptions();

  ExpectDesignedDefaults();
}

TEST(QVOptions, SyntaxCheckCanBeReadFromAnotherThread) {
  static_assert(std::is_same_v<decltype(OptSyntaxCheck), std::atomic<bool>>);
  EXPECT_TRUE(OptSyntaxCheck.is_lock_free());
}

} // namespace
} // namespace quorvane
