// SPDX-License-Identifier: MIT
// What the options dialog does with the options: start, OK, Cancel and stop.
#include "settings/OptionsFormFixture.h"

#include "platform/Errors.h"
#include "settings/model/QVOptionTable.h"
#include "settings/QVTemplateEditor.h"
#include "support/EnvironmentVariable.h"
#include "support/LowerRights.h"

#include <QWindow>

#include <ostream>
#include <sstream>

namespace quorvane {
namespace {

// The file after a start and a stop in which nothing was changed.
const QByteArray kDesignedFile = "Windows Registry Editor Version 5.00\n"
                                 "\n"
                                 "[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\n"
                                 "\"LineNumbers\"=dword:00000001\n"
                                 "\"ParenColor\"=dword:00c0c0c0\n"
                                 "\"BlockIndex\"=dword:00000000\n"
                                 "\"MarkParens\"=dword:00000001\n"
                                 "\"BlockShape\"=dword:00000000\n"
                                 "\"LinesInSecondGutter\"=dword:00000001\n"
                                 "\"BlockColor1\"=dword:00ccffcc\n"
                                 "\"BlockColor2\"=dword:00eeddcc\n"
                                 "\"BlockColor3\"=dword:00ddccdd\n"
                                 "\"BlockColor4\"=dword:00ccccff\n"
                                 "\"ShowToolbar\"=dword:00000001\n"
                                 "\"UnevenBrackets\"=dword:00000000\n"
                                 "\"LineNumberColor\"=dword:00000000\n"
                                 "\"GutterSeparator\"=dword:00000001\n"
                                 "\"LineNumbersLeft\"=dword:00000001\n"
                                 "\"FlyoutBar\"=dword:00000001\n"
                                 "\"EnableTemplates\"=dword:00000001\n"
                                 "\"LineWidth\"=dword:00000002\n"
                                 "\"SyntaxCheck\"=dword:00000001\n"
                                 "\"MarkerLive\"=dword:00000000\n"
                                 "\"MarkerHotKey\"=\"Shift+Alt+0\"\n"
                                 "\"FlyoutDelay\"=dword:000007d0\n";

// All globals as one text, so that a change in any of them shows.
std::string Globals() {
  std::ostringstream out;
  out << std::hex << OptParenMatchColor << ' ' << OptMarkParens;
  for (const TColor color : OptBlockHiliteColors)
    out << ' ' << color;
  out << ' ' << OptShowLineNumbers << OptLinesInGutter << OptBlockHiliteKey << OptMarkAllBlocks << OptMarkBlocks
      << OptShowNavBar << OptBlockBrackets << OptUnevenBrackets << ' ' << OptLineNumberColor << ' '
      << OptGutterSeparator << OptLineNumbersLeft << OptFlyoutBar << OptEnableTemplates << " '" << OptTemplateKey
      << "' '" << OptStorageDir << "' " << OptLineWidth << OptSyntaxCheck.load() << OptMarkerLive << ' '
      << OptMarkerHotkey << ' ' << OptFlyoutDelay;
  return out.str();
}

const char* const kDesignedGlobals = "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 211 a030 7d0";

using QVOptionsFormTest = OptionsFormTest;

TEST_F(QVOptionsFormTest, AFreshUserGetsTheDesignedDefaults) {
  StartQVOptions();
  EXPECT_EQ(Globals(), kDesignedGlobals);
  EXPECT_EQ(Stored(), "") << "nothing is stored before the first stop";
  StopQVOptions();
  EXPECT_EQ(Stored(), kDesignedFile);
}

TEST_F(QVOptionsFormTest, StopsWithItsLineAndWithoutAStorageFolder) {
  Store("\"StorageDir\"=\"/srv/templates\"\n");
  StartQVOptions();
  EXPECT_EQ(OptStorageDir, "/srv/templates");
  EXPECT_EQ(Debug.Take(), std::vector<std::string>{});
  StopQVOptions();
  EXPECT_EQ(Debug.Take(), std::vector<std::string>{"QVOptions Finalized"});
  EXPECT_EQ(OptStorageDir, "");
  EXPECT_EQ(QVOptionsForm, nullptr);
}

TEST_F(QVOptionsFormTest, LoadsWhatIsStored) {
  Store("\"LineNumbers\"=dword:00000000\n\"ParenColor\"=dword:00ff0000\n\"BlockIndex\"=dword:00000002\n"
        "\"LineWidth\"=dword:00000007\n\"MarkerHotKey\"=\"Ctrl+F9\"\n\"TemplateKey\"=dword:0000003d\n");
  StartQVOptions();
  EXPECT_EQ(Globals(), "ff0000 1 ccffcc eeddcc ddccdd ccccff 00000110 0 1111 '=' '' 711 4078 7d0");
  EXPECT_FALSE(Control<QCheckBox>("ShowLineNumbersCheck").isChecked());
  EXPECT_EQ(Control<TColorBtn>("ParenColorBox").ActiveColor(), 0xFF0000);
  EXPECT_EQ(Control<TRadioGroup>("BlockMarkerGroup").ItemIndex(), 2);
  EXPECT_EQ(Control<QSpinBox>("LineWidthSpin").value(), 7);
  EXPECT_EQ(Control<THotKey>("MarkerActivateHotkey").text(), QStringLiteral("Ctrl+F9"));
  EXPECT_EQ(Control<QLineEdit>("TemplateKeyEdit").text(), QStringLiteral("="));
}

TEST_F(QVOptionsFormTest, TemplatesComeUpAsTheFlyoutBarIs) {
  Store("\"FlyoutBar\"=dword:00000001\n\"EnableTemplates\"=dword:00000000\n");
  StartQVOptions();
  EXPECT_TRUE(OptEnableTemplates);
  StopQVOptions();
  Store("\"FlyoutBar\"=dword:00000000\n\"EnableTemplates\"=dword:00000001\n");
  StartQVOptions();
  EXPECT_FALSE(OptEnableTemplates);
}

TEST_F(QVOptionsFormTest, TemplatesKeepTheirDefaultWhenTheyAreNotStored) {
  Store("\"FlyoutBar\"=dword:00000000\n");
  StartQVOptions();
  EXPECT_TRUE(OptEnableTemplates);
}

TEST_F(QVOptionsFormTest, AValueOfTheWrongTypeLeavesTheDefaultAndIsToldOnce) {
  Store("\"LineWidth\"=\"seven\"\n\"MarkParens\"=dword:00000000\n");
  StartQVOptions();
  EXPECT_EQ(OptLineWidth, 2);
  EXPECT_FALSE(OptMarkParens) << "the others are read";
  const std::vector<std::string> lines = Debug.Take();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines.front().find("\"LineWidth\""), std::string::npos) << lines.front();
}

TEST_F(QVOptionsFormTest, AFlyoutBarOfTheWrongTypeIsToldOnceThoughTemplatesAreReadFromItToo) {
  Store("\"FlyoutBar\"=\"yes\"\n\"EnableTemplates\"=dword:00000001\n");
  StartQVOptions();
  EXPECT_TRUE(OptEnableTemplates);
  const std::vector<std::string> lines = Debug.Take();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines.front().find("\"FlyoutBar\""), std::string::npos) << lines.front();
}

