// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"
#include "support/LowerRights.h"

#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>

namespace desktop {
namespace {

using FileDialogAnswer = support::ModalAnswer<QFileDialog>;

class FileCommandsTest : public UiFixture {
protected:
  FileCommands& files() { return workspace.files(); }

  static std::function<void(QFileDialog&)> choosing(const QString& path) {
    return [path](QFileDialog& dialog) {
      dialog.selectFile(path);
      QMetaObject::invokeMethod(&dialog, "accept");
    };
  }
  static void cancel(QFileDialog& dialog) { dialog.reject(); }
};

TEST_F(FileCommandsTest, SavesTheTextUnderItsName) {
  Page* const page = openText(QStringLiteral("a.pas"), "begin\n");
  type(QStringLiteral("x"));
  EXPECT_TRUE(files().save(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xbegin\n");
  EXPECT_FALSE(page->document()->isModified());
}

// What a label shows each time it is painted.
class PaintedTexts : public QObject {
public:
  explicit PaintedTexts(QLabel& label) { label.installEventFilter(this); }
  const QStringList& texts() const { return texts_; }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      texts_.append(static_cast<QLabel*>(watched)->text());
    return false;
  }

private:
  QStringList texts_;
};

TEST_F(FileCommandsTest, TheWindowSaysThatALongTextIsBeingSaved) {
  frame()->show();
  Page* const page = openText(QStringLiteral("a.pas"), QByteArray("line of a long text\n").repeated(210'000));
  type(QStringLiteral("x"));
  support::settle();
  PaintedTexts remark(*window()->findChild<QLabel*>(QStringLiteral("Remark")));
  EXPECT_TRUE(files().save(page));
  EXPECT_TRUE(remark.texts().contains(QStringLiteral("Saving a.pas\u2026")));
  EXPECT_EQ(status(QStringLiteral("Remark")), QString()) << "it is saved";
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FileCommandsTest, TheWindowSaysThatALongTextIsBeingReadAgain) {
  frame()->show();
  const QByteArray bytes = QByteArray("line of a long text\n").repeated(210'000);
  Page* const page = openText(QStringLiteral("a.pas"), bytes);
  write(QStringLiteral("a.pas"), bytes + "another\n");
  support::settle();
  PaintedTexts remark(*window()->findChild<QLabel*>(QStringLiteral("Remark")));
  EXPECT_TRUE(files().revert(page));
  EXPECT_TRUE(remark.texts().contains(QStringLiteral("Reading a.pas again\u2026")));
  EXPECT_EQ(status(QStringLiteral("Remark")), QString()) << "it is read";
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FileCommandsTest, AsksForTheNameOfAnUntitledPage) {
  Page* const page = workspace.newFile();
  type(QStringLiteral("program p;"));
  const FileDialogAnswer answer(choosing(path(QStringLiteral("p.pas"))));
  EXPECT_TRUE(files().save(page));
  EXPECT_EQ(read(QStringLiteral("p.pas")), "program p;");
  EXPECT_EQ(page->title(), QStringLiteral("p.pas"));
  EXPECT_FALSE(page->document()->isUntitled());
}

TEST_F(FileCommandsTest, GivesANameWithoutAnEndingThatOfPascal) {
  Page* const page = workspace.newFile();
  const FileDialogAnswer answer(choosing(path(QStringLiteral("p"))));
  EXPECT_TRUE(files().saveAs(page));
  EXPECT_EQ(page->title(), QStringLiteral("p.pas"));
}

TEST_F(FileCommandsTest, ACopyOfAReadOnlyFileCanBeTypedInAtOnce) {
  write(QStringLiteral("locked.pas"), "begin\n");
  ASSERT_TRUE(QFile::setPermissions(path(QStringLiteral("locked.pas")),
                                    QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther));
  const support::LowerRights rights(folder_.path());
  Page* const page = workspace.openFile(path(QStringLiteral("locked.pas")));
  ASSERT_NE(page, nullptr);
  ASSERT_TRUE(editor()->isReadOnly());
  const FileDialogAnswer answer(choosing(path(QStringLiteral("copy.pas"))));
  EXPECT_TRUE(files().saveAs(page));
  EXPECT_FALSE(editor()->isReadOnly());
}

TEST_F(FileCommandsTest, SavesNothingWhenNoNameIsChosen) {
  Page* const page = workspace.newFile();
  type(QStringLiteral("x"));
  const FileDialogAnswer answer(cancel);
  EXPECT_FALSE(files().save(page));
  EXPECT_TRUE(page->document()->isModified());
  EXPECT_TRUE(page->document()->isUntitled());
}

TEST_F(FileCommandsTest, DoesNotSaveOverAFileThatIsOpenOnAnotherPage) {
  openText(QStringLiteral("a.pas"), "other");
  Page* const page = workspace.newFile();
  type(QStringLiteral("x"));
  const FileDialogAnswer name([this](QFileDialog& dialog) {
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    choosing(path(QStringLiteral("a.pas")))(dialog);
  });
  QString said;
  const MessageBoxAnswer answer([&said](QMessageBox& box) {
    said = box.text();
    box.accept();
  });
  EXPECT_FALSE(files().saveAs(page));
  EXPECT_EQ(said, path(QStringLiteral("a.pas")) + QStringLiteral(" is open on another page."));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "other");
}

TEST_F(FileCommandsTest, ASaveThatFailsSaysWhyAndKeepsTheText) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("sub")));
  Page* const page = openText(QStringLiteral("sub/a.pas"), "a");
  type(QStringLiteral("x"));
  ASSERT_TRUE(QDir(path(QStringLiteral("sub"))).removeRecursively());
  QString said;
  const MessageBoxAnswer answers({clicking(QStringLiteral("Save")), [&said](QMessageBox& box) {
                                    said = box.text();
                                    box.accept();
                                  }});
  EXPECT_FALSE(files().save(page));
  EXPECT_TRUE(said.contains(path(QStringLiteral("sub/a.pas")))) << said.toStdString();
  EXPECT_TRUE(page->document()->isModified());
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("xa"));
}

TEST_F(FileCommandsTest, AsksBeforeSavingOverTheChangeOfAnotherProgram) {
  Page* const page = openText(QStringLiteral("a.pas"), "mine");
  type(QStringLiteral("x"));
  write(QStringLiteral("a.pas"), "theirs, which is longer");
  {
    const MessageBoxAnswer answer(clicking(QStringLiteral("Cancel")));
    EXPECT_FALSE(files().save(page));
  }
  EXPECT_EQ(read(QStringLiteral("a.pas")), "theirs, which is longer");
  {
    const MessageBoxAnswer answer(clicking(QStringLiteral("Overwrite")));
    EXPECT_TRUE(files().save(page));
  }
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xmine");
  EXPECT_TRUE(files().save(page));
}

TEST_F(FileCommandsTest, ACharacterThatTheEncodingLacksIsAskedAboutBeforeAnythingIsWritten) {
  Page* const page = openText(QStringLiteral("a.pas"), "\xE4\n");
  editor()->setCaret(2, 1);
  type(QStringLiteral("ab\u0416"));
  QString said;
  {
    const MessageBoxAnswer answer([&said](QMessageBox& box) {
      said = box.text();
      support::clickButton(box, QStringLiteral("Cancel"));
    });
    EXPECT_FALSE(files().save(page));
  }
  EXPECT_EQ(said, QStringLiteral("The encoding windows-1252 of a.pas has no character \u201c\u0416\u201d (U+0416), "
                                 "which stands in line 2."));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "\xE4\n");
  EXPECT_TRUE(page->document()->isModified());
}

