// SPDX-License-Identifier: MIT
// The zigzag under a wrong token: where it stands on the control.
#include "AddinFixture.h"

namespace quorvane {
namespace {

constexpr int kGutter = 24;

class QVEditorUnderline : public ProxyTest {
protected:
  void Show(std::string text) { ProxyTest::Show(std::move(text), 40, 10, kGutter); }

  // The columns (logical pixels) between which there is red, from the first to just past the last; {0, 0} for none.
  std::pair<int, int> RedColumns() { return RedRange(Qt::Horizontal); }
  std::pair<int, int> RedRows() { return RedRange(Qt::Vertical); }

private:
  std::pair<int, int> RedRange(Qt::Orientation along) {
    const QImage& picture = Editor().Picture();
    int first = -1;
    int last = -1;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixelColor(x, y) == QColor(255, 0, 0)) {
          const int place = along == Qt::Horizontal ? x : y;
          first = first < 0 ? place : std::min(first, place);
          last = std::max(last, place);
        }
    return first < 0 ? std::pair(0, 0) : std::pair(first, last + 1);
  }
};

TEST_F(QVEditorUnderline, StartsAtItsCharacterAndReachesOverItsLength) {
  Show("x := y z;\r\n");
  Proxy->UnderlineErr(5, 1, 4);
  const int cell = Editor().CellSize().width();
  const auto [left, right] = RedColumns();
  EXPECT_EQ(left, kGutter + 5 * cell);
  EXPECT_LE(right, kGutter + 9 * cell);
  EXPECT_GT(right, kGutter + 9 * cell - 6);
}

TEST_F(QVEditorUnderline, StandsOnTheBottomEdgeOfItsLine) {
  Show("a\r\nb\r\nc\r\n");
  Proxy->UnderlineErr(0, 2, 3);
  const int height = Editor().CellSize().height();
  EXPECT_EQ(RedRows(), std::pair(2 * height - 2, 2 * height + 3));
}

TEST_F(QVEditorUnderline, OfATokenOfLengthOneAtColumnZeroStartsOneCellLeftOfTheTextAndSpansThreeCells) {
  Show("y\r\n");
  Proxy->UnderlineErr(-1, 1, 3);
  const int cell = Editor().CellSize().width();
  const auto [left, right] = RedColumns();
  EXPECT_EQ(left, kGutter - cell);
  EXPECT_LE(right, kGutter + 2 * cell);
  EXPECT_GT(right, kGutter + 2 * cell - 6);
}

TEST_F(QVEditorUnderline, FollowsTabs) {
  Show("\tx\r\n");
  Proxy->UnderlineErr(1, 1, 1);
  EXPECT_EQ(RedColumns().first, kGutter + 8 * Editor().CellSize().width());
}

TEST_F(QVEditorUnderline, LeavesThePenAsItWas) {
  Show("x\r\n");
  Editor().Canvas().Pen = {.Color = 0x123456, .Width = 2};
  Proxy->UnderlineErr(0, 1, 3);
  EXPECT_EQ(Editor().Canvas().Pen.Color, 0x123456);
  EXPECT_EQ(Editor().Canvas().Pen.Width, 2);
}

TEST_F(QVEditorUnderline, OfATokenAsLongAsAFileEndsWithTheCanvas) {
  Show("x\r\n");
  Proxy->UnderlineErr(0, 1, 2'000'000'000);
  EXPECT_LE(RedColumns().second, Editor().Canvas().Width());
  EXPECT_GT(RedColumns().second, Editor().Canvas().Width() - 6);
}

TEST_F(QVEditorUnderline, OutsideOfTheTextShownDrawsNothing) {
  Show("x\r\n");
  Proxy->UnderlineErr(0, 1000, 3);
  EXPECT_EQ(RedColumns(), std::pair(0, 0));
}

TEST_F(QVEditorUnderline, NeedsTheTopView) {
  Show("x\r\n");
  Services->TopView = nullptr;
  EXPECT_THROW(Proxy->UnderlineErr(0, 1, 3), platform::EAssertionFailed);
}

} // namespace
} // namespace quorvane
