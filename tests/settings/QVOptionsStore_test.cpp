// SPDX-License-Identifier: MIT
#include "settings/model/QVOptionsStore.h"

#include "OptionsFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvane {
namespace {

using TLines = std::vector<std::string>;
using TStored = fakes::RecordingRegistry::TStored;

class LoadTest : public OptionsFixture {};
class SaveTest : public OptionsFixture {};
class StartAndStopTest : public OptionsFixture {};

void StoreEveryValue(fakes::RecordingRegistry& registry) {
  for (const TQVOptionRow& row : QVOptionTable) {
    if (RegistryType(row.Kind) == TQVRegistryType::String)
      registry.Store(row.Value, "F1");
    else
      registry.Store(row.Value, 1);
  }
}

TEST_F(LoadTest, ReadsNothingWithoutTheKey) {
  Load();
  EXPECT_EQ(Registry.Calls, (TLines{"key? Software\\Vantrel\\QVIDE"}));
  EXPECT_EQ(Controls, TQVOptionValues());
  EXPECT_FALSE(Registry.HasKey);
  EXPECT_TRUE(Reports.empty());
}

TEST_F(LoadTest, ReadsNothingFromAKeyThatCannotBeOpened) {
  Registry.Store("LineWidth", 7);
  Registry.CanOpen = false;
  Load();
  EXPECT_EQ(Controls, TQVOptionValues());
  EXPECT_EQ(Registry.Calls, (TLines{"key? Software\\Vantrel\\QVIDE", "open Software\\Vantrel\\QVIDE"}));
}

TEST_F(LoadTest, ReadsWhatExistsInItsOrderAndEnableTemplatesFromFlyoutBar) {
  StoreEveryValue(Registry);
  Load();
  EXPECT_EQ(Registry.Calls, (TLines{"key? Software\\Vantrel\\QVIDE",
                                    "open Software\\Vantrel\\QVIDE",
                                    "value? ParenColor",
                                    "read integer ParenColor",
                                    "value? BlockIndex",
                                    "read integer BlockIndex",
                                    "value? LineNumbers",
                                    "read Boolean LineNumbers",
                                    "value? MarkParens",
                                    "read Boolean MarkParens",
                                    "value? BlockShape",
                                    "read integer BlockShape",
                                    "value? LinesInSecondGutter",
                                    "read Boolean LinesInSecondGutter",
                                    "value? BlockColor1",
                                    "read integer BlockColor1",
                                    "value? BlockColor2",
                                    "read integer BlockColor2",
                                    "value? BlockColor3",
                                    "read integer BlockColor3",
                                    "value? BlockColor4",
                                    "read integer BlockColor4",
                                    "value? ShowToolbar",
                                    "read Boolean ShowToolbar",
                                    "value? UnevenBrackets",
                                    "read Boolean UnevenBrackets",
                                    "value? LineNumberColor",
                                    "read integer LineNumberColor",
                                    "value? GutterSeparator",
                                    "read Boolean GutterSeparator",
                                    "value? LineNumbersLeft",
                                    "read Boolean LineNumbersLeft",
                                    "value? FlyoutBar",
                                    "read Boolean FlyoutBar",
                                    "value? EnableTemplates",
                                    "read Boolean FlyoutBar",
                                    "value? TemplateKey",
                                    "read integer TemplateKey",
                                    "value? StorageDir",
                                    "read string StorageDir",
                                    "value? LineWidth",
                                    "read integer LineWidth",
                                    "value? SyntaxCheck",
                                    "read Boolean SyntaxCheck",
                                    "value? MarkerLive",
                                    "read integer MarkerLive",
                                    "value? MarkerHotKey",
                                    "read string MarkerHotKey",
                                    "value? FlyoutDelay",
                                    "read integer FlyoutDelay",
                                    "close"}));
}

TEST_F(LoadTest, LeavesWhatIsNotStoredAsItWas) {
  Registry.Store("LineWidth", 7);
  Load();
  TQVOptionValues expected;
  expected.SetNumber(TQVOption::LineWidth, 7);
  EXPECT_EQ(Controls, expected);
  EXPECT_TRUE(Reports.empty());
}

TEST_F(LoadTest, ReadsEachKindOfValueIntoItsControl) {
  Registry.Store("ParenColor", static_cast<std::int32_t>(0x80000005U));
  Registry.Store("BlockIndex", 2);
  Registry.Store("LineNumbers", 0);
  Registry.Store("UnevenBrackets", 1);
  Registry.Store("TemplateKey", 'j');
  Registry.Store("LineWidth", 9);
  Registry.Store("MarkerHotKey", "Shift+Ctrl+F9");
  Load();
  TQVOptionValues expected;
  expected.SetNumber(TQVOption::ParenColor, static_cast<std::int32_t>(0x80000005U));
  expected.SetNumber(TQVOption::BlockIndex, 2);
  expected.SetFlag(TQVOption::LineNumbers, false);
  expected.SetFlag(TQVOption::UnevenBrackets, true);
  expected.SetText(TQVOption::TemplateKey, "j");
  expected.SetNumber(TQVOption::LineWidth, 9);
  expected.SetNumber(TQVOption::MarkerHotKey, 0x6078);
  EXPECT_EQ(Controls, expected);
}

TEST_F(LoadTest, PutsTheStorageFolderStraightIntoItsGlobal) {
  Registry.Store("StorageDir", "C:\\Templates \xC3\xA4");
  Load();
  EXPECT_EQ(OptStorageDir, "C:\\Templates \xC3\xA4");
  EXPECT_EQ(Controls, TQVOptionValues());
}

TEST_F(LoadTest, ChangesNoOtherGlobal) {
  StoreEveryValue(Registry);
  Registry.Store("LinesInSecondGutter", 0);
  Load();
  OptStorageDir.clear();
  EXPECT_EQ(OptParenMatchColor, 0xC0C0C0);
  EXPECT_FALSE(OptLinesInGutter);
  EXPECT_FALSE(OptMarkAllBlocks);
  EXPECT_EQ(OptTemplateKey, ' ');
  EXPECT_EQ(OptLineWidth, 2);
  EXPECT_EQ(OptMarkerHotkey, 0xA030);
}

TEST_F(LoadTest, TakesAHotKeyOfUnknownTextForNone) {
  for (const char* text : {"", "Hyper+Q", "Shift+Alt+"}) {
    Controls = TQVOptionValues();
    Registry.Store("MarkerHotKey", text);
    Load();
    EXPECT_EQ(Controls.Number(TQVOption::MarkerHotKey), 0) << text;
  }
  EXPECT_TRUE(Reports.empty());
}

TEST_F(LoadTest, BringsStoredNumbersIntoTheLimitsOfTheirControls) {
  Registry.Store("LineWidth", 1000);
  Registry.Store("FlyoutDelay", -3);
  Registry.Store("BlockIndex", 77);
  Registry.Store("BlockShape", -9);
  Registry.Store("MarkerLive", 2);
  Load();
  EXPECT_EQ(Controls.Number(TQVOption::LineWidth), 9);
  EXPECT_EQ(Controls.Number(TQVOption::FlyoutDelay), 0);
  EXPECT_EQ(Controls.Number(TQVOption::BlockIndex), 2);
  EXPECT_EQ(Controls.Number(TQVOption::BlockShape), -1);
  EXPECT_EQ(Controls.Number(TQVOption::MarkerLive), 1);
  EXPECT_TRUE(Reports.empty());
}

TEST_F(LoadTest, TakesAnyBooleanButZeroForTrue) {
  Registry.Store("UnevenBrackets", 2);
  Registry.Store("LineNumbers", 0);
  Load();
  EXPECT_TRUE(Controls.Flag(TQVOption::UnevenBrackets));
  EXPECT_FALSE(Controls.Flag(TQVOption::LineNumbers));
}

TEST_F(LoadTest, TakesEveryCharacterOfOneByteForTheTemplateKey) {
  for (int code = 1; code <= 0xFF; ++code) {
    Registry.Store("TemplateKey", code);
    Load();
    EXPECT_EQ(Controls.Text(TQVOption::TemplateKey), std::string(1, static_cast<char>(code)));
  }
  EXPECT_TRUE(Reports.empty());
}

TEST_F(LoadTest, TakesTheCharacterZeroForAnEmptyTemplateKey) {
  Registry.Store("TemplateKey", 0);
  Load();
  EXPECT_EQ(Controls.Text(TQVOption::TemplateKey), "");
}

TEST_F(LoadTest, ReportsATemplateKeyThatIsNoCharacterAndKeepsTheDefault) {
  for (const std::int32_t code : {-1, 256, 0x20AC}) {
    Reports.clear();
    Registry.Store("TemplateKey", code);
    Load();
    EXPECT_EQ(Controls, TQVOptionValues()) << code;
    EXPECT_EQ(Reports, (TLines{"QVOptions: registry value \"TemplateKey\" cannot be read; the default stands"}));
  }
}

// Every value, stored as the other type.
TEST_F(LoadTest, ReportsEachValueOfTheWrongTypeAndKeepsItsDefault) {
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Option == TQVOption::EnableTemplates)
      continue; // its own value is not read at all
    Registry.Values.clear();
    if (RegistryType(row.Kind) == TQVRegistryType::String)
      Registry.Store(row.Value, 5);
    else
      Registry.Store(row.Value, "5");
    Reports.clear();
    Load();
    const std::string name(row.Value);
    std::string line = "QVOptions: registry value \"";
    line.append(name).append("\" cannot be read; the default stands");
    EXPECT_EQ(Reports, TLines{line});
    EXPECT_EQ(Controls, TQVOptionValues()) << name;
    EXPECT_EQ(OptStorageDir, "");
  }
}

