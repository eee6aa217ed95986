// SPDX-License-Identifier: MIT
#include "desktop/ui/ClosedPages.h"

#include "desktop/ui/UiFixture.h"

namespace desktop {
namespace {

class ClosedPagesTest : public UiFixture {
protected:
  void close(Page* page) const { window()->closePage(page); }
  QAction* reopen() const { return action(QStringLiteral("FileReopenCommand")); }
  QStringList titles() const {
    QStringList found;
    for (const Page* page : window()->pages())
      found.append(page->title());
    return found;
  }
};

TEST_F(ClosedPagesTest, TheCommandOpensThePageThatWasClosedLastFirst) {
  Page* const a = openText(QStringLiteral("a.pas"), "a");
  Page* const b = openText(QStringLiteral("b.pas"), "b");
  EXPECT_FALSE(reopen()->isEnabled());
  close(a);
  close(b);
  EXPECT_EQ(reopen()->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+T")));
  reopen()->trigger();
  EXPECT_EQ(titles(), QStringList{QStringLiteral("b.pas")});
  reopen()->trigger();
  EXPECT_EQ(titles(), (QStringList{QStringLiteral("b.pas"), QStringLiteral("a.pas")}));
  EXPECT_FALSE(reopen()->isEnabled());
}

TEST_F(ClosedPagesTest, APageComesBackWithItsSelection) {
  Page* const page = openText(QStringLiteral("a.pas"), "begin end.");
  select(6, 9);
  close(page);
  reopen()->trigger();
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("end"));
}

TEST_F(ClosedPagesTest, UntitledPagesAreNotAmongThem) {
  close(workspace.newFile());
  EXPECT_TRUE(workspace.closedPages().isEmpty());
}

TEST_F(ClosedPagesTest, AFileThatIsOpenAgainIsPassedOver) {
  close(openText(QStringLiteral("a.pas"), "a"));
  close(openText(QStringLiteral("b.pas"), "b"));
  workspace.openFile(path(QStringLiteral("b.pas")));
  reopen()->trigger();
  EXPECT_EQ(titles(), (QStringList{QStringLiteral("b.pas"), QStringLiteral("a.pas")}));
}

TEST_F(ClosedPagesTest, AFileThatIsGoneIsToldAndForgotten) {
  close(openText(QStringLiteral("a.pas"), "a"));
  ASSERT_TRUE(QFile::remove(path(QStringLiteral("a.pas"))));
  reopen()->trigger();
  EXPECT_TRUE(messages().join(u'\n').contains(path(QStringLiteral("a.pas"))));
  EXPECT_FALSE(reopen()->isEnabled());
}

TEST_F(ClosedPagesTest, PagesOfAClosedWindowCanBeReopenedInAnother) {
  TEditWindow* const other = workspace.newWindow();
  workspace.openFileIn(other, write(QStringLiteral("a.pas"), "a"));
  activate(window());
  ASSERT_TRUE(workspace.frameOf(other)->close());
  reopen()->trigger();
  EXPECT_TRUE(titles().contains(QStringLiteral("a.pas")));
}

} // namespace
} // namespace desktop
