// SPDX-License-Identifier: MIT
// The bracket pair at the caret, looked at in the pixels of the real editor. Run at several device pixel ratios.
#include "together/TogetherFixture.h"

namespace together {
namespace {

class BracketMarks : public TogetherFixture {
protected:
  BracketMarks() { markInMagenta(); }
};

TEST_F(BracketMarks, CaretJustBeforeTheOpenerMarksBoth) {
  openWithAddIn("f(x);\n");
  putCaret(1, 2);
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(1, 4));
  EXPECT_TRUE(isPlain(1, 3));
  EXPECT_TRUE(isPlain(1, 6));
}

TEST_F(BracketMarks, CaretBetweenMarksNothing) {
  openWithAddIn("f(x);\n");
  putCaret(1, 3);
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(BracketMarks, CaretJustAfterTheCloserMarksBoth) {
  openWithAddIn("f(x);\n");
  putCaret(1, 5);
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(1, 4));
}

TEST_F(BracketMarks, CaretJustBeforeTheCloserMarksNothing) {
  openWithAddIn("f(x);\n");
  putCaret(1, 4);
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(BracketMarks, NothingButTheTwoCellsIsMarked) {
  openWithAddIn("f(x);\n");
  putCaret(1, 3);
  const QImage without = editor()->picture().copy();
  putCaret(1, 2);
  QImage with = editor()->picture().copy();
  const QSize size = editor()->cellSize();
  for (const int column : {2, 4}) {
    const qreal ratio = with.devicePixelRatio();
    const int left = static_cast<int>(std::lround((editor()->gutterWidth() + (column - 1) * size.width()) * ratio));
    const int right = static_cast<int>(std::lround((editor()->gutterWidth() + column * size.width()) * ratio));
    for (int y = 0; y < static_cast<int>(std::lround(size.height() * ratio)); ++y) {
      for (int x = left; x < right; ++x)
        with.setPixel(x, y, without.pixel(x, y));
    }
  }
  EXPECT_EQ(with, without);
}

TEST_F(BracketMarks, BracketKeepsItsInk) {
  openWithAddIn("f(x);\n");
  putCaret(1, 3);
  const QImage plain = cell(1, 2);
  putCaret(1, 2);
  const QImage marked = cell(1, 2);
  int inked = 0;
  for (int y = 0; y < plain.height(); ++y) {
    for (int x = 0; x < plain.width(); ++x) {
      const bool ink = plain.pixelColor(x, y) != editor()->colorScheme().ground;
      inked += ink;
      EXPECT_EQ(marked.pixelColor(x, y), ink ? plain.pixelColor(x, y) : markColor);
    }
  }
  EXPECT_GT(inked, 0);
}

TEST_F(BracketMarks, PairOverTwoLinesIsMarkedOnBoth) {
  openWithAddIn("f(x,\n  y);\n");
  putCaret(2, 5);
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(2, 4));
}

TEST_F(BracketMarks, OfNestedPairsOnlyTheOneAtTheCaretIsMarked) {
  openWithAddIn("((x))\n");
  putCaret(1, 1);
  EXPECT_TRUE(isMarked(1, 1));
  EXPECT_TRUE(isMarked(1, 5));
  EXPECT_TRUE(isPlain(1, 2));
  putCaret(1, 6);
  EXPECT_TRUE(isMarked(1, 1));
  EXPECT_TRUE(isMarked(1, 5));
  EXPECT_TRUE(isPlain(1, 4));
}

TEST_F(BracketMarks, UnmatchedBracketIsNotMarked) {
  openWithAddIn("f(x;\n");
  putCaret(1, 2);
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(BracketMarks, BracketsInStringsAndCommentsAreNotMarked) {
  openWithAddIn("'(x)' { (y) }\n");
  putCaret(1, 2);
  EXPECT_EQ(markedPixels(), 0);
  putCaret(1, 9);
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(BracketMarks, FollowTheViewWhenItIsScrolledSideways) {
  openWithAddIn("x := " + QByteArray(300, ' ') + "(y);\n");
  putCaret(1, 306);
  editor()->showCaret();
  support::settle();
  const int column = 306 - editor()->leftColumn() + 1;
  ASSERT_GT(editor()->leftColumn(), 1);
  EXPECT_TRUE(isMarked(1, column));
}

// The caret's screen column is compared with the bracket's index in its line, so behind a tab the caret answers at
// another place than it looks. Intended.
TEST_F(BracketMarks, BehindATabTheCaretAnswersByTheBracketsIndex) {
  openWithAddIn("\t(x)\n");
  editor()->setTabWidth(2);
  putCaret(1, 3);
  EXPECT_EQ(markedPixels(), 0) << "just before the opener, whose index is 1";
  putCaret(1, 5);
  EXPECT_TRUE(isMarked(1, 3)) << "two less than the column is the closer's index";
  EXPECT_TRUE(isMarked(1, 5));
}

TEST_F(BracketMarks, AreMadeInEveryPascalFileAndNoOther) {
  openWithAddIn("f(x);\n", "package.dpk");
  putCaret(1, 2);
  EXPECT_EQ(markedPixels(), 0);
  ASSERT_NE(open("f(x);\n", "Project.DPR"), nullptr);
  putCaret(1, 2);
  EXPECT_TRUE(isMarked(1, 2));
}

TEST_F(BracketMarks, ShowOnlyInTheTopWindow) {
  openWithAddIn("f(x);\n");
  putCaret(1, 2);
  EXPECT_TRUE(isMarked(1, 2));
  desktop::TEditWindow* const second = workspace.newWindow();
  activate(second);
  support::settle();
  EXPECT_EQ(markedPixels(), 0) << "the first window has been painted again, without the add-in's marks";
  activate(window());
  support::settle();
  EXPECT_TRUE(isMarked(1, 2));
}

TEST_F(BracketMarks, TypingABracketMarksItsPair) {
  openWithAddIn("f(x;\n");
  putCaret(1, 4);
  QTest::keyClick(editor(), ')');
  support::settle();
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(1, 4));
}

} // namespace
} // namespace together