TEST_F(FileCommandsTest, TheUserMayGoToTheCharacterThatTheEncodingLacks) {
  Page* const page = openText(QStringLiteral("a.pas"), "\xE4\n");
  editor()->setCaret(2, 1);
  type(QStringLiteral("ab\u0416"));
  editor()->setCaret(1, 1);
  const MessageBoxAnswer answer(clicking(QStringLiteral("Go to Character")));
  EXPECT_FALSE(files().save(page));
  EXPECT_EQ(editor()->caretRow(), 2);
  EXPECT_EQ(editor()->caretColumn(), 3);
}

TEST_F(FileCommandsTest, SavesAsUtf8WhenTheUserWantsIt) {
  Page* const page = openText(QStringLiteral("a.pas"), "\xE4");
  type(QStringLiteral("\u0416"));
  const MessageBoxAnswer answer(clicking(QStringLiteral("Save as UTF-8")));
  EXPECT_TRUE(files().save(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), QStringLiteral("\u0416\u00E4").toUtf8());
  EXPECT_EQ(status(QStringLiteral("Encoding")), QStringLiteral("UTF-8"));
}

TEST_F(FileCommandsTest, ClosesAnUnmodifiedPageWithoutAsking) {
  Page* const page = openText(QStringLiteral("a.pas"), "a");
  EXPECT_TRUE(files().close(page));
  EXPECT_TRUE(window()->pages().isEmpty());
}

TEST_F(FileCommandsTest, CancelKeepsAModifiedPageOpen) {
  Page* const page = openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  const MessageBoxAnswer answer(clicking(QStringLiteral("Cancel")));
  EXPECT_FALSE(files().close(page));
  EXPECT_EQ(window()->currentPage(), page);
  EXPECT_EQ(read(QStringLiteral("a.pas")), "a");
}

