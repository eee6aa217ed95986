// SPDX-License-Identifier: MIT
#include "platform/Canvas.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace platform;

namespace {

// A surface over a plain image, with the areas that were reported as drawn.
class TImageSurface : public ICanvasSurface {
public:
  TImageSurface(int width, int height, qreal ratio)
      : Image(static_cast<int>(std::lround(width * ratio)), static_cast<int>(std::lround(height * ratio)),
              QImage::Format_RGB32) {
    Image.setDevicePixelRatio(ratio);
    Image.fill(Qt::white);
  }

  QImage& BeginDrawing() override { return Image; }
  void EndDrawing(const QRect& area) override { Drawn |= area; }
  QFont SurfaceFont() const override { return QFont(QStringLiteral("DejaVu Sans Mono"), 10); }
  QPalette SurfacePalette() const override { return {}; }
  QColor SurfaceColor() const override { return Qt::white; }

  QImage Image;
  QRect Drawn;
};

// The device rectangle that holds exactly the pixels of `color`, and whether it is full of them.
QRect Bounds(const QImage& image, QColor color, bool* full = nullptr) {
  QRect bounds;
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == color) {
        bounds |= QRect(x, y, 1, 1);
        ++count;
      }
    }
  }
  if (full)
    *full = count == bounds.width() * bounds.height();
  return bounds;
}

class CanvasAtRatio : public testing::TestWithParam<qreal> {};
INSTANTIATE_TEST_SUITE_P(Ratios, CanvasAtRatio, testing::Values(1.0, 1.5, 2.0));

} // namespace

TEST_P(CanvasAtRatio, LinesThatStandThereAlreadyAreNotReportedAgain) {
  TImageSurface surface(40, 20, GetParam());
  TCanvas canvas(surface);
  canvas.Pen.Color = clRed;
  canvas.Polyline({{3, 4}, {9, 10}, {15, 4}});
  EXPECT_FALSE(surface.Drawn.isEmpty());
  surface.Drawn = {};
  canvas.Polyline({{3, 4}, {9, 10}, {15, 4}});
  EXPECT_TRUE(surface.Drawn.isEmpty());
  surface.Image.fill(Qt::white);
  canvas.Polyline({{3, 4}, {9, 10}, {15, 4}});
  EXPECT_FALSE(surface.Drawn.isEmpty());
}

TEST_P(CanvasAtRatio, LinesOutsideOfTheSurfaceDrawNothing) {
  TImageSurface surface(40, 20, GetParam());
  TCanvas canvas(surface);
  canvas.Polyline({{3, 400}, {9, 410}});
  EXPECT_TRUE(surface.Drawn.isEmpty());
  EXPECT_EQ(Bounds(surface.Image, Qt::black), QRect());
}

TEST_P(CanvasAtRatio, WidthIsThatOfTheSurfaceInLogicalPixels) {
  TImageSurface surface(41, 20, GetParam());
  EXPECT_EQ(TCanvas(surface).Width(), 41 + (GetParam() == 1.5 ? 1 : 0)); // 61.5 device pixels are 62
}

TEST_P(CanvasAtRatio, FilledNeighboursMeetWithoutGapOrOverlap) {
  TImageSurface surface(40, 20, GetParam());
  TCanvas canvas(surface);
  const auto edge = [](int logical) { return static_cast<int>(std::lround(logical * GetParam())); };
  canvas.Brush.Color = clRed;
  canvas.FillRect({7, 3, 9, 5});
  canvas.Brush.Color = clGreen;
  canvas.FillRect({16, 3, 9, 5});
  bool full = false;
  EXPECT_EQ(Bounds(surface.Image, QColor(255, 0, 0), &full),
            QRect(QPoint(edge(7), edge(3)), QPoint(edge(16) - 1, edge(8) - 1)));
  EXPECT_TRUE(full);
  EXPECT_EQ(Bounds(surface.Image, QColor(0, 128, 0), &full),
            QRect(QPoint(edge(16), edge(3)), QPoint(edge(25) - 1, edge(8) - 1)));
  EXPECT_TRUE(full);
}

TEST_P(CanvasAtRatio, SnapshotComesBackPixelForPixel) {
  TImageSurface surface(40, 20, GetParam());
  for (int y = 0; y < surface.Image.height(); ++y) {
    for (int x = 0; x < surface.Image.width(); ++x)
      surface.Image.setPixelColor(x, y, QColor(x, y, 99));
  }
  const QImage before = surface.Image.copy();
  TCanvas canvas(surface);
  const QRect cell(7, 3, 9, 5);
  TBitmap bitmap(cell.width(), cell.height(), canvas);
  bitmap.Canvas().CopyRect({0, 0, cell.width(), cell.height()}, canvas, cell);
  canvas.Brush.Color = clSilver;
  canvas.FillRect(cell);
  EXPECT_NE(surface.Image, before);
  canvas.BrushCopy(cell, bitmap, {0, 0, cell.width(), cell.height()}, clWhite);
  EXPECT_EQ(surface.Image, before);
}