TEST_F(LoadTest, GoesOnAfterAValueOfTheWrongType) {
  Registry.Store("ParenColor", "silver");
  Registry.Store("FlyoutDelay", 5);
  Load();
  EXPECT_EQ(Controls.Number(TQVOption::FlyoutDelay), 5);
  EXPECT_EQ(Registry.Calls.back(), "close");
}

TEST_F(LoadTest, CanDoWithoutAReport) {
  Registry.Store("ParenColor", "silver");
  LoadOptions(Registry, Controls, nullptr);
  EXPECT_EQ(Controls, TQVOptionValues());
}

TEST_F(LoadTest, EnablesTemplatesAsTheFlyoutBarIsShownIfBothAreStored) {
  for (const int templates : {0, 1}) {
    for (const int flyout : {0, 1}) {
      Registry.Store("EnableTemplates", templates);
      Registry.Store("FlyoutBar", flyout);
      Start();
      EXPECT_EQ(OptEnableTemplates, flyout == 1);
      EXPECT_EQ(OptFlyoutBar, flyout == 1);
    }
  }
}

TEST_F(LoadTest, LeavesTemplatesEnabledIfNothingIsStoredForThemWhateverTheFlyoutBarIs) {
  for (const int flyout : {0, 1}) {
    Registry.Store("FlyoutBar", flyout);
    Start();
    EXPECT_TRUE(OptEnableTemplates);
  }
}

