// SPDX-License-Identifier: MIT
#include "editor/QVEditorDraw.h"

#include "support/fakes/FakeEditControl.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using platform::TCanvas;
using platform::TColor;

constexpr TColor kFill = 0x00D0A070;

// The control's canvas and picture serve as a plain surface: 20 x 6 cells, no gutter.
class QVEditorDraw : public testing::Test {
protected:
  explicit QVEditorDraw(qreal ratio = 1) { Surface.SetUp(20, 6, 0, ratio); }

  TCanvas& Canvas() { return Surface.Canvas(); }

  void ExpectToolsUnchanged(const TCanvas& before) {
    EXPECT_EQ(Canvas().Pen.Color, before.Pen.Color);
    EXPECT_EQ(Canvas().Pen.Width, before.Pen.Width);
    EXPECT_EQ(Canvas().Brush.Color, before.Brush.Color);
    EXPECT_EQ(Canvas().Brush.Style, before.Brush.Style);
    EXPECT_EQ(Canvas().Font.Face, before.Font.Face);
    EXPECT_EQ(Canvas().Font.Color, before.Font.Color);
  }

  // Gives the tools values that no drawing leaves by accident, and returns a copy of them.
  TCanvas MarkTools() {
    Canvas().Pen = {.Color = 0x112233, .Width = 3};
    Canvas().Brush = {.Color = 0x445566, .Style = platform::bsClear};
    Canvas().Font.Color = 0x778899;
    return Canvas();
  }

  fakes::FakeEditControl Surface;
};

class QVEditorDrawAtRatio : public QVEditorDraw, public testing::WithParamInterface<qreal> {
protected:
  QVEditorDrawAtRatio() : QVEditorDraw(GetParam()) {}

  void DrawLetters() {
    Canvas().Brush.Style = platform::bsClear;
    Canvas().TextOut(0, Surface.CellSize().height(), QStringLiteral("(g#Wy)"));
    Canvas().Brush = {};
  }
};
INSTANTIATE_TEST_SUITE_P(Ratios, QVEditorDrawAtRatio, testing::Values(1.0, 1.5, 2.0));

TEST_P(QVEditorDrawAtRatio, CellsOfGroundAreFilledToTheirEdges) {
  const QSize cell = Surface.CellSize();
  DrawCells(Canvas(), Canvas(), {2 * cell.width(), cell.height()}, 3, kFill, platform::clWhite);
  const QRgb fill = platform::ToQColor(kFill, {}, {}).rgb();
  const QRgb white = QColor(Qt::white).rgb();
  for (int row = 1; row <= 6; ++row) {
    for (int column = 1; column <= 20; ++column) {
      const bool marked = row == 2 && column >= 3 && column <= 5;
      const QImage pixels = Surface.Cell(column, row);
      QImage expected(pixels.size(), pixels.format());
      expected.fill(marked ? fill : white);
      EXPECT_EQ(pixels, expected) << "column " << column << " row " << row;
    }
  }
}

TEST_P(QVEditorDrawAtRatio, CharactersKeepEveryPixelThatIsNotGround) {
  DrawLetters();
  const QImage before = Surface.Picture().copy();
  const QSize cell = Surface.CellSize();
  DrawCells(Canvas(), Canvas(), {cell.width(), cell.height()}, 4, kFill, platform::clWhite);
  const QRgb fill = platform::ToQColor(kFill, {}, {}).rgb();
  const QRgb white = QColor(Qt::white).rgb();
  int kept = 0;
  for (int row = 1; row <= 3; ++row) {
    for (int column = 1; column <= 8; ++column) {
      const bool inside = row == 2 && column >= 2 && column <= 5;
      const QRect area(QPoint((column - 1) * cell.width(), (row - 1) * cell.height()), cell);
      QImage expected = Surface.Pixels(area);
      const QImage after = expected;
      const qreal ratio = GetParam();
      const QPoint corner(qRound(area.x() * ratio), qRound(area.y() * ratio));
      for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
          const QRgb pixel = before.pixel(corner + QPoint(x, y));
          kept += inside && pixel != white;
          expected.setPixel(x, y, inside && pixel == white ? fill : pixel);
        }
      }
      EXPECT_EQ(after, expected) << "column " << column << " row " << row;
    }
  }
  EXPECT_GT(kept, 50) << "the cells hold no characters";
}