TEST_F(QVOptionsFormTest, TemplatesWithoutAFlyoutBarToBeReadFromAreNothingToTell) {
  Store("\"EnableTemplates\"=dword:00000000\n");
  StartQVOptions();
  EXPECT_TRUE(OptEnableTemplates);
  EXPECT_EQ(Debug.Take(), std::vector<std::string>{});
}

TEST_F(QVOptionsFormTest, AStoredTemplateKeySurvivesEditingInTheDialog) {
  Store("\"TemplateKey\"=dword:0000003d\n");
  for (int round = 0; round < 3; ++round) {
    StartQVOptions();
    EXPECT_EQ(OptTemplateKey, '=') << round;
    OpenAndOK([] { Type("TemplateKeyEdit", QStringLiteral("x")); });
    EXPECT_EQ(OptTemplateKey, 'x') << round;
    StopQVOptions();
  }
  EXPECT_TRUE(Stored().contains("\"TemplateKey\"=dword:0000003d\n"));
}

TEST_F(QVOptionsFormTest, TheStorageFolderIsNeverWritten) {
  StartQVOptions();
  OptStorageDir = "/somewhere";
  StopQVOptions();
  EXPECT_EQ(Stored(), kDesignedFile);
}

TEST_F(QVOptionsFormTest, OKAfterClearingTheTemplateKeyMakesItABlank) {
  StartQVOptions();
  OpenAndOK([] { Type("TemplateKeyEdit", QStringLiteral("x")); });
  ASSERT_EQ(OptTemplateKey, 'x');
  OpenAndOK([] { Type("TemplateKeyEdit", QString()); });
  EXPECT_EQ(OptTemplateKey, ' ');
  EXPECT_EQ(Control<QLineEdit>("TemplateKeyEdit").text(), QStringLiteral(" "));
}