TEST_F(LoadTest, FindsNothingWrongWithTemplatesThatHaveNoFlyoutBarToBeReadFrom) {
  Registry.Store("EnableTemplates", 0);
  Load();
  EXPECT_TRUE(Controls.Flag(TQVOption::EnableTemplates));
  EXPECT_EQ(Reports, TLines{});
}

TEST_F(LoadTest, ReportsAFlyoutBarOfTheWrongTypeOnceThoughTemplatesAreReadFromItToo) {
  Registry.Store("EnableTemplates", 0);
  Registry.Store("FlyoutBar", "yes");
  Load();
  EXPECT_TRUE(Controls.Flag(TQVOption::FlyoutBar));
  EXPECT_TRUE(Controls.Flag(TQVOption::EnableTemplates));
  EXPECT_EQ(Reports, (TLines{"QVOptions: registry value \"FlyoutBar\" cannot be read; the default stands"}));
}

TEST_F(LoadTest, DoesNotMindTheTypeOfTheTemplatesOwnValue) {
  Registry.Store("EnableTemplates", "no");
  Registry.Store("FlyoutBar", 0);
  Load();
  EXPECT_FALSE(Controls.Flag(TQVOption::EnableTemplates));
  EXPECT_TRUE(Reports.empty());
}

TEST_F(SaveTest, CreatesTheKeyAndWritesInItsOrder) {
  Save();
  EXPECT_EQ(Reports, TLines{});
  EXPECT_EQ(Registry.Calls, (TLines{"open or create Software\\Vantrel\\QVIDE",
                                    "write Boolean LineNumbers",
                                    "write integer ParenColor",
                                    "write integer BlockIndex",
                                    "write Boolean MarkParens",
                                    "write integer BlockShape",
                                    "write Boolean LinesInSecondGutter",
                                    "write integer BlockColor1",
                                    "write integer BlockColor2",
                                    "write integer BlockColor3",
                                    "write integer BlockColor4",
                                    "write Boolean ShowToolbar",
                                    "write Boolean UnevenBrackets",
                                    "write integer LineNumberColor",
                                    "write Boolean GutterSeparator",
                                    "write Boolean LineNumbersLeft",
                                    "write Boolean FlyoutBar",
                                    "write Boolean EnableTemplates",
                                    "write integer LineWidth",
                                    "write Boolean SyntaxCheck",
                                    "write integer MarkerLive",
                                    "write string MarkerHotKey",
                                    "write integer FlyoutDelay",
                                    "close"}));
}

