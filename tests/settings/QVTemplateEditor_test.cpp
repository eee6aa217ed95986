// SPDX-License-Identifier: MIT
// What the template editor does with the templates: its file, its questions and their order.
#include "settings/TemplateEditorFixture.h"

#include "platform/IniFile.h"

namespace quorvane {
namespace {

using QVTemplateEditorTest = TemplateEditorTest;

TEST_F(QVTemplateEditorTest, StartMakesTheFormAndTheSourceAndStopTakesThemAway) {
  Start();
  ASSERT_NE(QVTemplateEditorForm, nullptr);
  EXPECT_EQ(QVTemplateSource, QVTemplateEditorForm);
  EXPECT_EQ(Debug.Take(), Lines{});
  StopQVTemplateEditor();
  EXPECT_EQ(Debug.Take(), Lines{"QVTemplateEditor"});
  EXPECT_EQ(QVTemplateEditorForm, nullptr);
  EXPECT_EQ(QVTemplateSource, nullptr);
}

TEST_F(QVTemplateEditorTest, AFormThatIsFreedElsewhereIsNoSourceAnyMore) {
  Start();
  delete QVTemplateEditorForm;
  EXPECT_EQ(QVTemplateSource, nullptr);
  EXPECT_NO_THROW(StopQVTemplateEditor());
}

TEST_F(QVTemplateEditorTest, AMissingFileIsAnEmptyStoreThatOnlyAWriteMakes) {
  Start();
  Show([] { EXPECT_EQ(Names(), Lines{}); });
  EXPECT_FALSE(QFile::exists(Templates.FileName()));
  Show([] { Asked([] { Click("AddTemplateBtn"); }, {QStringLiteral("beg")}); });
  EXPECT_EQ(Templates.Read(), "[beg]\ncode=\n");
}

TEST_F(QVTemplateEditorTest, MakesTheSettingsKeyIfItIsMissing) {
  Start();
  platform::TRegistry registry;
  EXPECT_TRUE(registry.KeyExists("Software\\Vantrel\\QVIDE"));
}

TEST_F(QVTemplateEditorTest, ADirectoryWithoutSeparatorIsTheBeginningOfTheFilesName) {
  TemplateFolder::SetStorageDir(Templates.Path(QStringLiteral("Templates")));
  TemplateFolder::Write(Templates.Path(QStringLiteral("Templatestemplates.ini")), "[beg]\ncode=begin\n");
  Start();
  EXPECT_EQ(Names(), Lines{"beg"});
}

TEST_F(QVTemplateEditorTest, ADirectoryWithSeparatorIsOne) {
  TemplateFolder::SetStorageDir(Templates.Path(QStringLiteral("mine/")));
  TemplateFolder::Write(Templates.Path(QStringLiteral("mine/templates.ini")), "[beg]\ncode=begin\n");
  Start();
  EXPECT_EQ(Names(), Lines{"beg"});
}

TEST_F(QVTemplateEditorTest, ARelativeDirectoryCountsFromTheProgramDirectoryWithBackslashesAsCharacters) {
  TemplateFolder::SetStorageDir(QStringLiteral("C:\\Templates"));
  TemplateFolder::Write(Templates.Path(QStringLiteral("data/C:\\Templatestemplates.ini")), "[beg]\ncode=begin\n");
  Start();
  EXPECT_EQ(Names(), Lines{"beg"});
}

TEST_F(QVTemplateEditorTest, ReadsItsDirectoryFromTheRegistryAndNotFromTheOptions) {
  OptStorageDir = Templates.Path(QStringLiteral("other/")).toStdString();
  Start("[beg]\ncode=begin\n");
  EXPECT_EQ(Names(), Lines{"beg"});
}

TEST_F(QVTemplateEditorTest, ADirectoryOfAnotherTypeDoesNotCountAndIsTold) {
  platform::TRegistry registry;
  registry.OpenKey("Software\\Vantrel\\QVIDE", true);
  registry.WriteInteger("StorageDir", 7);
  registry.CloseKey();
  Start("[beg]\ncode=begin\n");
  EXPECT_EQ(Names(), Lines{"beg"});
  const Lines told = Debug.Take();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told.front().find("\"StorageDir\""), std::string::npos) << told.front();
}

TEST_F(QVTemplateEditorTest, WithoutAnyDirectoryThereIsNoFile) {
  platform::Application().SetProgramDirectory({});
  Start();
  EXPECT_EQ(Debug.Take(), Lines{"QVTemplateEditor: there is no directory for templates"});
  EXPECT_EQ(Names(), Lines{});
  EXPECT_EQ(QVTemplateEditorForm->GetTemplateContent(QStringLiteral("beg")), QString());
  EXPECT_THROW(QVTemplateEditorForm->SetTemplateContent(QStringLiteral("beg"), {}), platform::EIniFileException);
  Show([] {
    for (const char* name : {"AddTemplateBtn", "DeleteTemplateBtn", "TemplateRenameBtn"})
      EXPECT_FALSE(Button(name).isEnabled()) << name;
    EXPECT_FALSE(Button("AddExamplesBtn").isVisible());
  });
}

TEST_F(QVTemplateEditorTest, AChoiceWithoutAFileFailsItsCheck) {
  platform::Application().SetProgramDirectory({});
  Start();
  const platform::EAssertionFailed assertion = AssertionOf([] { QVTemplateEditorForm->TemplateListClick(); });
  EXPECT_STREQ(assertion.what(), "Assertion failure (QVTemplateEditor, line 122)");
}

TEST_F(QVTemplateEditorTest, ListsTheNamesInOrderWithoutCase) {
  Start("[while]\n[Beg]\n[case]\n[abc def=ü]\n");
  EXPECT_EQ(Names(), (Lines{"abc def=ü", "Beg", "case", "while"}));
}

TEST_F(QVTemplateEditorTest, AChosenTemplateShowsItsTextWithLineBreaks) {
  Start("[beg]\ncode=a\\b\n[empty]\n");
  Show([] {
    EXPECT_EQ(MemoText(), "");
    Choose(0);
    EXPECT_EQ(MemoText(), "a\nb");
    EXPECT_EQ(Memo().blockCount(), 2);
    Choose(1);
    EXPECT_EQ(MemoText(), "");
  });
}

TEST_F(QVTemplateEditorTest, AnUntouchedTextIsNotAskedFor) {
  Start("[a]\ncode=\"  begin\\\\  \xC2\xA0|\\\tend;  \"\n[b]\ncode=x\n[c]\n");
  Show(
      [] {
        Choose(0);
        EXPECT_EQ(Asked([] { Choose(1); }, {}), Lines{});
        EXPECT_EQ(Asked([] { Choose(2); }, {}), Lines{});
        EXPECT_EQ(Asked([] { Choose(0); }, {}), Lines{});
      },
      "OKBtn");
}

TEST_F(QVTemplateEditorTest, AnotherChoiceAsksForWhatWasTypedAndYesSavesIt) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([this] {
    Choose(0);
    Type(QStringLiteral("1\n 2"));
    EXPECT_EQ(Asked([] { Choose(1); }, {Yes}), Lines{"Save Changes To Template a?"});
    EXPECT_EQ(MemoText(), "y");
    EXPECT_EQ(Templates.Read(), "[a]\ncode=x1\\ 2\n[b]\ncode=y\n");
  });
}