TEST_P(CanvasAtRatio, BrushCopyReplacesExactlyTheKeyColour) {
  TImageSurface surface(40, 20, GetParam());
  const int middle = surface.Image.width() / 2;
  surface.Image.setPixelColor(middle, 8, QColor(10, 20, 30));
  surface.Image.setPixelColor(middle + 1, 8, QColor(254, 255, 255));
  TCanvas canvas(surface);
  const QRect area(10, 2, 20, 10);
  TBitmap bitmap(area.width(), area.height(), canvas);
  bitmap.Canvas().CopyRect({0, 0, area.width(), area.height()}, canvas, area);
  canvas.Brush.Color = clSilver;
  canvas.BrushCopy(area, bitmap, {0, 0, area.width(), area.height()}, clWhite);
  EXPECT_EQ(surface.Image.pixelColor(middle, 8), QColor(10, 20, 30));
  EXPECT_EQ(surface.Image.pixelColor(middle + 1, 8), QColor(254, 255, 255));
  EXPECT_EQ(surface.Image.pixelColor(middle + 2, 8), QColor(192, 192, 192));
}

TEST(Canvas, LineStopsBeforeItsEnd) {
  TImageSurface surface(20, 20, 1);
  TCanvas canvas(surface);
  canvas.Pen.Color = clRed;
  canvas.MoveTo(2, 3);
  canvas.LineTo(7, 3);
  EXPECT_EQ(Bounds(surface.Image, QColor(255, 0, 0)), QRect(2, 3, 5, 1));
  canvas.LineTo(7, 9);
  EXPECT_EQ(Bounds(surface.Image, QColor(255, 0, 0)), QRect(QPoint(2, 3), QPoint(7, 8)));
}

TEST(Canvas, ShallowLineKeepsItsSlope) {
  TImageSurface surface(20, 20, 1);
  TCanvas canvas(surface);
  canvas.Pen.Color = clRed;
  canvas.MoveTo(0, 0);
  canvas.LineTo(10, 2);
  for (const QPoint point : {QPoint(0, 0), QPoint(4, 0), QPoint(6, 1), QPoint(9, 1)})
    EXPECT_EQ(surface.Image.pixelColor(point), QColor(255, 0, 0)) << point.x();
  EXPECT_EQ(Bounds(surface.Image, QColor(255, 0, 0)), QRect(QPoint(0, 0), QPoint(9, 1)));
}

TEST(Canvas, ColourNoneDrawsNothing) {
  TImageSurface surface(20, 20, 1);
  const QImage before = surface.Image.copy();
  TCanvas canvas(surface);
  canvas.Brush.Color = clNone;
  canvas.Pen.Color = clNone;
  canvas.Font.Color = clNone;
  canvas.FillRect({0, 0, 20, 20});
  canvas.LineTo(10, 10);
  canvas.TextOut(0, 0, QStringLiteral("A"));
  EXPECT_EQ(surface.Image, before);
}

TEST(Canvas, TextWithClearBrushLeavesItsGround) {
  TImageSurface surface(60, 30, 1);
  surface.Image.fill(QColor(200, 220, 240));
  TCanvas canvas(surface);
  canvas.Brush.Style = bsClear;
  canvas.Font.Color = clRed;
  canvas.TextOut(10, 5, QStringLiteral("I"));
  const QRect cell(10, 5, canvas.TextWidth(QStringLiteral("I")), canvas.TextHeight(QStringLiteral("I")));
  EXPECT_EQ(surface.Image.pixelColor(cell.topLeft()), QColor(200, 220, 240));
  int inked = 0;
  for (int y = cell.top(); y <= cell.bottom(); ++y) {
    for (int x = cell.left(); x <= cell.right(); ++x)
      inked += surface.Image.pixelColor(x, y) != QColor(200, 220, 240);
  }
  EXPECT_GT(inked, 0);
  EXPECT_LT(inked, cell.width() * cell.height());
}

TEST(Canvas, TextWidthCountsTheLetterSpacing) {
  TImageSurface surface(60, 30, 1);
  TCanvas canvas(surface);
  const int plain = canvas.TextWidth(QStringLiteral("AA"));
  canvas.Font.Face.setLetterSpacing(QFont::AbsoluteSpacing, 3);
  EXPECT_EQ(canvas.TextWidth(QStringLiteral("AA")), plain + 6);
}

TEST(Canvas, ReportsWhatItHasDrawn) {
  TImageSurface surface(60, 30, 1);
  TCanvas canvas(surface);
  canvas.FillRect({3, 4, 5, 6});
  EXPECT_EQ(surface.Drawn, QRect(3, 4, 5, 6));
}

TEST(Canvas, EmptyAreasAreHarmless) {
  TImageSurface surface(20, 20, 1);
  const QImage before = surface.Image.copy();
  TCanvas canvas(surface);
  TBitmap bitmap(0, -5, canvas);
  EXPECT_EQ(bitmap.Width(), 1);
  EXPECT_EQ(bitmap.Height(), 1);
  canvas.FillRect({5, 5, 0, 10});
  canvas.CopyRect({0, 0, 0, 0}, bitmap.Canvas(), {0, 0, 1, 1});
  EXPECT_EQ(surface.Image, before);
}

TEST(Canvas, AreasOutsideTheSurfaceAreCut) {
  TImageSurface surface(20, 20, 1);
  TCanvas canvas(surface);
  const QRect cell(-4, 15, 8, 10);
  TBitmap bitmap(cell.width(), cell.height(), canvas);
  bitmap.Canvas().CopyRect({0, 0, cell.width(), cell.height()}, canvas, cell);
  canvas.Brush.Color = clRed;
  canvas.FillRect(cell);
  EXPECT_EQ(Bounds(surface.Image, QColor(255, 0, 0)), QRect(0, 15, 4, 5));
  canvas.BrushCopy(cell, bitmap, {0, 0, cell.width(), cell.height()}, clWhite);
  EXPECT_EQ(Bounds(surface.Image, QColor(255, 0, 0)), QRect(0, 15, 4, 5));
}
