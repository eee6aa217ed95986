// SPDX-License-Identifier: MIT
#include "platform/Color.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Color, PlainValuesAreBlueGreenRed) {
  EXPECT_EQ(ToQColor(0x0000FF, {}, {}), QColor(255, 0, 0));
  EXPECT_EQ(ToQColor(clGreen, {}, {}), QColor(0, 128, 0));
  EXPECT_EQ(ToQColor(clSilver, {}, {}), QColor(192, 192, 192));
}

TEST(Color, SystemColoursComeFromThePalette) {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(1, 2, 3));
  palette.setColor(QPalette::Highlight, QColor(4, 5, 6));
  EXPECT_EQ(ToQColor(clWindow, palette, {}), QColor(1, 2, 3));
  EXPECT_EQ(ToQColor(clHighlight, palette, {}), QColor(4, 5, 6));
}

TEST(Color, UnknownSystemColourIsTheButtonColour) {
  QPalette palette;
  palette.setColor(QPalette::Button, QColor(9, 8, 7));
  EXPECT_EQ(ToQColor(static_cast<TColor>(0x80000FFF), palette, {}), QColor(9, 8, 7));
}

TEST(Color, DefaultIsTheControlsOwnAndNoneIsInvalid) {
  EXPECT_EQ(ToQColor(clDefault, {}, QColor(11, 12, 13)), QColor(11, 12, 13));
  EXPECT_FALSE(ToQColor(clNone, {}, QColor(11, 12, 13)).isValid());
}

TEST(Color, GoesThereAndBack) {
  for (const TColor color : {clBlack, clGreen, clRed, clSilver, clWhite, TColor{0x123456}})
    EXPECT_EQ(ToTColor(ToQColor(color, {}, {})), color);
}