TEST_F(QVTemplateEditorTest, AnotherChoiceForgetsWhatWasTypedAfterNo) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([this] {
    Choose(0);
    Type(QStringLiteral("1"));
    EXPECT_EQ(Asked([] { Choose(1); }, {No}), Lines{"Save Changes To Template a?"});
    Choose(0);
    EXPECT_EQ(MemoText(), "x");
    EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[b]\ncode=y\n");
  });
}

TEST_F(QVTemplateEditorTest, TheSameChoiceAgainAsksToo) {
  Start("[a]\ncode=x\n");
  Show([] {
    Choose(0);
    Type(QStringLiteral("1"));
    EXPECT_EQ(Asked([] { Choose(0); }, {No}), Lines{"Save Changes To Template a?"});
    EXPECT_EQ(MemoText(), "x");
  });
}

TEST_F(QVTemplateEditorTest, CaseCountsInTheText) {
  Start("[a]\ncode=x\n");
  Show([] {
    Choose(0);
    Memo().clear();
    Type(QStringLiteral("X"));
    EXPECT_EQ(Asked([] { Choose(0); }, {Yes}), Lines{"Save Changes To Template a?"});
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=X\n");
}

TEST_F(QVTemplateEditorTest, QuestionsAreWarningsWithYesAndNoAndEscapeIsNo) {
  Start("[a]\ncode=x\n[b]\n");
  Show([] {
    Choose(0);
    Type(QStringLiteral("1"));
    const support::ModalAnswer<QMessageBox> answer([](QMessageBox& box) {
      EXPECT_EQ(box.icon(), QMessageBox::Warning);
      EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
      QTest::keyClick(&box, Qt::Key_Escape);
    });
    Choose(1);
    EXPECT_EQ(MemoText(), "") << "what was typed is forgotten";
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[b]\n");
}

TEST_F(QVTemplateEditorTest, OKAsksAndYesSaves) {
  Start("[a]\ncode=x\n");
  EXPECT_EQ(Show([] {
              Choose(0);
              Type(QStringLiteral("1"));
              EXPECT_EQ(Asked([] { Click("OKBtn"); }, {Yes}), Lines{"Save Changes To Template a?"});
            }),
            TQVTemplateEditorForm::mrOk);
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x1\n");
}

TEST_F(QVTemplateEditorTest, OKAsksAndNoDiscards) {
  Start("[a]\ncode=x\n");
  Show([] {
    Choose(0);
    Type(QStringLiteral("1"));
    Asked([] { Click("OKBtn"); }, {No});
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
}

TEST_F(QVTemplateEditorTest, CancelEscapeAndTheCloseButtonDiscardWithoutAsking) {
  const std::pair<const char*, std::function<void()>> ends[] = {
      {"Cancel", [] { Click("CancelBtn"); }},
      {"Escape in the text", [] { QTest::keyClick(&Memo(), Qt::Key_Escape); }},
      {"Escape in the list", [] { QTest::keyClick(&List(), Qt::Key_Escape); }},
      {"close", [] { QVTemplateEditorForm->close(); }},
  };
  for (const auto& end : ends) {
    SCOPED_TRACE(end.first);
    Start("[a]\ncode=x\n");
    EXPECT_EQ(Show([&] {
                Choose(0);
                Type(QStringLiteral("1"));
                EXPECT_EQ(Asked(end.second, {}), Lines{});
                EXPECT_FALSE(QVTemplateEditorForm->isVisible());
              }),
              TQVTemplateEditorForm::mrCancel);
    EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
    StopQVTemplateEditor();
  }
}

TEST_F(QVTemplateEditorTest, IsShownWithWhatOtherProgramsHaveWrittenMeanwhile) {
  Start("[a]\ncode=x\n");
  Show([] {
    EXPECT_EQ(Names(), Lines{"a"});
    Choose(0);
    EXPECT_EQ(MemoText(), "x");
  });
  Templates.Write("[b]\ncode=new\n[a]\ncode=y\n");
  EXPECT_FALSE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("b"))) << "the list is that of the last showing";
  Show([] {
    EXPECT_EQ(Names(), (Lines{"a", "b"}));
    Asked([] { Choose(0); }, {No});
    EXPECT_EQ(MemoText(), "y");
  });
  EXPECT_TRUE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("b")));
}

TEST_F(QVTemplateEditorTest, KeepsItsTemplateBetweenShowingsButNotTheText) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([] { Choose(0); });
  Show([] {
    EXPECT_EQ(MemoText(), "");
    EXPECT_EQ(List().SelectedRow(), -1);
    EXPECT_EQ(Asked([] { Click("OKBtn"); }, {No}), Lines{"Save Changes To Template a?"});
  });
  Show([] { EXPECT_EQ(Asked([] { Choose(1); }, {Yes}), Lines{"Save Changes To Template a?"}); });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=\n[b]\ncode=y\n");
}

TEST_F(QVTemplateEditorTest, WithoutATemplateThereIsNothingToTypeInto) {
  Start("[a]\ncode=x\n");
  Show(
      [] {
        EXPECT_FALSE(Memo().isEnabled());
        EXPECT_FALSE(Button("DeleteTemplateBtn").isEnabled());
        EXPECT_FALSE(Button("TemplateRenameBtn").isEnabled());
        EXPECT_TRUE(Button("AddTemplateBtn").isEnabled());
        Choose(0);
        EXPECT_TRUE(Memo().isEnabled());
        EXPECT_TRUE(Button("DeleteTemplateBtn").isEnabled());
        EXPECT_TRUE(Button("TemplateRenameBtn").isEnabled());
      },
      "OKBtn");
}

TEST_F(QVTemplateEditorTest, TextSurvivesWithBlanksAtItsEndsAndLettersOfAnyAlphabet) {
  const QString text = QStringLiteral("  begin\n\t\u00A0| := 'Grüße \u20AC \U0001F600';\n~~end;  ");
  Start("[a]\n");
  Show([&] {
    Choose(0);
    Memo().setPlainText(text);
    EXPECT_EQ(Asked([] { Choose(0); }, {Yes}).size(), 1U);
    EXPECT_EQ(Asked([] { Choose(0); }, {}), Lines{}) << "what was saved is what is shown";
  });
  EXPECT_EQ(QVTemplateEditorForm->GetTemplateContent(QStringLiteral("a")), QString(text).replace(u'\n', u'\\'));
}

TEST_F(QVTemplateEditorTest, ABackslashIsALineBreakWhenTheTemplateIsShownAgain) {
  Start("[a]\n");
  Show([] {
    Choose(0);
    Type(QStringLiteral("x\\y"));
    Asked([] { Choose(0); }, {Yes});
    EXPECT_EQ(MemoText(), "x\ny");
  });
}

TEST_F(QVTemplateEditorTest, ShiftReturnBreaksTheLineAsReturnDoes) {
  Start("[a]\n");
  Show([] {
    Choose(0);
    Type(QStringLiteral("x"));
    QTest::keyClick(&Memo(), Qt::Key_Return, Qt::ShiftModifier);
    Type(QStringLiteral("y"));
    Asked([] { Choose(0); }, {Yes});
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\\y\n");
}

TEST_F(QVTemplateEditorTest, ATemplateOfAHundredThousandCharactersIsEditedWhole) {
  const QByteArray code = QByteArray("x := y;\\").repeated(12500);
  Start("[a]\ncode=" + code + "\n");
  Show([&] {
    Choose(0);
    EXPECT_EQ(Memo().blockCount(), 12501);
    EXPECT_EQ(Asked([] { Choose(0); }, {}), Lines{});
    Type(QStringLiteral("end"));
    Asked([] { Choose(0); }, {Yes});
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=" + code + "end\n");
}

TEST_F(QVTemplateEditorTest, TenThousandTemplatesAreListedInOrderAndEachCanBeChosen) {
  QByteArray file;
  for (int index = 9999; index >= 0; --index)
    file += "[t" + QByteArray::number(10000 + index) + "]\ncode=text " + QByteArray::number(index) + "\n";
  Start(file);
  Show([] {
    const Lines names = Names();
    ASSERT_EQ(names.size(), 10000U);
    EXPECT_TRUE(std::ranges::is_sorted(names));
    Choose(9999);
    EXPECT_EQ(MemoText(), "text 9999");
    Choose(5000);
    EXPECT_EQ(MemoText(), "text 5000");
  });
  EXPECT_TRUE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("T12345")));
}

} // namespace
} // namespace quorvane
