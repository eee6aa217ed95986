// SPDX-License-Identifier: MIT
#include "desktop/ui/DiskChanges.h"

#include "desktop/files/FileStore.h"
#include "desktop/files/FileWatch.h"
#include "desktop/files/TrackedLines.h"
#include "desktop/ui/UiFixture.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPushButton>

#include <cstdio>

namespace desktop {
namespace {

const QString unit = QStringLiteral("a.pas");

class DiskChangesTest : public UiFixture {
protected:
  // As programs save that never leave half a file behind.
  void replace(const QString& name, const QByteArray& bytes) const {
    const QByteArray from = QFile::encodeName(write(name + QStringLiteral(".new"), bytes));
    ASSERT_EQ(std::rename(from.constData(), QFile::encodeName(path(name)).constData()), 0);
  }

  static QString text(const Page* page) { return page->document()->toPlainText(); }
  bool becomes(const Page* page, const QString& wanted) const {
    return support::waitUntil([&] { return text(page) == wanted; }) && !page->document()->isModified();
  }
  bool hasMessage(const QString& part) const { return messages().join(u'\n').contains(part); }
  bool says(const QString& part) const {
    return support::waitUntil([&] { return hasMessage(part); });
  }
  QPushButton* button(const QString& text) const {
    for (QPushButton* each : window()->messageBar()->findChildren<QPushButton*>()) {
      if (each->text().remove(u'&') == text && !each->isHidden() && !each->parentWidget()->isHidden())
        return each;
    }
    return nullptr;
  }
  void click(const QString& text) const {
    QPushButton* const found = button(text);
    ASSERT_NE(found, nullptr) << text.toStdString();
    found->click();
  }
  // Lets a watch of the same pace look so often that every other one has looked, too.
  static void letWatchesLook() {
    FileWatch watch;
    int looks = 0;
    QObject::connect(&watch, &FileWatch::look, &watch, [&] {
      ++looks;
      watch.lookSoon();
    });
    watch.lookSoon();
    ASSERT_TRUE(support::waitUntil([&] { return looks >= 6; }));
  }
  // An edited page whose file another program has changed, with the question about it.
  Page* askedAbout() {
    Page* const page = openText(unit, "file");
    type(QStringLiteral("mine "));
    write(unit, "theirs");
    EXPECT_TRUE(says(path(unit) + QStringLiteral(" has been changed by another program")));
    return page;
  }