TEST_F(SaveTest, ReportsThatTheKeyCouldNotBeOpened) {
  Registry.CanOpen = false;
  Save();
  EXPECT_TRUE(Registry.Values.empty());
  EXPECT_EQ(Reports, (TLines{"QVOptions: the registry key cannot be opened; the options are not saved"}));
}

TEST_F(SaveTest, CanDoWithoutAReport) {
  Registry.CanOpen = false;
  SaveOptions(Controls, Registry, nullptr);
  EXPECT_TRUE(Registry.Values.empty());
}

TEST_F(SaveTest, WritesTheControlsAndNotTheGlobals) {
  OptLineWidth = 7;
  OptShowLineNumbers = false;
  Controls.SetNumber(TQVOption::LineWidth, 3);
  Controls.SetNumber(TQVOption::MarkerHotKey, 0x4070);
  Controls.SetNumber(TQVOption::BlockIndex, -1);
  Save();
  EXPECT_EQ(Registry.Stored("LineWidth"), TStored(3));
  EXPECT_EQ(Registry.Stored("LineNumbers"), TStored(1));
  EXPECT_EQ(Registry.Stored("MarkerHotKey"), TStored("Ctrl+F1"));
  EXPECT_EQ(Registry.Stored("BlockIndex"), TStored(-1));
}

TEST_F(SaveTest, WritesNoHotKeyAsAnEmptyText) {
  Controls.SetNumber(TQVOption::MarkerHotKey, 0);
  Save();
  EXPECT_EQ(Registry.Stored("MarkerHotKey"), TStored(""));
  Start();
  EXPECT_EQ(OptMarkerHotkey, 0);
}

TEST_F(SaveTest, WritesTheTemplatesOwnState) {
  Controls.SetFlag(TQVOption::EnableTemplates, false);
  Save();
  EXPECT_EQ(Registry.Stored("EnableTemplates"), TStored(0));
  EXPECT_EQ(Registry.Stored("FlyoutBar"), TStored(1));
}

TEST_F(SaveTest, LeavesOtherValuesOfTheKeyAlone) {
  Registry.Store("TemplateKey", "of another type");
  Registry.Store("StorageDir", "/srv/templates");
  Registry.Store("Stranger", 42);
  Controls.SetText(TQVOption::TemplateKey, "j");
  Save();
  EXPECT_EQ(Registry.Stored("TemplateKey"), TStored("of another type"));
  EXPECT_EQ(Registry.Stored("StorageDir"), TStored("/srv/templates"));
  EXPECT_EQ(Registry.Stored("Stranger"), TStored(42));
}

