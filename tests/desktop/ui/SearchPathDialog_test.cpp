// SPDX-License-Identifier: MIT
#include "desktop/ui/SearchPathDialog.h"

#include "support/ModalAnswer.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace desktop {
namespace {

using FileDialogAnswer = support::ModalAnswer<QFileDialog>;

class SearchPathDialogTest : public testing::Test {
protected:
  static QTreeWidget& list(const SearchPathDialog& dialog) { return *dialog.findChild<QTreeWidget*>(); }
  static QPushButton& button(const SearchPathDialog& dialog, const char* name) {
    return *dialog.findChild<QPushButton*>(QString::fromLatin1(name));
  }
  static void choose(const SearchPathDialog& dialog, int row) {
    list(dialog).setCurrentItem(list(dialog).topLevelItem(row));
  }
  static QString buttons(const SearchPathDialog& dialog) {
    QString enabled;
    for (const char* name : {"AddFolder", "RemoveFolder", "FolderUp", "FolderDown"})
      enabled += button(dialog, name).isEnabled() ? u'+' : u'-';
    return enabled;
  }
  QString makeFolder(const char* name) const {
    QDir(there_.path()).mkdir(QString::fromLatin1(name));
    return there_.filePath(QString::fromLatin1(name));
  }
  // An answer that chooses the folder `path`.
  static std::function<void(QFileDialog&)> choosing(const QString& path) {
    return [path](QFileDialog& dialog) {
      dialog.selectFile(path);
      QMetaObject::invokeMethod(&dialog, "accept");
    };
  }

  QTemporaryDir there_;
  const SearchFolder a_{makeFolder("a"), false};
  const SearchFolder b_{makeFolder("b"), true};
  const SearchFolder c_{makeFolder("c"), false};
};

TEST_F(SearchPathDialogTest, GivesTheListBackAsItWas) {
  const SearchPathDialog dialog({a_, b_, c_});
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, b_, c_}));
}

TEST_F(SearchPathDialogTest, TheCheckTakesSubfoldersIn) {
  const SearchPathDialog dialog({a_, b_});
  list(dialog).topLevelItem(0)->setCheckState(1, Qt::Checked);
  list(dialog).topLevelItem(1)->setCheckState(1, Qt::Unchecked);
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{{a_.path, true}, {b_.path, false}}));
}

TEST_F(SearchPathDialogTest, MovesTheChosenFolderUpAndDown) {
  const SearchPathDialog dialog({a_, b_, c_});
  choose(dialog, 2);
  button(dialog, "FolderUp").click();
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, c_, b_}));
  button(dialog, "FolderUp").click();
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{c_, a_, b_}));
  button(dialog, "FolderDown").click();
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, c_, b_}));
}

TEST_F(SearchPathDialogTest, RemovesTheChosenFolder) {
  const SearchPathDialog dialog({a_, b_, c_});
  choose(dialog, 1);
  button(dialog, "RemoveFolder").click();
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, c_}));
}

TEST_F(SearchPathDialogTest, ButtonsFollowTheChosenFolder) {
  const SearchPathDialog dialog({a_, b_, c_});
  EXPECT_EQ(buttons(dialog), QStringLiteral("++-+"));
  choose(dialog, 1);
  EXPECT_EQ(buttons(dialog), QStringLiteral("++++"));
  choose(dialog, 2);
  EXPECT_EQ(buttons(dialog), QStringLiteral("+++-"));
  for (int time = 0; time < 3; ++time)
    button(dialog, "RemoveFolder").click();
  EXPECT_EQ(buttons(dialog), QStringLiteral("+---"));
}

TEST_F(SearchPathDialogTest, AddsAFolderAtTheEndAndChoosesIt) {
  const SearchPathDialog dialog({a_});
  const FileDialogAnswer answer(choosing(b_.path));
  button(dialog, "AddFolder").click();
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, {b_.path, false}}));
  EXPECT_EQ(list(dialog).currentItem(), list(dialog).topLevelItem(1));
}

TEST_F(SearchPathDialogTest, AFolderThatIsListedIsNotAddedAgain) {
  const SearchPathDialog dialog({a_, b_});
  const FileDialogAnswer answer(choosing(b_.path));
  button(dialog, "AddFolder").click();
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, b_}));
  EXPECT_EQ(list(dialog).currentItem(), list(dialog).topLevelItem(1));
}

TEST_F(SearchPathDialogTest, ACancelledChoiceAddsNothing) {
  const SearchPathDialog dialog({a_});
  const FileDialogAnswer answer([](QFileDialog& choice) { choice.reject(); });
  button(dialog, "AddFolder").click();
  EXPECT_EQ(dialog.folders(), QList<SearchFolder>{a_});
}

TEST_F(SearchPathDialogTest, AMissingFolderIsGreyedAndKept) {
  const SearchFolder missing{there_.filePath(QStringLiteral("gone")), true};
  const SearchPathDialog dialog({a_, missing});
  const QTreeWidgetItem& item = *list(dialog).topLevelItem(1);
  EXPECT_EQ(item.text(0), missing.path + QStringLiteral(" (missing)"));
  EXPECT_EQ(item.foreground(0).color(), dialog.palette().color(QPalette::PlaceholderText));
  EXPECT_EQ(list(dialog).topLevelItem(0)->text(0), a_.path);
  EXPECT_EQ(dialog.folders(), (QList<SearchFolder>{a_, missing}));
}

} // namespace
} // namespace desktop