TEST_F(QVOptionsFormTest, OfATemplateKeyOnlyTheFirstCharacterCounts) {
  StartQVOptions();
  OpenAndOK([] { Type("TemplateKeyEdit", QStringLiteral("§ab")); });
  EXPECT_EQ(OptTemplateKey, '\xA7');
}

TEST_F(QVOptionsFormTest, ATemplateKeyOfMoreThanOneByteCannotBeTyped) {
  StartQVOptions();
  OpenAndOK([] { Type("TemplateKeyEdit", QStringLiteral("\u20ACa")); });
  EXPECT_EQ(OptTemplateKey, 'a');
}

// One control: how a user changes it, and what the file holds then in place of a line of the designed one.
struct TChange {
  const char* Control;
  std::function<void()> Act;
  const char* Globals;
  QByteArray Before;
  QByteArray After;

  friend void PrintTo(const TChange& change, std::ostream* out) { *out << change.Control; }
};

class QVOptionsFormChange : public OptionsFormTest, public testing::WithParamInterface<TChange> {
public:
  static std::vector<TChange> All();

protected:
  static QByteArray FileAfter(const TChange& change) {
    QByteArray file = kDesignedFile;
    return change.Before.isEmpty() ? file : file.replace(change.Before + "\n", change.After + "\n");
  }
};

