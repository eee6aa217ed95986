// SPDX-License-Identifier: MIT
// What applying makes of the controls, and what holds for any registry.
#include "OptionsFixture.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {
namespace {

class ApplyTest : public OptionsFixture {};

TEST_F(ApplyTest, GivesTheDesignedGlobalsForTheDesignedControls) {
  OptParenMatchColor = 1;
  OptMarkParens = false;
  OptBlockHiliteColors = {1, 2, 3, 4};
  OptShowLineNumbers = false;
  OptLinesInGutter = true;
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
  OptLineWidth = 9;
  OptSyntaxCheck = false;
  OptMarkerLive = false;
  OptMarkerHotkey = 0;
  OptFlyoutDelay = 0;

  ApplyOptions(Controls);

  EXPECT_EQ(OptParenMatchColor, 0xC0C0C0);
  EXPECT_TRUE(OptMarkParens);
  EXPECT_EQ(OptBlockHiliteColors, (std::array<TColor, 4>{0xCCFFCC, 0xEEDDCC, 0xDDCCDD, 0xCCCCFF}));
  EXPECT_TRUE(OptShowLineNumbers);
  EXPECT_FALSE(OptLinesInGutter);
  EXPECT_FALSE(OptMarkAllBlocks);
  EXPECT_TRUE(OptMarkBlocks);
  EXPECT_TRUE(OptShowNavBar);
  EXPECT_TRUE(OptBlockBrackets);
  EXPECT_FALSE(OptUnevenBrackets);
  EXPECT_EQ(OptLineNumberColor, 0);
  EXPECT_TRUE(OptGutterSeparator);
  EXPECT_TRUE(OptLineNumbersLeft);
  EXPECT_TRUE(OptFlyoutBar);
  EXPECT_TRUE(OptEnableTemplates);
  EXPECT_EQ(OptTemplateKey, ' ');
  EXPECT_EQ(OptLineWidth, 2);
  EXPECT_TRUE(OptSyntaxCheck);
  EXPECT_TRUE(OptMarkerLive);
  EXPECT_EQ(OptMarkerHotkey, 0xA030);
  EXPECT_EQ(OptFlyoutDelay, 2000);
}

TEST_F(ApplyTest, NeverAssignsTheKeyWithoutAMeaningNorTheStorageFolder) {
  OptBlockHiliteKey = 7;
  OptStorageDir = "/srv/templates";
  ApplyOptions(Controls);
  EXPECT_EQ(OptBlockHiliteKey, 7);
  EXPECT_EQ(OptStorageDir, "/srv/templates");
}

struct TFlagRow {
  TQVOption Option;
  bool (*Global)();
  bool Inverted = false;
};

const TFlagRow FlagRows[] = {
    {TQVOption::LineNumbers, [] { return OptShowLineNumbers; }},
    {TQVOption::MarkParens, [] { return OptMarkParens; }},
    {TQVOption::LinesInSecondGutter, [] { return OptLinesInGutter; }, true},
    {TQVOption::ShowToolbar, [] { return OptShowNavBar; }},
    {TQVOption::UnevenBrackets, [] { return OptUnevenBrackets; }},
    {TQVOption::GutterSeparator, [] { return OptGutterSeparator; }},
    {TQVOption::LineNumbersLeft, [] { return OptLineNumbersLeft; }},
    {TQVOption::FlyoutBar, [] { return OptFlyoutBar; }},
    {TQVOption::EnableTemplates, [] { return OptEnableTemplates; }},
    {TQVOption::SyntaxCheck, [] { return OptSyntaxCheck.load(); }},
};

TEST_F(ApplyTest, GivesEachCheckBoxToItsOwnGlobalAlone) {
  for (const TFlagRow& changed : FlagRows) {
    TQVOptionValues controls;
    controls.SetFlag(changed.Option, !controls.Flag(changed.Option));
    ApplyOptions(controls);
    for (const TFlagRow& row : FlagRows)
      EXPECT_EQ(row.Global(), controls.Flag(row.Option) != row.Inverted)
          << RowOf(row.Option).Value << " after a change of " << RowOf(changed.Option).Value;
  }
}

TEST_F(ApplyTest, GivesEachNumberToItsOwnGlobal) {
  Controls.SetNumber(TQVOption::ParenColor, 11);
  Controls.SetNumber(TQVOption::BlockColor1, 12);
  Controls.SetNumber(TQVOption::BlockColor2, 13);
  Controls.SetNumber(TQVOption::BlockColor3, 14);
  Controls.SetNumber(TQVOption::BlockColor4, 15);
  Controls.SetNumber(TQVOption::LineNumberColor, 16);
  Controls.SetNumber(TQVOption::LineWidth, 7);
  Controls.SetNumber(TQVOption::FlyoutDelay, 18);
  Controls.SetNumber(TQVOption::MarkerHotKey, 0xE087);
  ApplyOptions(Controls);
  EXPECT_EQ(OptParenMatchColor, 11);
  EXPECT_EQ(OptBlockHiliteColors, (std::array<TColor, 4>{12, 13, 14, 15}));
  EXPECT_EQ(OptLineNumberColor, 16);
  EXPECT_EQ(OptLineWidth, 7);
  EXPECT_EQ(OptFlyoutDelay, 18);
  EXPECT_EQ(OptMarkerHotkey, 0xE087);
}

struct TBlockRow {
  int Item;
  bool MarkBlocks;
  bool MarkAllBlocks;
};

TEST_F(ApplyTest, MarksTheCurrentBlockOrAllBlocksOrNone) {
  for (const TBlockRow row : {TBlockRow{0, true, false}, {1, true, true}, {2, false, false}, {-1, false, false}}) {
    Controls.SetNumber(TQVOption::BlockIndex, row.Item);
    ApplyOptions(Controls);
    EXPECT_EQ(OptMarkBlocks, row.MarkBlocks) << row.Item;
    EXPECT_EQ(OptMarkAllBlocks, row.MarkAllBlocks) << row.Item;
  }
}

TEST_F(ApplyTest, DrawsBracketsForTheFirstShapeOnly) {
  for (const int item : {-1, 0, 1}) {
    Controls.SetNumber(TQVOption::BlockShape, item);
    ApplyOptions(Controls);
    EXPECT_EQ(OptBlockBrackets, item == 0) << item;
  }
}

TEST_F(ApplyTest, IsLiveForTheFirstActivationOnly) {
  for (const int item : {-1, 0, 1}) {
    Controls.SetNumber(TQVOption::MarkerLive, item);
    ApplyOptions(Controls);
    EXPECT_EQ(OptMarkerLive, item == 0) << item;
  }
}

TEST_F(ApplyTest, MakesAnEmptyTemplateKeyABlankInTheControlToo) {
  Controls.SetText(TQVOption::TemplateKey, "");
  ApplyOptions(Controls);
  EXPECT_EQ(OptTemplateKey, ' ');
  EXPECT_EQ(Controls.Text(TQVOption::TemplateKey), " ");
}

TEST_F(ApplyTest, TakesTheFirstCharacterOfALongerTemplateKeyAndLeavesItsText) {
  Controls.SetText(TQVOption::TemplateKey, "jk");
  ApplyOptions(Controls);
  EXPECT_EQ(OptTemplateKey, 'j');
  EXPECT_EQ(Controls.Text(TQVOption::TemplateKey), "jk");
}

// Any integer or text under any of the names, or nothing.
void StoreAnything(fakes::RecordingRegistry& registry) {
  for (const TQVOptionRow& row : QVOptionTable) {
    switch (*rc::gen::inRange(0, 4)) {
    case 0:
      registry.Store(row.Value, *rc::gen::arbitrary<std::int32_t>());
      break;
    case 1:
      registry.Store(row.Value, *rc::gen::inRange(-3, 12));
      break;
    case 2:
      registry.Store(row.Value, *rc::gen::oneOf(rc::gen::arbitrary<std::string>(),
                                                rc::gen::element<std::string>("Ctrl+F2", "Shift+Alt+0", "5")));
      break;
    default:
      break;
    }
  }
}

RC_GTEST_FIXTURE_PROP(ApplyTest, LeavesEveryGlobalWithinItsLimitsWhateverIsStored, ()) {
  StoreAnything(Registry);
  Start();
  RC_ASSERT(OptLineWidth >= 1 && OptLineWidth <= 9);
  RC_ASSERT(OptFlyoutDelay >= 0 && OptFlyoutDelay <= 9999);
  RC_ASSERT(OptTemplateKey != '\0');
  RC_ASSERT(OptMarkBlocks || !OptMarkAllBlocks);
}

// But for the template key, which is not written, and the templates, which come back as the flyout bar is.
RC_GTEST_FIXTURE_PROP(ApplyTest, ControlsComeBackAfterAStopAndAStart, ()) {
  StoreAnything(Registry);
  Start();
  Registry.Values.erase("templatekey");
  Stop();

  TQVOptionValues expected = Controls;
  expected.SetText(TQVOption::TemplateKey, " ");
  expected.SetFlag(TQVOption::EnableTemplates, Controls.Flag(TQVOption::FlyoutBar));
  Start();
  RC_ASSERT(Controls == expected);
}

// Whatever was stored, the second stop writes what the first one wrote, but for the templates.
RC_GTEST_FIXTURE_PROP(ApplyTest, StoppingTwiceWritesTheSame, ()) {
  StoreAnything(Registry);
  Start();
  Stop();
  auto first = Registry.Values;
  first["enabletemplates"] = first["flyoutbar"];
  Start();
  Stop();
  RC_ASSERT(Registry.Values == first);
}

} // namespace
} // namespace quorvane