TEST_F(QVEditorDraw, CellsAreTakenFromTheScreenAndDrawnOnTheCanvas) {
  platform::TBitmap other(Surface.Width, Surface.PublishedClientHeight, Canvas());
  Canvas().Brush.Color = platform::clRed;
  Canvas().FillRect({0, 0, 5, 5});
  const QImage screen = Surface.Picture().copy();

  DrawCells(other.Canvas(), Canvas(), {0, 0}, 1, kFill, platform::clWhite);

  EXPECT_EQ(Surface.Picture(), screen);
  Canvas().CopyRect({0, 0, Surface.Width, Surface.PublishedClientHeight}, other.Canvas(),
                    {0, 0, Surface.Width, Surface.PublishedClientHeight});
  EXPECT_EQ(Surface.Picture().pixelColor(2, 2), QColor(Qt::red));
  EXPECT_EQ(platform::ToTColor(Surface.Picture().pixelColor(6, 6)), kFill);
}

TEST_F(QVEditorDraw, CellsOutsideOfThePictureChangeNothing) {
  const QImage before = Surface.Picture().copy();
  for (const QPoint corner : {QPoint(0, -10'000), QPoint(-10'000, 0), QPoint(0, 10'000), QPoint(10'000, 0)})
    DrawCells(Canvas(), Canvas(), corner, 1, kFill, platform::clWhite);
  EXPECT_EQ(Surface.Picture(), before);
}

TEST_F(QVEditorDraw, EveryDrawingLeavesTheToolsAsTheyWere) {
  const TCanvas tools = MarkTools();
  DrawCells(Canvas(), Canvas(), {0, 0}, 1, kFill, platform::clWhite);
  ExpectToolsUnchanged(tools);
  DrawSubInteger(Canvas(), {0, 0}, 1);
  ExpectToolsUnchanged(tools);
  DrawLineNumbers(Canvas(),
                  {.Width = 40, .LineHeight = 16, .LinesInWindow = 3, .LineCount = 3, .FontName = {}, .FontSize = 8});
  ExpectToolsUnchanged(tools);
}

TEST_F(QVEditorDraw, SubIntegerIsSmallGreenTextWithoutAGround) {
  Canvas().Brush.Color = platform::clSilver;
  Canvas().FillRect({0, 0, Surface.Width, Surface.PublishedClientHeight});
  DrawSubInteger(Canvas(), {20, 10}, 12);
  const QImage drawn = Surface.Picture().copy();

  Canvas().FillRect({0, 0, Surface.Width, Surface.PublishedClientHeight});
  Canvas().Brush.Style = platform::bsClear;
  Canvas().Font.Face.setPointSize(8);
  Canvas().Font.Color = 0x008000;
  Canvas().TextOut(20, 10, QStringLiteral("12"));
  EXPECT_EQ(drawn, Surface.Picture());
}

TEST_F(QVEditorDraw, SubIntegerOfSeveralDigitsReachesToTheRight) {
  DrawSubInteger(Canvas(), {30, 10}, 1);
  const QImage one = Surface.Pixels({0, 0, 30, 60});
  DrawSubInteger(Canvas(), {30, 10}, 12345);
  EXPECT_EQ(Surface.Pixels({0, 0, 30, 60}), one);
  QImage white = Surface.Pixels({40, 10, 30, 20});
  const QImage right = white;
  white.fill(Qt::white);
  EXPECT_NE(right, white);
}

// Line numbers: 10 points of text, so 8 of numbers.
// The lowest and the highest red pixel of a column of the picture; none where there is no red.
struct RedSpan {
  int Top = -1;
  int Bottom = -1;
  friend bool operator==(const RedSpan&, const RedSpan&) = default;
};

RedSpan RedOf(const QImage& picture, int x) {
  RedSpan span;
  for (int y = 0; y < picture.height(); ++y)
    if (picture.pixelColor(x, y) == QColor(255, 0, 0)) {
      if (span.Top < 0)
        span.Top = y;
      span.Bottom = y;
    }
  return span;
}

