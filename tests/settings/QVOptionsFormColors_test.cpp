// SPDX-License-Identifier: MIT
// The colours of the options go with the host's scheme.
#include "settings/OptionsFormFixture.h"

#include "platform/ColorFollowers.h"
#include "settings/QVColorPicker.h"

namespace quorvane {
namespace {

class OptionsFormColors : public OptionsFormTest {
protected:
  static void Follow(bool dark) { platform::ColorFollowers().Follow(dark); }
  static platform::TColor Shown(const char* name) { return Control<TColorBtn>(name).ActiveColor(); }
};

TEST_F(OptionsFormColors, DarkGroundChangesControlsAndGlobals) {
  StartQVOptions();
  EXPECT_TRUE(platform::ColorFollowers().WouldFollow(true));
  Follow(true);
  EXPECT_NE(OptLineNumberColor, 0x000000);
  EXPECT_EQ(Shown("LineNumberColorBox"), OptLineNumberColor);
  EXPECT_NE(OptParenMatchColor, 0xC0C0C0);
  EXPECT_EQ(Shown("ParenColorBox"), OptParenMatchColor);
  EXPECT_FALSE(platform::ColorFollowers().WouldFollow(true));
}

TEST_F(OptionsFormColors, LightGroundBringsTheDesignedOnesBack) {
  StartQVOptions();
  Follow(true);
  Follow(false);
  EXPECT_EQ(OptLineNumberColor, 0x000000);
  EXPECT_EQ(OptParenMatchColor, 0xC0C0C0);
  EXPECT_EQ(Shown("ParenColorBox"), 0xC0C0C0);
}

TEST_F(OptionsFormColors, WhatHasFollowedIsSavedAndComesBack) {
  StartQVOptions();
  Follow(true);
  const platform::TColor dark = OptLineNumberColor;
  StopQVOptions();
  EXPECT_NE(Stored(), QByteArray());
  ResetOptions();
  StartQVOptions();
  EXPECT_EQ(OptLineNumberColor, dark);
  Follow(false);
  EXPECT_EQ(OptLineNumberColor, 0x000000);
}

TEST_F(OptionsFormColors, AStoredChoiceOfTheUsersStays) {
  Store("\"ParenColor\"=dword:00123456\n");
  StartQVOptions();
  Follow(true);
  EXPECT_EQ(OptParenMatchColor, 0x123456);
  EXPECT_EQ(Shown("ParenColorBox"), 0x123456);
}

TEST_F(OptionsFormColors, WhatWasCancelledIsNotAppliedWithThem) {
  StartQVOptions();
  OpenAndCancel([] {
    Toggle("MarkParensCheck");
    Type("TemplateKeyEdit", QStringLiteral("x"));
    Pick("ParenColorBox", 8);
  });
  const platform::TColor picked = Shown("ParenColorBox");
  Follow(true);
  EXPECT_TRUE(OptMarkParens);
  EXPECT_EQ(OptTemplateKey, ' ');
  EXPECT_FALSE(Control<QCheckBox>("MarkParensCheck").isChecked()) << "still edited";
  EXPECT_EQ(Control<QLineEdit>("TemplateKeyEdit").text(), QStringLiteral("x"));
  EXPECT_EQ(Shown("ParenColorBox"), picked);
  EXPECT_NE(OptParenMatchColor, picked);
  EXPECT_NE(OptParenMatchColor, 0xC0C0C0) << "what was applied follows";
}

TEST_F(OptionsFormColors, NobodyIsLeftToFollowAfterTheStop) {
  StartQVOptions();
  StopQVOptions();
  EXPECT_FALSE(platform::ColorFollowers().WouldFollow(true));
}

} // namespace
} // namespace quorvane
