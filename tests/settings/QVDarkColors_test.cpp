// SPDX-License-Identifier: MIT
#include "settings/model/QVDarkColors.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(QVDarkColors, EveryDesignedColourHasAnotherOneForDarkGround) {
  const TQVOptionValues designed;
  TQVOptionValues values;
  EXPECT_TRUE(FollowGround(values, true));
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Kind != TQVOptionKind::Color)
      continue;
    EXPECT_NE(values.Number(row.Option), designed.Number(row.Option)) << row.Value;
  }
}

TEST(QVDarkColors, NothingButColoursChanges) {
  TQVOptionValues values;
  FollowGround(values, true);
  const TQVOptionValues designed;
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Kind == TQVOptionKind::Color)
      values.SetNumber(row.Option, designed.Number(row.Option));
  }
  EXPECT_EQ(values, designed);
}

TEST(QVDarkColors, LightBringsTheDesignedColoursBack) {
  TQVOptionValues values;
  FollowGround(values, true);
  EXPECT_TRUE(FollowGround(values, false));
  EXPECT_EQ(values, TQVOptionValues());
}

TEST(QVDarkColors, AColourThatWasChosenStays) {
  TQVOptionValues values;
  values.SetNumber(TQVOption::ParenColor, 0x123456);
  FollowGround(values, true);
  EXPECT_EQ(values.Number(TQVOption::ParenColor), 0x123456);
  FollowGround(values, false);
  EXPECT_EQ(values.Number(TQVOption::ParenColor), 0x123456);
}

TEST(QVDarkColors, NothingChangesWhereTheColoursAreThoseForTheGround) {
  TQVOptionValues values;
  EXPECT_FALSE(FollowGround(values, false));
  FollowGround(values, true);
  const TQVOptionValues dark = values;
  EXPECT_FALSE(FollowGround(values, true));
  EXPECT_EQ(values, dark);
}

} // namespace
} // namespace quorvane