  DiskChanges changes{workspace};
};

TEST_F(DiskChangesTest, APageThatIsNotEditedIsReloaded) {
  Page* const page = openText(unit, "begin\nend.\n");
  write(unit, "begin\n  work;\nend.\n");
  EXPECT_TRUE(becomes(page, QStringLiteral("begin\n  work;\nend.\n")));
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(DiskChangesTest, AFileThatIsReplacedAgainAndAgainIsFollowed) {
  Page* const page = openText(unit, "0");
  for (const char* const bytes : {"1", "2", "3"}) {
    replace(unit, bytes);
    EXPECT_TRUE(becomes(page, QString::fromLatin1(bytes)));
  }
  write(unit, "4");
  EXPECT_TRUE(becomes(page, QStringLiteral("4"))) << "the new file is watched in place of the old";
}

TEST_F(DiskChangesTest, AFileThatIsDeletedAndMadeAgainIsFollowed) {
  Page* const page = openText(unit, "old");
  ASSERT_TRUE(QFile::remove(path(unit)));
  ASSERT_TRUE(says(QStringLiteral("removed")));
  write(unit, "new");
  EXPECT_TRUE(becomes(page, QStringLiteral("new")));
}

TEST_F(DiskChangesTest, TheFileBehindALinkIsFollowed) {
  QDir(folder_.path()).mkdir(QStringLiteral("sub"));
  const QString target = write(QStringLiteral("sub/target.pas"), "old");
  ASSERT_TRUE(QFile::link(target, path(unit)));
  Page* const page = workspace.openFile(path(unit));
  replace(QStringLiteral("sub/target.pas"), "new");
  EXPECT_TRUE(becomes(page, QStringLiteral("new")));
}

TEST_F(DiskChangesTest, CaretAndScrollPositionStayOnTheirText) {
  QByteArray lines;
  for (int line = 0; line < 300; ++line)
    lines += "line " + QByteArray::number(line) + "\n";
  Page* const page = openText(unit, lines);
  activate(window());
  editor()->setTopLine(101);
  editor()->setCaret(111, 4);
  write(unit, "new\nnew\nnew\n" + lines);
  ASSERT_TRUE(becomes(page, QStringLiteral("new\nnew\nnew\n") + QString::fromLatin1(lines)));
  EXPECT_EQ(editor()->caretRow(), 114);
  EXPECT_EQ(editor()->caretColumn(), 4);
  EXPECT_EQ(page->state().topLine, 103);
}

TEST_F(DiskChangesTest, APageBehindAnotherKeepsItsCaret) {
  Page* const page = openText(unit, "one\ntwo\n");
  editor()->setCaret(2, 2);
  openText(QStringLiteral("b.pas"), "b");
  write(unit, "zero\none\ntwo\n");
  ASSERT_TRUE(becomes(page, QStringLiteral("zero\none\ntwo\n")));
  EXPECT_EQ(page->state().caret, 10);
}

TEST_F(DiskChangesTest, TrackedLinesAreFoundAgain) {
  Page* const page = openText(unit, "a\nmarked\nb\n");
  TrackedLines lines(*page->document(), [](const auto&...) {});
  lines.add(1, 0);
  replace(unit, "new\nb\nmarked\nb\n");
  ASSERT_TRUE(becomes(page, QStringLiteral("new\nb\nmarked\nb\n")));
  EXPECT_EQ(lines.indexOf(2), 0);
}

TEST_F(DiskChangesTest, OneUndoBringsTheTextBack) {
  Page* const page = openText(unit, "a\nb\nc\n");
  write(unit, "x\nb\ny\n");
  ASSERT_TRUE(becomes(page, QStringLiteral("x\nb\ny\n")));
  editor()->undo();
  EXPECT_EQ(text(page), QStringLiteral("a\nb\nc\n"));
  EXPECT_TRUE(page->document()->isModified());
}

TEST_F(DiskChangesTest, AFileWithTheSameContentsIsNoChange) {
  Page* const page = openText(unit, "same");
  type(QStringLiteral("mine "));
  replace(unit, "same");
  EXPECT_TRUE(support::waitUntil([page] { return !changedOnDisk(*page->document()); }));
  EXPECT_EQ(text(page), QStringLiteral("mine same"));
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(DiskChangesTest, AFileThatHasGotTheTextOfThePageIsTakenAsSaved) {
  Page* const page = openText(unit, "file");
  type(QStringLiteral("mine "));
  write(unit, "mine file");
  EXPECT_TRUE(support::waitUntil([page] { return !page->document()->isModified(); }));
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(DiskChangesTest, AnEditedPageIsLeftAloneUntilTheUserReloads) {
  Page* const page = askedAbout();
  EXPECT_EQ(text(page), QStringLiteral("mine file"));
  click(QStringLiteral("Reload"));
  EXPECT_EQ(text(page), QStringLiteral("theirs"));
  EXPECT_FALSE(page->document()->isModified());
  EXPECT_EQ(messages(), QStringList());
  editor()->undo();
  EXPECT_EQ(text(page), QStringLiteral("mine file")) << "what was typed is not lost";
}

TEST_F(DiskChangesTest, AKeptTextIsSavedWithoutAnotherQuestion) {
  Page* const page = askedAbout();
  click(QStringLiteral("Keep Mine"));
  EXPECT_TRUE(page->document()->isModified());
  EXPECT_TRUE(workspace.files().save(page));
  EXPECT_EQ(read(unit), "mine file");
}

TEST_F(DiskChangesTest, AKeptTextIsAskedAboutAgainAfterAFurtherChange) {
  askedAbout();
  click(QStringLiteral("Keep Mine"));
  ASSERT_EQ(messages(), QStringList());
  write(unit, "theirs again");
  EXPECT_TRUE(says(QStringLiteral("has been changed")));
}

TEST_F(DiskChangesTest, AFurtherChangeIsNoFurtherQuestion) {
  Page* const page = askedAbout();
  write(unit, "theirs again");
  letWatchesLook();
  EXPECT_EQ(messages().size(), 1);
  click(QStringLiteral("Reload"));
  EXPECT_EQ(text(page), QStringLiteral("theirs again"));
}

TEST_F(DiskChangesTest, AQuestionGoesWithItsPage) {
  Page* const page = askedAbout();
  window()->closePage(page);
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(DiskChangesTest, AQuestionGoesWhenThePageIsSaved) {
  Page* const page = askedAbout();
  const MessageBoxAnswer answer(clicking(QStringLiteral("Overwrite")));
  ASSERT_TRUE(workspace.files().save(page));
  EXPECT_TRUE(support::waitUntil([this] { return messages().isEmpty(); }));
}

TEST_F(DiskChangesTest, ARemovedFileIsToldAndItsPageIsModified) {
  Page* const page = openText(unit, "text");
  ASSERT_TRUE(QFile::remove(path(unit)));
  ASSERT_TRUE(says(path(unit) + QStringLiteral(" has been removed by another program.")));
  EXPECT_TRUE(page->document()->isModified());
  EXPECT_EQ(text(page), QStringLiteral("text"));
}

TEST_F(DiskChangesTest, ARemovedFileThatComesBackAsItWasLeavesThePageUnmodified) {
  Page* const page = openText(unit, "text");
  ASSERT_TRUE(QFile::rename(path(unit), path(QStringLiteral("away"))));
  ASSERT_TRUE(says(QStringLiteral("removed")));
  ASSERT_TRUE(QFile::rename(path(QStringLiteral("away")), path(unit)));
  EXPECT_TRUE(support::waitUntil([page] { return !page->document()->isModified(); }));
}

TEST_F(DiskChangesTest, AnEditedPageWhoseFileWentAndCameIsAskedAbout) {
  Page* const page = openText(unit, "text");
  ASSERT_TRUE(QFile::remove(path(unit)));
  ASSERT_TRUE(says(QStringLiteral("removed")));
  type(QStringLiteral("mine "));
  write(unit, "new");
  ASSERT_TRUE(says(QStringLiteral("has been changed")));
  EXPECT_EQ(text(page), QStringLiteral("mine text"));
}

TEST_F(DiskChangesTest, AFileUnderANewNameIsFollowedInPlaceOfTheOldOne) {
  Page* const page = openText(unit, "text");
  ASSERT_TRUE(save(*page->document(), path(QStringLiteral("b.pas"))).ok());
  write(unit, "old name");
  write(QStringLiteral("b.pas"), "new name");
  EXPECT_TRUE(becomes(page, QStringLiteral("new name")));
}

TEST_F(DiskChangesTest, SavingIsNoChangeOfAnotherProgram) {
  Page* const page = openText(unit, "a");
  type(QStringLiteral("x"));
  ASSERT_TRUE(workspace.files().save(page));
  type(QStringLiteral("y"));
  letWatchesLook();
  EXPECT_EQ(messages(), QStringList());
  EXPECT_EQ(text(page), QStringLiteral("xya"));
}

TEST_F(DiskChangesTest, NothingIsReloadedBehindADialog) {
  Page* const page = openText(unit, "old");
  activate(window());
  QDialog dialog(frame());
  dialog.open();
  ASSERT_TRUE(support::waitUntil([&] { return QApplication::activeModalWidget() == &dialog; }));
  write(unit, "new");
  letWatchesLook();
  EXPECT_EQ(text(page), QStringLiteral("old"));
  dialog.reject();
  EXPECT_TRUE(becomes(page, QStringLiteral("new")));
}

TEST_F(DiskChangesTest, NothingIsReloadedWhileAnAddInIsEditing) {
  Page* const page = openText(unit, "old");
  editor()->holdPainting();
  write(unit, "new");
  letWatchesLook();
  EXPECT_EQ(text(page), QStringLiteral("old"));
  editor()->releasePainting();
  EXPECT_TRUE(becomes(page, QStringLiteral("new")));
}

} // namespace
} // namespace desktop