TEST_F(FileCommandsTest, DiscardClosesAModifiedPageAndLeavesTheFile) {
  Page* const page = openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  const MessageBoxAnswer answer(clicking(QStringLiteral("Discard")));
  EXPECT_TRUE(files().close(page));
  EXPECT_TRUE(window()->pages().isEmpty());
  EXPECT_EQ(read(QStringLiteral("a.pas")), "a");
}

TEST_F(FileCommandsTest, SaveWritesAModifiedPageAndClosesIt) {
  Page* const page = openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  const MessageBoxAnswer answer(clicking(QStringLiteral("Save")));
  EXPECT_TRUE(files().close(page));
  EXPECT_TRUE(window()->pages().isEmpty());
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xa");
}

TEST_F(FileCommandsTest, TheQuestionShowsThePageThatItIsAbout) {
  Page* const first = openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  openText(QStringLiteral("b.pas"), "b");
  QString asked;
  const MessageBoxAnswer answer([&](QMessageBox& box) {
    asked = box.text();
    EXPECT_EQ(window()->currentPage(), first);
    support::clickButton(box, QStringLiteral("Discard"));
  });
  EXPECT_TRUE(files().close(first));
  EXPECT_EQ(asked, QStringLiteral("Save the changes to a.pas before closing?"));
}

TEST_F(FileCommandsTest, ClosesAllOtherPagesOfTheWindowOrNone) {
  Page* const kept = openText(QStringLiteral("a.pas"), "a");
  openText(QStringLiteral("b.pas"), "b");
  type(QStringLiteral("x"));
  openText(QStringLiteral("c.pas"), "c");
  {
    const MessageBoxAnswer answer(clicking(QStringLiteral("Cancel")));
    EXPECT_FALSE(files().closeOthers(kept));
  }
  EXPECT_EQ(window()->pages().size(), 3);
  const MessageBoxAnswer answer(clicking(QStringLiteral("Discard")));
  EXPECT_TRUE(files().closeOthers(kept));
  EXPECT_EQ(window()->pages(), QList<Page*>{kept});
}

TEST_F(FileCommandsTest, OpensTheFilesThatAreChosen) {
  const QString chosen = write(QStringLiteral("a.pas"), "chosen");
  const FileDialogAnswer answer(choosing(chosen));
  files().open(window());
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("chosen"));
}

TEST_F(FileCommandsTest, SaveAllSavesEveryModifiedPageOfEveryWindow) {
  openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  openText(QStringLiteral("b.pas"), "b");
  TEditWindow* const other = workspace.newWindow();
  Page* const c = workspace.openFileIn(other, write(QStringLiteral("c.pas"), "c"));
  other->editor()->textCursor().insertText(QStringLiteral("z"));
  QAction* const command = action(QStringLiteral("FileSaveAllCommand"));
  activate(window());
  ASSERT_TRUE(command->isEnabled());
  command->trigger();
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xa");
  EXPECT_EQ(read(QStringLiteral("b.pas")), "b");
  EXPECT_EQ(read(QStringLiteral("c.pas")), "zc");
  EXPECT_FALSE(c->document()->isModified());
}

TEST_F(FileCommandsTest, SaveAllStopsWhenNoNameIsChosen) {
  workspace.newFile();
  type(QStringLiteral("x"));
  openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  const FileDialogAnswer answer(cancel);
  EXPECT_FALSE(files().saveAll());
  EXPECT_EQ(read(QStringLiteral("a.pas")), "a");
}

TEST_F(FileCommandsTest, RevertBringsTheFileBackAfterAskingAndCanBeUndone) {
  Page* const page = openText(QStringLiteral("a.pas"), "file");
  type(QStringLiteral("my "));
  {
    const MessageBoxAnswer answer(clicking(QStringLiteral("Cancel")));
    EXPECT_FALSE(files().revert(page));
  }
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("my file"));
  {
    const MessageBoxAnswer answer(clicking(QStringLiteral("Revert")));
    action(QStringLiteral("FileRevertCommand"))->trigger();
  }
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("file"));
  EXPECT_FALSE(page->document()->isModified());
  editor()->undo();
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("my file"));
}

TEST_F(FileCommandsTest, RevertOfAnUneditedPageReadsItsFileWithoutAsking) {
  Page* const page = openText(QStringLiteral("a.pas"), "old");
  write(QStringLiteral("a.pas"), "new");
  EXPECT_TRUE(files().revert(page));
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("new"));
}

TEST_F(FileCommandsTest, RevertToAFileThatIsGoneSaysSoAndKeepsTheText) {
  Page* const page = openText(QStringLiteral("a.pas"), "text");
  ASSERT_TRUE(QFile::remove(path(QStringLiteral("a.pas"))));
  EXPECT_FALSE(files().revert(page));
  EXPECT_TRUE(messages().join(u'\n').contains(path(QStringLiteral("a.pas"))));
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("text"));
}

} // namespace
} // namespace desktop