std::vector<TChange> QVOptionsFormChange::All() {
  const auto flag = [](const char* control, const char* value, bool before, const char* globals) {
    const QByteArray name = QByteArray("\"") + value + "\"=dword:0000000";
    return TChange{control, [control] { Toggle(control); }, globals, name + (before ? "1" : "0"),
                   name + (before ? "0" : "1")};
  };
  const auto item = [](const char* control, const char* value, int index, const char* globals) {
    const QByteArray name = QByteArray("\"") + value + "\"=dword:0000000";
    return TChange{control, [control, index] { Choose(control, index); }, globals, name + "0",
                   name + QByteArray::number(index)};
  };
  constexpr int red = 18; // 0x0000FF among the fixed colours
  const auto color = [](const char* control, const char* value, const char* before, const char* globals) {
    const QByteArray name = QByteArray("\"") + value + "\"=dword:00";
    return TChange{control, [control] { Pick(control, red); }, globals, name + before, name + "0000ff"};
  };
  return {
      flag("EnableTemplatesCheck", "EnableTemplates", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1110 ' ' '' 211 a030 7d0"),
      {"TemplateKeyEdit",
       [] { Type("TemplateKeyEdit", QStringLiteral("#")); },
       "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 '#' '' 211 a030 7d0",
       {},
       {}},
      flag("ShowLineNumbersCheck", "LineNumbers", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 00001110 0 1111 ' ' '' 211 a030 7d0"),
      flag("SecondGutterCheck", "LinesInSecondGutter", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 11001110 0 1111 ' ' '' 211 a030 7d0"),
      flag("GutterSeparatorCheck", "GutterSeparator", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 0111 ' ' '' 211 a030 7d0"),
      flag("LineNumbersLeftCheck", "LineNumbersLeft", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1011 ' ' '' 211 a030 7d0"),
      color("LineNumberColorBox", "LineNumberColor", "000000",
            "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 ff 1111 ' ' '' 211 a030 7d0"),
      flag("ShowNavBarCheck", "ShowToolbar", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001010 0 1111 ' ' '' 211 a030 7d0"),
      flag("LiveSyntaxCheckCheck", "SyntaxCheck", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 201 a030 7d0"),
      item("BlockMarkerGroup", "BlockIndex", 1,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10011110 0 1111 ' ' '' 211 a030 7d0"),
      item("BlockMarkerGroup", "BlockIndex", 2,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10000110 0 1111 ' ' '' 211 a030 7d0"),
      item("BlockMarkerShapeGroup", "BlockShape", 1,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001100 0 1111 ' ' '' 211 a030 7d0"),
      flag("UnevenBracketsCheck", "UnevenBrackets", false,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001111 0 1111 ' ' '' 211 a030 7d0"),
      color("BlockColorBox1", "BlockColor1", "ccffcc",
            "c0c0c0 1 ff eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 211 a030 7d0"),
      color("BlockColorBox2", "BlockColor2", "eeddcc",
            "c0c0c0 1 ccffcc ff ddccdd ccccff 10001110 0 1111 ' ' '' 211 a030 7d0"),
      color("BlockColorBox3", "BlockColor3", "ddccdd",
            "c0c0c0 1 ccffcc eeddcc ff ccccff 10001110 0 1111 ' ' '' 211 a030 7d0"),
      color("BlockColorBox4", "BlockColor4", "ccccff",
            "c0c0c0 1 ccffcc eeddcc ddccdd ff 10001110 0 1111 ' ' '' 211 a030 7d0"),
      {"LineWidthSpin", [] { Count("LineWidthSpin", 9); },
       "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 911 a030 7d0", "\"LineWidth\"=dword:00000002",
       "\"LineWidth\"=dword:00000009"},
      item("MarkerActivationGroup", "MarkerLive", 1,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 210 a030 7d0"),
      {"MarkerActivateHotkey", [] { Press("MarkerActivateHotkey", Qt::Key_M, Qt::ControlModifier); },
       "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 211 404d 7d0", "\"MarkerHotKey\"=\"Shift+Alt+0\"",
       "\"MarkerHotKey\"=\"Ctrl+M\""},
      flag("MarkParensCheck", "MarkParens", true,
           "c0c0c0 0 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 211 a030 7d0"),
      color("ParenColorBox", "ParenColor", "c0c0c0",
            "ff 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 211 a030 7d0"),
      flag("ShowFlyoutBarCheck", "FlyoutBar", true,
           "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1101 ' ' '' 211 a030 7d0"),
      {"FlyDelaySpin", [] { Count("FlyDelaySpin", 9999); },
       "c0c0c0 1 ccffcc eeddcc ddccdd ccccff 10001110 0 1111 ' ' '' 211 a030 270f", "\"FlyoutDelay\"=dword:000007d0",
       "\"FlyoutDelay\"=dword:0000270f"},
  };
}

INSTANTIATE_TEST_SUITE_P(Controls, QVOptionsFormChange, testing::ValuesIn(QVOptionsFormChange::All()));

TEST_P(QVOptionsFormChange, IsInItsGlobalAfterOKAndInItsValueAfterTheStop) {
  StartQVOptions();
  OpenAndOK([] { GetParam().Act(); });
  EXPECT_EQ(Globals(), GetParam().Globals);
  EXPECT_EQ(Stored().indexOf("QVIDE"), -1) << "only the stop saves";
  StopQVOptions();
  EXPECT_TRUE(Stored().endsWith(FileAfter(GetParam()).mid(kHeader.size()))) << Stored().constData();
}

TEST_P(QVOptionsFormChange, IsInNoGlobalAfterCancelButInItsValueAfterTheStop) {
  StartQVOptions();
  OpenAndCancel([] { GetParam().Act(); });
  EXPECT_EQ(Globals(), kDesignedGlobals);
  StopQVOptions();
  EXPECT_TRUE(Stored().endsWith(FileAfter(GetParam()).mid(kHeader.size()))) << Stored().constData();
}

TEST_P(QVOptionsFormChange, IsStillShownAfterCancelAndCountsWithTheNextOK) {
  StartQVOptions();
  OpenAndCancel([] { GetParam().Act(); });
  OpenAndOK();
  EXPECT_EQ(Globals(), GetParam().Globals);
}

TEST_F(QVOptionsFormTest, EveryControlIsAmongTheChanges) {
  for (const TQVOptionRow& row : QVOptionTable) {
    const std::vector<TChange> changes = QVOptionsFormChange::All();
    EXPECT_TRUE(row.Control.empty() ||
                std::ranges::any_of(changes, [&](const TChange& change) { return row.Control == change.Control; }))
        << row.Control;
  }
}

TEST_F(QVOptionsFormTest, ClosingTheWindowIsCancel) {
  StartQVOptions();
  Open([&](TQVOptionsForm& form) {
    Toggle("MarkParensCheck");
    form.close();
  });
  EXPECT_TRUE(OptMarkParens);
  EXPECT_EQ(QVOptionsForm->result(), TQVOptionsForm::mrCancel);
}

TEST_F(QVOptionsFormTest, ItsButtonsGiveTheModalResults) {
  StartQVOptions();
  OpenAndOK();
  EXPECT_EQ(QVOptionsForm->result(), 1);
  OpenAndCancel();
  EXPECT_EQ(QVOptionsForm->result(), 2);
}

TEST_F(QVOptionsFormTest, OpensWithTheFirstPageAndThenWithTheOneShownLast) {
  StartQVOptions();
  Open([&](TQVOptionsForm& form) {
    EXPECT_EQ(Pages().currentIndex(), 0);
    Pages().setCurrentIndex(1);
    form.reject();
  });
  Open([&](TQVOptionsForm& form) {
    EXPECT_EQ(Pages().currentIndex(), 1);
    form.accept();
  });
  EXPECT_EQ(Pages().currentIndex(), 1);
}

TEST_F(QVOptionsFormTest, EscapeInAnOpenPaletteClosesThePaletteOnly) {
  StartQVOptions();
  Open([&](TQVOptionsForm& form) {
    auto& button = Control<TColorBtn>("ParenColorBox");
    Reach(button);
    button.DropDown();
    ASSERT_NE(button.Palette(), nullptr);
    QTest::keyClick(button.Palette(), Qt::Key_Escape);
    EXPECT_EQ(button.Palette(), nullptr);
    EXPECT_TRUE(form.isVisible());
    form.reject();
  });
}

TEST_F(QVOptionsFormTest, MenuItemStandsDirectlyAboveTheGallery) {
  StartQVOptions();
  EXPECT_EQ(MainForm.ToolsTexts(),
            (QStringList{QStringLiteral("First"), QStringLiteral("Virelle Options..."), QStringLiteral("Gallery")}));
  StopQVOptions();
  EXPECT_EQ(MainForm.ToolsTexts(), (QStringList{QStringLiteral("First"), QStringLiteral("Gallery")}));
}

TEST_F(QVOptionsFormTest, StartsAndStopsAHundredTimesLeavingNothingBehind) {
  const qsizetype windows = QApplication::topLevelWidgets().size();
  for (int round = 0; round < 100; ++round) {
    StartQVOptions();
    ASSERT_EQ(OptMarkParens, round % 2 == 0) << "the last round was saved";
    Control<QCheckBox>("MarkParensCheck").toggle();
    StopQVOptions();
    ASSERT_EQ(MainForm.ToolsTexts().size(), 2) << round;
    ASSERT_EQ(QApplication::topLevelWidgets().size(), windows) << round;
  }
  EXPECT_EQ(Stored(), kDesignedFile);
}

// What an assertion of a start says; "" if it raised none.
std::string StartAssertion() {
  try {
    StartQVOptions();
  } catch (const platform::EAssertionFailed& assertion) {
    return assertion.what();
  }
  return {};
}

// What a host lacks, and what the start says then.
struct TLack {
  const char* What;
  void (*TakeAway)(fakes::FakeMainForm&);
  const char* Assertion;

  friend void PrintTo(const TLack& lack, std::ostream* out) { *out << lack.What; }
};

class QVOptionsFormLack : public OptionsFormTest, public testing::WithParamInterface<TLack> {};
INSTANTIATE_TEST_SUITE_P(
    Of, QVOptionsFormLack,
    testing::Values(TLack{"MainForm", [](fakes::FakeMainForm&) { platform::Application().SetMainForm(nullptr); },
                          "Assertion failure (QVOptions, line 293)"},
                    TLack{"ToolsMenu",
                          [](fakes::FakeMainForm& form) { form.Tools().setObjectName(QStringLiteral("Other")); },
                          "Assertion failure (QVOptions, line 295)"},
                    TLack{"GalleryItem",
                          [](fakes::FakeMainForm& form) { form.Gallery().setObjectName(QStringLiteral("Other")); },
                          "Assertion failure (QVOptions, line 297)"}),
    testing::PrintToStringParamName());

TEST_P(QVOptionsFormLack, IsAssertedAndLeavesNoDialogAndTheMenuAsItWas) {
  GetParam().TakeAway(MainForm);
  EXPECT_EQ(StartAssertion(), GetParam().Assertion);
  EXPECT_EQ(QVOptionsForm, nullptr);
  EXPECT_EQ(MainForm.ToolsTexts(), (QStringList{QStringLiteral("First"), QStringLiteral("Gallery")}));
}

// So options are loaded, then the menu item is made, and only then the globals follow.
TEST_P(QVOptionsFormLack, IsFoundAfterLoadingAndBeforeAnyGlobalFollows) {
  Store("\"LineWidth\"=dword:00000007\n\"MarkParens\"=\"no\"\n");
  GetParam().TakeAway(MainForm);
  EXPECT_EQ(StartAssertion(), GetParam().Assertion);
  EXPECT_EQ(Debug.Take().size(), 1U) << "the value that cannot be read";
  EXPECT_EQ(OptLineWidth, 2);
}

TEST_P(QVOptionsFormLack, LeavesNoStorageFolder) {
  Store("\"StorageDir\"=\"/srv/templates\"\n");
  GetParam().TakeAway(MainForm);
  EXPECT_EQ(StartAssertion(), GetParam().Assertion);
  EXPECT_EQ(OptStorageDir, "");
}

TEST_F(QVOptionsFormTest, AStartThatFailsSavesNothing) {
  platform::Application().SetMainForm(nullptr);
  StartAssertion();
  EXPECT_EQ(Stored(), "");
}

TEST_F(QVOptionsFormTest, EditShowsTheTemplateEditorAboveTheDialog) {
  StartQVTemplateEditor();
  StartQVOptions();
  OpenAndCancel([] {
    const support::ModalAnswer<TQVTemplateEditorForm> answer([](TQVTemplateEditorForm& form) {
      EXPECT_EQ(&form, QVTemplateEditorForm);
      EXPECT_EQ(form.windowHandle()->transientParent(), QVOptionsForm->windowHandle());
      form.reject();
    });
    Button("EditTemplatesBtn").click();
    EXPECT_TRUE(QVOptionsForm->isVisible());
  });
  StopQVOptions();
  StopQVTemplateEditor();
}

TEST_F(QVOptionsFormTest, EditWithoutATemplateEditorDoesNothing) {
  StartQVOptions();
  OpenAndCancel([] { Button("EditTemplatesBtn").click(); });
}

TEST_F(QVOptionsFormTest, AFolderThatCannotBeWrittenIsReportedAtTheStop) {
  const support::LowerRights user(Folder.path());
  StartQVOptions();
  QFile::setPermissions(Folder.path(), QFile::ReadOwner | QFile::ExeOwner);
  StopQVOptions();
  QFile::setPermissions(Folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const std::vector<std::string> reported = TakeReported();
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_NE(reported.front().find("cannot be written"), std::string::npos) << reported.front();
  EXPECT_EQ(MainForm.ToolsTexts().size(), 2);
}

TEST_F(QVOptionsFormTest, WorksForAUserWithoutAHome) {
  const support::EnvironmentVariable config("XDG_CONFIG_HOME", std::nullopt);
  const support::EnvironmentVariable home("HOME", std::nullopt);
  StartQVOptions();
  EXPECT_EQ(Globals(), kDesignedGlobals);
  OpenAndOK([] { Toggle("MarkParensCheck"); });
  EXPECT_FALSE(OptMarkParens);
  StopQVOptions();
  EXPECT_EQ(TakeReported().size(), 1U);
}

} // namespace
} // namespace quorvane
