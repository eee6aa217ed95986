// SPDX-License-Identifier: MIT
// Adding, deleting and renaming templates, and the examples.
#include "settings/TemplateEditorFixture.h"

#include "settings/model/QVTemplateExamples.h"

namespace quorvane {
namespace {

class QVTemplateEditorButtons : public TemplateEditorTest {
protected:
  // Whether the button for the examples is shown, or hidden, when the tool bar has been laid out.
  static bool ExamplesBecome(bool visible) {
    return support::waitUntil([visible] { return Button("AddExamplesBtn").isVisible() == visible; });
  }
};

const char* const kNewQuestion = "New Template, New Template Name: []";

QString Text(const char* text) {
  return QString::fromUtf8(text);
}

TEST_F(QVTemplateEditorButtons, AddMakesAnEmptyTemplateAndChoosesIt) {
  Start("[a]\ncode=x\n[c]\n");
  Show([this] {
    Choose(0);
    EXPECT_EQ(Asked([] { Click("AddTemplateBtn"); }, {Text("b")}), Lines{kNewQuestion});
    EXPECT_EQ(Names(), (Lines{"a", "b", "c"}));
    EXPECT_EQ(List().SelectedName(), Text("b"));
    EXPECT_EQ(MemoText(), "");
    EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[c]\n[b]\ncode=\n");
    Type(QStringLiteral("y"));
    EXPECT_EQ(Asked([] { Choose(0); }, {Yes}), Lines{"Save Changes To Template b?"});
  });
}

TEST_F(QVTemplateEditorButtons, AddAsksForTheTextBeforeAfterTheNewTemplateIsMade) {
  Start("[a]\ncode=x\n");
  Show([this] {
    Choose(0);
    Type(QStringLiteral("1"));
    const support::ModalAnswer<QInputDialog> name([](QInputDialog& input) {
      input.setTextValue(QStringLiteral("b"));
      input.accept();
    });
    const support::ModalAnswer<QMessageBox> save([this](QMessageBox& box) {
      EXPECT_EQ(box.text(), QStringLiteral("Save Changes To Template a?"));
      EXPECT_EQ(Names(), (Lines{"a", "b"}));
      EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[b]\ncode=\n");
      support::clickButton(box, Yes);
    });
    Click("AddTemplateBtn");
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x1\n[b]\ncode=\n");
}

TEST_F(QVTemplateEditorButtons, AddWithoutANameOrCancelledChangesNothing) {
  Start("[a]\ncode=x\n");
  Show([this] {
    Choose(0);
    Type(QStringLiteral("1"));
    EXPECT_EQ(Asked([] { Click("AddTemplateBtn"); }, {Text("")}), Lines{kNewQuestion});
    EXPECT_EQ(Asked([] { Click("AddTemplateBtn"); }, {std::nullopt}), Lines{kNewQuestion});
    EXPECT_EQ(MemoText(), "x1");
    EXPECT_EQ(List().SelectedName(), Text("a"));
    EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
  });
}

TEST_F(QVTemplateEditorButtons, AddUnderANameThatExistsEmptiesThatTemplate) {
  Start("[Beg]\ncode=x\n");
  Show([] {
    Asked([] { Click("AddTemplateBtn"); }, {Text("beg")});
    EXPECT_EQ(Names(), Lines{"Beg"});
    EXPECT_EQ(List().SelectedName(), Text("Beg"));
    EXPECT_EQ(MemoText(), "");
  });
  EXPECT_EQ(Templates.Read(), "[Beg]\ncode=\n");
}

TEST_F(QVTemplateEditorButtons, NamesThatAFileCannotHoldAreRefusedWithAMessage) {
  Start("[a]\ncode=x\n");
  const std::pair<const char*, const char*> refused[] = {
      {"a]b", "The name of a template cannot have a \"]\"."},
      {"a\nb", "The name of a template cannot have a line break."},
      {"a\rb", "The name of a template cannot have a line break."},
      {"   ", "The name of a template cannot be blank."},
  };
  Show([&] {
    Choose(0);
    for (const auto& [name, message] : refused) {
      EXPECT_EQ(Asked([] { Click("AddTemplateBtn"); }, {Text(name), Ok}), (Lines{kNewQuestion, message}));
      EXPECT_EQ(Asked([] { Click("TemplateRenameBtn"); }, {Text(name), Ok}),
                (Lines{"Rename Template, Rename Template a [a]", message}));
    }
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
}

TEST_F(QVTemplateEditorButtons, NamesMayHaveAlmostAnyCharacterAndLoseTheBlanksAround) {
  const char* const names[] = {"a=b", "a b", "größe", "[x", ";c", "<b>bold</b>", "R&D", "%1", "ключ"};
  Start();
  Show([&] {
    for (const char* name : names) {
      SCOPED_TRACE(name);
      Asked([&] { Click("AddTemplateBtn"); }, {Text(name).prepend(u' ').append(u"  ")});
      EXPECT_EQ(List().SelectedName(), Text(name));
      Type(QStringLiteral("x"));
      EXPECT_EQ(Asked([&] { Choose(List().SelectedRow()); }, {Yes}),
                Lines{std::string("Save Changes To Template ") + name + "?"});
      EXPECT_EQ(QVTemplateEditorForm->GetTemplateContent(Text(name)), QStringLiteral("x"));
      EXPECT_TRUE(QVTemplateEditorForm->IsTemplateName(Text(name)));
    }
    EXPECT_EQ(List().count(), 9);
  });
}

TEST_F(QVTemplateEditorButtons, QuestionsShowNamesAsTheyAre) {
  Start("[<b>R&D</b>]\n");
  Show([] {
    Choose(0);
    {
      const support::ModalAnswer<QInputDialog> rename([](QInputDialog& input) {
        const auto* const label = input.findChild<QLabel*>();
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), QStringLiteral("Rename Template <b>R&&D</b>")) << "a double & stands for one";
        input.reject();
      });
      Click("TemplateRenameBtn");
    }
    const support::ModalAnswer<QMessageBox> remove([](QMessageBox& box) {
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.text(), QStringLiteral("Delete Template <b>R&D</b>?"));
      box.reject();
    });
    Click("DeleteTemplateBtn");
  });
}

TEST_F(QVTemplateEditorButtons, DeleteAsksAndNoKeepsTheTemplate) {
  Start("[a]\ncode=x\n");
  Show([] {
    Choose(0);
    EXPECT_EQ(Asked([] { Click("DeleteTemplateBtn"); }, {No}), Lines{"Delete Template a?"});
    EXPECT_EQ(Names(), Lines{"a"});
    EXPECT_EQ(MemoText(), "x");
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
}

TEST_F(QVTemplateEditorButtons, DeleteAsksToSaveTheTextOfTheDeletedTemplateAndNoLeavesItDeleted) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([] {
    Choose(1);
    EXPECT_EQ(Asked([] { Click("DeleteTemplateBtn"); }, {Yes, No}),
              (Lines{"Delete Template b?", "Save Changes To Template b?"}));
    EXPECT_EQ(Names(), Lines{"a"});
    EXPECT_EQ(List().SelectedName(), Text("a"));
    EXPECT_EQ(MemoText(), "x");
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
}

TEST_F(QVTemplateEditorButtons, YesBringsTheDeletedTemplateBackForTheNextLoading) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([] {
    Choose(1);
    Asked([] { Click("DeleteTemplateBtn"); }, {Yes, Yes});
    EXPECT_EQ(Names(), Lines{"a"});
    EXPECT_EQ(MemoText(), "x");
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[b]\ncode=y\n");
  QVTemplateEditorForm->LoadTemplates();
  EXPECT_EQ(Names(), (Lines{"a", "b"}));
}

TEST_F(QVTemplateEditorButtons, AnEmptyTemplateIsDeletedWithOneQuestion) {
  Start("[a]\n[b]\n");
  Show([] {
    Choose(1);
    EXPECT_EQ(Asked([] { Click("DeleteTemplateBtn"); }, {Yes}), Lines{"Delete Template b?"});
  });
  EXPECT_EQ(Templates.Read(), "[a]\n");
}

TEST_F(QVTemplateEditorButtons, DeleteChoosesTheTemplateBeforeOrElseTheFirst) {
  Start("[a]\n[b]\n[c]\n[d]\n");
  Show([] {
    Choose(2);
    Asked([] { Click("DeleteTemplateBtn"); }, {Yes});
    EXPECT_EQ(List().SelectedName(), Text("b"));
    Choose(0);
    Asked([] { Click("DeleteTemplateBtn"); }, {Yes});
    EXPECT_EQ(List().SelectedName(), Text("b"));
    EXPECT_EQ(Names(), (Lines{"b", "d"}));
  });
}

TEST_F(QVTemplateEditorButtons, DeletingTheLastTemplateLeavesNoneChosen) {
  Start("[a]\ncode=x\n");
  Show(
      [] {
        Choose(0);
        EXPECT_EQ(Asked([] { Click("DeleteTemplateBtn"); }, {Yes, No}),
                  (Lines{"Delete Template a?", "Save Changes To Template a?"}));
        EXPECT_EQ(Names(), Lines{});
        EXPECT_EQ(MemoText(), "");
        EXPECT_FALSE(Memo().isEnabled());
        EXPECT_FALSE(Button("DeleteTemplateBtn").isEnabled());
      },
      "OKBtn");
  EXPECT_EQ(Templates.Read(), "");
}

TEST_F(QVTemplateEditorButtons, TheTemplateOfTheShowingBeforeCanBeDeletedThoughNoneIsSelected) {
  Start("[a]\ncode=x\n[b]\n");
  Show([] { Choose(0); });
  Show([] {
    EXPECT_EQ(Asked([] { Click("DeleteTemplateBtn"); }, {Yes}), Lines{"Delete Template a?"});
    EXPECT_EQ(Names(), Lines{"b"});
    EXPECT_EQ(List().SelectedRow(), -1);
    EXPECT_FALSE(Button("DeleteTemplateBtn").isEnabled());
  });
}

TEST_F(QVTemplateEditorButtons, RenameLeavesTheTemplateUnderBothNamesAndTheOldOneCurrent) {
  Start("[beg]\ncode=begin\\end;\n[x]\n");
  Show([] {
    Choose(0);
    EXPECT_EQ(Asked([] { Click("TemplateRenameBtn"); }, {Text("begin")}),
              Lines{"Rename Template, Rename Template beg [beg]"});
    EXPECT_EQ(Names(), (Lines{"beg", "begin", "x"}));
    EXPECT_EQ(List().SelectedName(), Text("beg"));
    Type(QStringLiteral("1"));
    EXPECT_EQ(Asked([] { Choose(1); }, {No}), Lines{"Save Changes To Template beg?"});
    EXPECT_EQ(MemoText(), "begin\nend;");
  });
  EXPECT_EQ(Templates.Read(), "[beg]\ncode=begin\\end;\n[x]\n[begin]\ncode=begin\\end;\n");
}

TEST_F(QVTemplateEditorButtons, RenameCopiesWhatIsStoredAndNotWhatIsTyped) {
  Start("[a]\ncode=x\n");
  Show([] {
    Choose(0);
    Type(QStringLiteral("1"));
    EXPECT_EQ(Asked([] { Click("TemplateRenameBtn"); }, {Text("b")}).size(), 1U);
    EXPECT_EQ(MemoText(), "x1");
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[b]\ncode=x\n");
}

TEST_F(QVTemplateEditorButtons, RenameWithoutANameOrCancelledChangesNothing) {
  Start("[a]\ncode=x\n");
  Show([] {
    Choose(0);
    Asked([] { Click("TemplateRenameBtn"); }, {Text("")});
    Asked([] { Click("TemplateRenameBtn"); }, {std::nullopt});
    EXPECT_EQ(Names(), Lines{"a"});
    EXPECT_EQ(List().SelectedName(), Text("a"));
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n");
}

TEST_F(QVTemplateEditorButtons, ExamplesAreOfferedWhileThereAreNoTemplates) {
  Start();
  Show([] {
    EXPECT_TRUE(ExamplesBecome(true));
    Asked([] { Click("AddTemplateBtn"); }, {Text("a")});
    EXPECT_TRUE(ExamplesBecome(false));
    Asked([] { Click("DeleteTemplateBtn"); }, {Yes});
    EXPECT_TRUE(ExamplesBecome(true));
  });
}

TEST_F(QVTemplateEditorButtons, ExamplesAreWrittenOnlyWhenTheyAreChosen) {
  Start();
  Show([] {}, "OKBtn");
  EXPECT_FALSE(QFile::exists(Templates.FileName()));
  Show([] {
    EXPECT_EQ(Asked([] { Click("AddExamplesBtn"); }, {}), Lines{});
    Lines names;
    for (const TQVTemplateExample& example : TemplateExamples())
      names.emplace_back(example.Name);
    EXPECT_EQ(Names(), names);
    EXPECT_TRUE(ExamplesBecome(false));
    Choose(0);
    EXPECT_NE(MemoText(), "");
  });
  const TQVTemplateExample& last = TemplateExamples().back();
  EXPECT_EQ(QVTemplateEditorForm->GetTemplateContent(QString::fromStdString(std::string(last.Name))).toStdString(),
            last.Code);
}

} // namespace
} // namespace quorvane
