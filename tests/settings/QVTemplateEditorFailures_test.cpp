// SPDX-License-Identifier: MIT
// Writes that fail: the user is told, and what was typed stays.
#include "settings/TemplateEditorFixture.h"

#include "support/FileSizeLimit.h"
#include "support/LowerRights.h"

namespace quorvane {
namespace {

// A disk on which nothing more can be written, and the template "a" in the dialog, changed.
class QVTemplateEditorFailures : public TemplateEditorTest {
protected:
  void ShowChanged(const std::function<void()>& act) {
    Start("[a]\ncode=x\n[b]\ncode=y\n");
    Show([&] {
      Choose(0);
      Type(QStringLiteral("1"));
      {
        const support::FileSizeLimit full(0);
        act();
      }
      EXPECT_EQ(MemoText(), "x1");
      EXPECT_EQ(List().SelectedName(), QStringLiteral("a"));
    });
    EXPECT_EQ(Templates.Read(), "[a]\ncode=x\n[b]\ncode=y\n");
  }
  // What is asked and told during `act`; the last text only as far as it names the file.
  Lines Told(const std::function<void()>& act, const Answers& answers) {
    Lines asked = Asked(act, answers);
    const std::string message = "The file " + Templates.FileName().toStdString() + " cannot be written";
    if (!asked.empty() && asked.back().starts_with(message + ": "))
      asked.back() = message;
    return asked;
  }
  std::string Message() const { return "The file " + Templates.FileName().toStdString() + " cannot be written"; }
};

TEST_F(QVTemplateEditorFailures, AnotherChoiceStaysWithTheText) {
  ShowChanged([this] {
    EXPECT_EQ(Told([] { Choose(1); }, {Yes, Ok}), (Lines{"Save Changes To Template a?", Message()}));
  });
}

TEST_F(QVTemplateEditorFailures, OKLeavesTheDialogOpen) {
  ShowChanged([this] {
    EXPECT_EQ(Told([] { Click("OKBtn"); }, {Yes, Ok}), (Lines{"Save Changes To Template a?", Message()}));
    EXPECT_TRUE(QVTemplateEditorForm->isVisible());
  });
}

TEST_F(QVTemplateEditorFailures, AddMakesNoTemplate) {
  ShowChanged([this] {
    EXPECT_EQ(Told([] { Click("AddTemplateBtn"); }, {QStringLiteral("c"), Ok}),
              (Lines{"New Template, New Template Name: []", Message()}));
    EXPECT_EQ(Names(), (Lines{"a", "b"}));
  });
}

TEST_F(QVTemplateEditorFailures, DeleteKeepsTheTemplate) {
  ShowChanged([this] {
    EXPECT_EQ(Told([] { Click("DeleteTemplateBtn"); }, {Yes, Ok}), (Lines{"Delete Template a?", Message()}));
    EXPECT_EQ(Names(), (Lines{"a", "b"}));
  });
}

TEST_F(QVTemplateEditorFailures, RenameMakesNoTemplate) {
  ShowChanged([this] {
    EXPECT_EQ(Told([] { Click("TemplateRenameBtn"); }, {QStringLiteral("c"), Ok}),
              (Lines{"Rename Template, Rename Template a [a]", Message()}));
    EXPECT_EQ(Names(), (Lines{"a", "b"}));
  });
}

TEST_F(QVTemplateEditorFailures, ADeletedTemplateThatCannotBeBroughtBackKeepsItsText) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([] {
    Choose(0);
    std::optional<support::FileSizeLimit> full;
    {
      const support::ModalAnswer<QMessageBox> fill({[](QMessageBox& box) { support::clickButton(box, Yes); },
                                                    [&](QMessageBox& box) {
                                                      full.emplace(0);
                                                      support::clickButton(box, Yes);
                                                    },
                                                    [](QMessageBox& box) { support::clickButton(box, Ok); }});
      Click("DeleteTemplateBtn");
    }
    full.reset();
    EXPECT_EQ(MemoText(), "x");
    EXPECT_EQ(List().SelectedRow(), -1);
    EXPECT_EQ(Asked([] { Choose(0); }, {Yes}), Lines{"Save Changes To Template a?"});
  });
  EXPECT_EQ(Templates.Read(), "[b]\ncode=y\n[a]\ncode=x\n");
}

TEST_F(QVTemplateEditorFailures, ExamplesThatCannotBeWrittenAreStillOffered) {
  Templates.Write("; mine\n");
  Start();
  Show([this] {
    const support::FileSizeLimit full(0);
    EXPECT_EQ(Told([] { Click("AddExamplesBtn"); }, {Ok}), Lines{Message()});
    EXPECT_EQ(Names(), Lines{});
    EXPECT_TRUE(Button("AddExamplesBtn").isVisible());
  });
  EXPECT_EQ(Templates.Read(), "; mine\n");
}

TEST_F(QVTemplateEditorFailures, AStorageDirectoryThatDoesNotExistIsNamed) {
  const QString directory = Templates.Path(QStringLiteral("missing"));
  TemplateFolder::SetStorageDir(directory + u'/');
  Start();
  Show([&] {
    const Lines told = Asked([] { Click("AddTemplateBtn"); }, {QStringLiteral("a"), Ok});
    ASSERT_EQ(told.size(), 2U);
    EXPECT_NE(told.back().find("there is no folder " + directory.toStdString()), std::string::npos) << told.back();
  });
  EXPECT_FALSE(QFile::exists(directory));
}

TEST_F(QVTemplateEditorFailures, AReadOnlyFolderIsTold) {
  Start("[a]\ncode=x\n");
  const QString folder = QFileInfo(Templates.FileName()).path();
  Show([&] {
    Choose(0);
    Type(QStringLiteral("1"));
    ASSERT_TRUE(QFile::setPermissions(Templates.Path({}), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
    {
      const support::LowerRights nobody(folder);
      EXPECT_EQ(Told([] { Choose(0); }, {Yes, Ok}), (Lines{"Save Changes To Template a?", Message()}));
    }
    ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_EQ(MemoText(), "x1");
    EXPECT_EQ(Asked([] { Choose(0); }, {Yes}).size(), 1U) << "it can be saved again";
  });
  EXPECT_EQ(Templates.Read(), "[a]\ncode=x1\n");
}

} // namespace
} // namespace quorvane