TEST_F(QVEditorDraw, ZigzagRisesFirstAndTurnsEveryThreePixelsTwoAboveAndTwoBelow) {
  DrawZigzag(Canvas(), {10, 20}, 24);
  const QImage& picture = Surface.Picture();
  EXPECT_EQ(RedOf(picture, 9), RedSpan{});
  EXPECT_EQ(RedOf(picture, 10), (RedSpan{20, 20}));
  EXPECT_EQ(RedOf(picture, 13).Top, 18);
  EXPECT_EQ(RedOf(picture, 16).Bottom, 22);
  EXPECT_EQ(RedOf(picture, 19).Top, 18);
}

TEST_F(QVEditorDraw, ZigzagEndsWithTheLastStepBeforeItsEnd) {
  // The steps before 25 are at 13, 16, 19 and 22; a line does not draw its end point.
  DrawZigzag(Canvas(), {10, 20}, 25);
  EXPECT_NE(RedOf(Surface.Picture(), 21), RedSpan{});
  EXPECT_EQ(RedOf(Surface.Picture(), 22), RedSpan{});
  EXPECT_EQ(RedOf(Surface.Picture(), 23), RedSpan{});
}

TEST_F(QVEditorDraw, ZigzagWhoseFirstStepReachesItsEndDrawsNothing) {
  DrawZigzag(Canvas(), {10, 20}, 13);
  for (int x = 0; x < Surface.Picture().width(); ++x)
    EXPECT_EQ(RedOf(Surface.Picture(), x), RedSpan{}) << x;
}

TEST_F(QVEditorDraw, ZigzagLeavesTheToolsAsTheyWere) {
  const TCanvas before = MarkTools();
  DrawZigzag(Canvas(), {10, 20}, 40);
  ExpectToolsUnchanged(before);
}

class QVEditorDrawNumbers : public QVEditorDraw {
protected:
  QVEditorDrawNumbers() {
    Surface.SetUp(20, 40, 0);
    Column.Width = 60;
    Column.LineHeight = Surface.CellSize().height();
    Column.LinesInWindow = 40;
    Column.LineCount = 10;
    Column.FontName = QStringLiteral("DejaVu Sans Mono");
    Column.FontSize = 8;
    Column.Color = 0x800000;
  }

  // Writes one number as it is to be, by hand.
  void Write(int line, bool bold) {
    Canvas().Brush.Style = platform::bsClear;
    Canvas().Font.Face = QFont(QStringLiteral("DejaVu Sans Mono"), 8);
    Canvas().Font.Face.setBold(bold);
    Canvas().Font.Color = 0x800000;
    const QString text = QString::number(line);
    Canvas().TextOut(Column.Width - Canvas().TextWidth(text + u'A'), (line - Column.TopLine) * Column.LineHeight, text);
  }

  // The picture with these numbers and no others.
  QImage Expected(int first, int last, int bold) {
    Surface.SetUp(20, 40, 0);
    for (int line = first; line <= last; ++line)
      Write(line, line == bold);
    return Surface.Picture().copy();
  }
  QImage Drawn() {
    Surface.SetUp(20, 40, 0);
    DrawLineNumbers(Canvas(), Column);
    return Surface.Picture().copy();
  }

  TQVLineNumberColumn Column;
};

TEST_F(QVEditorDrawNumbers, EndWithTheFileAndTheCaretsIsBold) {
  Column.CaretLine = 4;
  EXPECT_EQ(Drawn(), Expected(1, 10, 4));
  EXPECT_NE(Drawn(), Expected(1, 10, 0));
  EXPECT_NE(Drawn(), Expected(1, 11, 4));
}

TEST_F(QVEditorDrawNumbers, BeginWithTheTopLine) {
  Column.TopLine = 7;
  EXPECT_EQ(Drawn(), Expected(7, 10, 0));
}

TEST_F(QVEditorDrawNumbers, ReachOneLineBeyondTheLinesShown) {
  Column.LinesInWindow = 5;
  Column.LineCount = 100;
  EXPECT_EQ(Drawn(), Expected(1, 6, 0));
}

TEST_F(QVEditorDrawNumbers, AreNoneWhenTheTopLineIsBeyondTheFile) {
  Column.TopLine = 12;
  EXPECT_EQ(Drawn(), Expected(1, 0, 0));
}

TEST_F(QVEditorDrawNumbers, OfAFontTooSmallForTheDifferenceAreStillWritten) {
  Column.FontSize = -1;
  EXPECT_NE(Drawn(), Expected(1, 0, 0));
}

} // namespace
} // namespace quorvane