TEST_F(StartAndStopTest, AFreshUserGetsTheDefaultsAndTheKeyAtTheFirstStop) {
  Start();
  EXPECT_EQ(Controls, TQVOptionValues());
  EXPECT_FALSE(Registry.HasKey);

  Stop();
  EXPECT_TRUE(Registry.HasKey);
  // Names without case, as the registry compares them.
  const std::map<std::string, TStored> expected = {
      {"linenumbers", 1},        {"parencolor", 12632256},  {"blockindex", 0},
      {"markparens", 1},         {"blockshape", 0},         {"linesinsecondgutter", 1},
      {"blockcolor1", 13434828}, {"blockcolor2", 15654348}, {"blockcolor3", 14535901},
      {"blockcolor4", 13421823}, {"showtoolbar", 1},        {"unevenbrackets", 0},
      {"linenumbercolor", 0},    {"gutterseparator", 1},    {"linenumbersleft", 1},
      {"flyoutbar", 1},          {"enabletemplates", 1},    {"linewidth", 2},
      {"syntaxcheck", 1},        {"markerlive", 0},         {"markerhotkey", "Shift+Alt+0"},
      {"flyoutdelay", 2000},
  };
  EXPECT_EQ(Registry.Values, expected);
}

TEST_F(StartAndStopTest, AStoredTemplateKeySurvivesAnyNumberOfRestartsEvenIfEdited) {
  Registry.Store("TemplateKey", 'j');
  for (int restart = 0; restart < 5; ++restart) {
    Start();
    EXPECT_EQ(OptTemplateKey, 'j');
    Controls.SetText(TQVOption::TemplateKey, "k");
    ApplyOptions(Controls);
    EXPECT_EQ(OptTemplateKey, 'k'); // while it runs
    Stop();
    EXPECT_EQ(Registry.Stored("TemplateKey"), TStored('j'));
  }
}

TEST_F(StartAndStopTest, ATemplateKeyThatWasNeverStoredIsNotStoredWhenEdited) {
  Start();
  Controls.SetText(TQVOption::TemplateKey, "k");
  ApplyOptions(Controls);
  Stop();
  EXPECT_EQ(Registry.Stored("TemplateKey"), std::nullopt);
}

TEST_F(StartAndStopTest, WhatIsEditedAndCancelledChangesNoGlobalButIsSaved) {
  Start();
  Controls.SetNumber(TQVOption::LineWidth, 5); // and the dialog is left without applying
  EXPECT_EQ(OptLineWidth, 2);
  Stop();
  EXPECT_EQ(Registry.Stored("LineWidth"), TStored(5));
  Start();
  EXPECT_EQ(OptLineWidth, 5);
}

TEST_F(StartAndStopTest, AFullRegistryGoesThroughToTheGlobals) {
  Registry.Store("blockcolor1", 1);
  Registry.Store("BLOCKCOLOR4", 4);
  Registry.Store("LinesInSecondGutter", 0);
  Registry.Store("BlockShape", 1);
  Registry.Store("MarkerLive", 1);
  Registry.Store("MarkerHotKey", "ctrl+f9");
  Registry.Store("SyntaxCheck", 0);
  Start();
  EXPECT_EQ(OptBlockHiliteColors, (std::array<TColor, 4>{1, 0xEEDDCC, 0xDDCCDD, 4}));
  EXPECT_TRUE(OptLinesInGutter);
  EXPECT_FALSE(OptBlockBrackets);
  EXPECT_FALSE(OptMarkerLive);
  EXPECT_EQ(OptMarkerHotkey, 0x4078);
  EXPECT_FALSE(OptSyntaxCheck);
}

class ThrowingRegistry : public fakes::RecordingRegistry {
public:
  void WriteInteger(std::string_view, std::int32_t) override { throw std::runtime_error("disk full"); }
};

TEST(SaveToAThrowingRegistry, PassesOnWhatItThrows) {
  ThrowingRegistry registry;
  EXPECT_THROW(SaveOptions(TQVOptionValues(), registry, nullptr), std::runtime_error);
}

} // namespace
} // namespace quorvane
