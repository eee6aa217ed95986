// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultsFixture.h"

namespace desktop {
namespace {

class ResultWalkTest : public ResultsFixture {
protected:
  QString remark() const { return status(QStringLiteral("Remark")); }
  void next() const { walk().goToNext(window()); }
  void previous() const { walk().goToPrevious(window()); }
};

TEST_F(ResultWalkTest, GoesFromPlaceToPlace) {
  openText(QStringLiteral("a.pas"), "one\ntwo\nthree\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1, 1), placeIn(QStringLiteral("a.pas"), 3, 2)});
  next();
  EXPECT_EQ(caret(), QStringLiteral("1:2"));
  next();
  EXPECT_EQ(caret(), QStringLiteral("3:3"));
  previous();
  EXPECT_EQ(caret(), QStringLiteral("1:2"));
}

TEST_F(ResultWalkTest, SaysWhichPlaceItIs) {
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1), placeIn(QStringLiteral("a.pas"), 2)});
  next();
  EXPECT_EQ(remark(), QStringLiteral("1 of 2: place in line 1"));
}

TEST_F(ResultWalkTest, TheNoteGoesWhenTheCaretMoves) {
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1)});
  next();
  editor()->setCaret(2, 1);
  EXPECT_EQ(remark(), QString());
}

TEST_F(ResultWalkTest, GoesOnFromTheOtherEndAndSaysSo) {
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1), placeIn(QStringLiteral("a.pas"), 2)});
  next();
  next();
  next();
  EXPECT_EQ(caret(), QStringLiteral("1:1"));
  EXPECT_EQ(remark(), QStringLiteral("Reached the end, went on from the top. 1 of 2: place in line 1"));
  previous();
  EXPECT_EQ(caret(), QStringLiteral("2:1"));
  EXPECT_EQ(remark(), QStringLiteral("Reached the top, went on from the end. 2 of 2: place in line 2"));
}

TEST_F(ResultWalkTest, BeginsBackwardsWithTheLastPlace) {
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1), placeIn(QStringLiteral("a.pas"), 2)});
  previous();
  EXPECT_EQ(caret(), QStringLiteral("2:1"));
  EXPECT_EQ(remark(), QStringLiteral("2 of 2: place in line 2"));
}

TEST_F(ResultWalkTest, SelectsTextThatWasFound) {
  openText(QStringLiteral("a.pas"), "one two\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1, 4, 3)});
  next();
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("two"));
}

TEST_F(ResultWalkTest, OpensAFileThatIsNotOpen) {
  openText(QStringLiteral("a.pas"), "one\n");
  write(QStringLiteral("b.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("b.pas"), 2, 1)});
  next();
  EXPECT_EQ(window()->currentPage()->title(), QStringLiteral("b.pas"));
  EXPECT_EQ(caret(), QStringLiteral("2:2"));
}

TEST_F(ResultWalkTest, SaysThatAFileIsGoneAndGoesOnBehindIt) {
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("gone.pas"), 1), placeIn(QStringLiteral("a.pas"), 2)});
  next();
  EXPECT_EQ(messages(),
            QStringList(QStringLiteral("%1 is no longer there.").arg(placeIn(QStringLiteral("gone.pas"), 1).fileName)));
  EXPECT_EQ(window()->pages().size(), 1);
  next();
  EXPECT_EQ(caret(), QStringLiteral("2:1"));
}

TEST_F(ResultWalkTest, SaysThatAFolderHasNoText) {
  FoundPlace place = placeIn(QStringLiteral("a.pas"), 1);
  place.fileName = folder_.path();
  listPlaces({place});
  next();
  EXPECT_EQ(messages(), QStringList(QStringLiteral("%1 is a folder and has no text.").arg(folder_.path())));
}

TEST_F(ResultWalkTest, GoesToTheWindowInWhichTheFileIsOpen) {
  openText(QStringLiteral("a.pas"), "one\n");
  TEditWindow* const other = workspace.newWindow();
  Page* const page = workspace.openFileIn(other, write(QStringLiteral("b.pas"), "one\ntwo\n"));
  listPlaces({placeIn(QStringLiteral("b.pas"), 2)});
  activate(window());
  next();
  EXPECT_EQ(workspace.topWindow(), other);
  EXPECT_EQ(page->window()->editor()->caretRow(), 2);
}

TEST_F(ResultWalkTest, BringsWhatIsOutOfSightToTheMiddle) {
  activate(window());
  openText(QStringLiteral("a.pas"), QByteArray("line\n").repeated(1000));
  listPlaces({placeIn(QStringLiteral("a.pas"), 500)});
  next();
  const int lines = editor()->viewSize().height();
  EXPECT_NEAR(500 - editor()->topLine(), lines / 2, 1);
}

TEST_F(ResultWalkTest, DoesNothingWithoutPlaces) {
  openText(QStringLiteral("a.pas"), "one\n");
  next();
  previous();
  EXPECT_EQ(walk().currentRow(), -1);
  EXPECT_EQ(remark(), QString());
}

TEST_F(ResultWalkTest, KeysGoFromAnywhereInTheWindow) {
  activate(window());
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1), placeIn(QStringLiteral("a.pas"), 2)});
  window()->findBar()->open();
  action(QStringLiteral("SearchPreviousResultCommand"))->trigger();
  EXPECT_EQ(caret(), QStringLiteral("2:1"));
  EXPECT_TRUE(editor()->hasFocus());
  EXPECT_EQ(action(QStringLiteral("SearchNextResultCommand"))->shortcut(), QKeySequence(Qt::Key_F8));
  EXPECT_EQ(action(QStringLiteral("SearchPreviousResultCommand"))->shortcut(), QKeySequence(Qt::SHIFT | Qt::Key_F8));
}

TEST_F(ResultWalkTest, CommandsAreThereWhenThereArePlaces) {
  const QAction* const command = action(QStringLiteral("SearchNextResultCommand"));
  EXPECT_FALSE(command->isEnabled());
  listPlaces({placeIn(QStringLiteral("a.pas"), 1)});
  EXPECT_TRUE(command->isEnabled());
  list().begin(QStringLiteral("Search"));
  EXPECT_FALSE(command->isEnabled());
}

} // namespace
} // namespace desktop
