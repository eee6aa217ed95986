// SPDX-License-Identifier: MIT
#include "desktop/ui/RecentFiles.h"

#include "desktop/files/FileStore.h"
#include "desktop/ui/UiFixture.h"

#include <QDir>
#include <QMenu>

namespace desktop {
namespace {

class RecentFilesTest : public UiFixture {
protected:
  RecentFiles& recent() const { return workspace.recentFiles(); }
  QString listFile() const { return path(QStringLiteral("state/recent-files.json")); }
  QStringList names() const {
    QStringList found;
    for (const QString& file : recent().files())
      found.append(QDir(folder_.path()).relativeFilePath(file));
    return found;
  }
  // As if the user had opened it.
  QList<QAction*> menuItems() const {
    auto* const menu = frame()->findChild<QMenu*>(QStringLiteral("RecentMenu"));
    Q_EMIT menu->aboutToShow();
    return menu->actions();
  }
};

TEST_F(RecentFilesTest, TheLatestFileIsTheFirstAndStandsThereOnce) {
  Page* const a = openText(QStringLiteral("a.pas"), "a");
  openText(QStringLiteral("b.pas"), "b");
  window()->closePage(a);
  workspace.openFile(path(QStringLiteral("a.pas")));
  EXPECT_EQ(names(), (QStringList{QStringLiteral("a.pas"), QStringLiteral("b.pas")}));
}

TEST_F(RecentFilesTest, AFileCountsUnderTheNameItIsSavedUnder) {
  Page* const page = workspace.newFile();
  EXPECT_EQ(names(), QStringList());
  ASSERT_TRUE(save(*page->document(), path(QStringLiteral("new.pas"))).ok());
  EXPECT_EQ(names(), QStringList{QStringLiteral("new.pas")});
}

TEST_F(RecentFilesTest, NoMoreThanTenAreKept) {
  for (int number = 1; number <= 12; ++number)
    openText(QStringLiteral("u%1.pas").arg(number), "x");
  ASSERT_EQ(names().size(), 10);
  EXPECT_EQ(names().constFirst(), QStringLiteral("u12.pas"));
  EXPECT_EQ(names().constLast(), QStringLiteral("u3.pas"));
}

TEST_F(RecentFilesTest, TheListIsThereInTheNextRun) {
  recent().open(listFile());
  openText(QStringLiteral("a.pas"), "a");
  ASSERT_TRUE(support::waitUntil([this] { return QFile::exists(listFile()); }));
  Workspace next;
  next.recentFiles().open(listFile());
  EXPECT_EQ(next.recentFiles().files(), QStringList{path(QStringLiteral("a.pas"))});
}

TEST_F(RecentFilesTest, WhatWasOpenBeforeTheListIsReadDoesNotCount) {
  openText(QStringLiteral("a.pas"), "a");
  recent().open(listFile());
  openText(QStringLiteral("b.pas"), "b");
  EXPECT_EQ(names(), QStringList{QStringLiteral("b.pas")});
}

TEST_F(RecentFilesTest, EditorsThatRunAtOnceShareTheList) {
  Workspace other;
  recent().open(listFile());
  other.recentFiles().open(listFile());
  openText(QStringLiteral("a.pas"), "a");
  ASSERT_TRUE(support::waitUntil([this] { return QFile::exists(listFile()); }));
  other.openFile(write(QStringLiteral("b.pas"), "b"));
  (void)other.recentFiles().files();
  EXPECT_EQ(names(), (QStringList{QStringLiteral("b.pas"), QStringLiteral("a.pas")}));
}

TEST_F(RecentFilesTest, AFileThatIsNoListIsAnEmptyOne) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("state")));
  for (const char* const bytes : {"", "no JSON", "[]", "{\"files\": 3}", "{\"files\": [\"relative\", 1, null]}"}) {
    write(QStringLiteral("state/recent-files.json"), bytes);
    recent().open(listFile());
    EXPECT_EQ(names(), QStringList()) << bytes;
  }
}

TEST_F(RecentFilesTest, TheMenuOpensTheFile) {
  Page* const a = openText(QStringLiteral("a & b.pas"), "a");
  openText(QStringLiteral("c.pas"), "c");
  window()->closePage(a);
  const QList<QAction*> items = menuItems();
  ASSERT_EQ(items.size(), 4);
  EXPECT_EQ(items[1]->text(), QStringLiteral("&2 ") + path(QStringLiteral("a && b.pas")));
  items[1]->trigger();
  ASSERT_NE(window()->currentPage(), nullptr);
  EXPECT_EQ(window()->currentPage()->title(), QStringLiteral("a & b.pas"));
}

TEST_F(RecentFilesTest, TheMenuGreysFilesThatAreGone) {
  openText(QStringLiteral("a.pas"), "a");
  openText(QStringLiteral("b.pas"), "b");
  ASSERT_TRUE(QFile::remove(path(QStringLiteral("a.pas"))));
  const QList<QAction*> items = menuItems();
  EXPECT_TRUE(items[0]->isEnabled());
  EXPECT_FALSE(items[1]->isEnabled());
}

TEST_F(RecentFilesTest, TheMenuClearsTheListForGood) {
  recent().open(listFile());
  openText(QStringLiteral("a.pas"), "a");
  menuItems().constLast()->trigger();
  EXPECT_EQ(names(), QStringList());
  ASSERT_EQ(menuItems().size(), 1);
  EXPECT_FALSE(menuItems().constFirst()->isEnabled());
  recent().open(listFile());
  EXPECT_EQ(names(), QStringList());
}

} // namespace
} // namespace desktop
