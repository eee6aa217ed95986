// SPDX-License-Identifier: MIT
#include "editor/QVEditorDraw.h"

#include <QRect>

#include <algorithm>

namespace quorvane {

namespace {

constexpr int kSubIntegerPoints = 8;

} // namespace

void DrawCells(platform::TCanvas& canvas, platform::TCanvas& screen, const QPoint& topLeft, int cells,
               platform::TColor fill, platform::TColor ground) {
  const TQVCanvasKeeper keeper(canvas);
  canvas.Brush.Color = fill;
  canvas.Brush.Style = platform::bsSolid;
  const QSize size(cells * canvas.TextWidth(QStringLiteral("A")), canvas.TextHeight(QStringLiteral("^q")));
  const QRect area(topLeft, size);
  const QRect whole(QPoint(0, 0), size);
  platform::TBitmap snapshot(size.width(), size.height(), screen);
  snapshot.Canvas().CopyRect(whole, screen, area);
  canvas.FillRect(area);
  canvas.BrushCopy(area, snapshot, whole, ground);
}

void DrawSubInteger(platform::TCanvas& canvas, const QPoint& topLeft, int value) {
  const TQVCanvasKeeper keeper(canvas);
  canvas.Brush.Style = platform::bsClear;
  canvas.Font.Color = platform::clGreen;
  canvas.Font.SetSize(kSubIntegerPoints);
  canvas.TextOut(topLeft.x(), topLeft.y(), QString::number(value));
}

void DrawZigzag(platform::TCanvas& canvas, const QPoint& start, int endX) {
  constexpr int step = 3;
  constexpr int height = 4;
  const TQVCanvasKeeper keeper(canvas);
  canvas.Pen.Color = platform::clRed;
  QPolygon points{start};
  int y = start.y() - height / 2;
  for (int x = start.x() + step; x < endX; x += step) {
    points.append({x, y});
    y += y < start.y() ? height : -height;
  }
  canvas.Polyline(points);
}

void DrawLineNumbers(platform::TCanvas& canvas, const TQVLineNumberColumn& column) {
  const TQVCanvasKeeper keeper(canvas);
  canvas.Brush.Style = platform::bsClear;
  canvas.Font.Assign(column.FontName, std::max(column.FontSize, 1));
  canvas.Font.Color = column.Color;
  const int last = std::min(column.LinesInWindow, column.LineCount - column.TopLine);
  for (int row = 0; row <= last; ++row) {
    const int line = column.TopLine + row;
    const QString text = QString::number(line);
    canvas.Font.SetBold(line == column.CaretLine);
    canvas.TextOut(column.Width - canvas.TextWidth(text + u'A'), row * column.LineHeight, text);
  }
}

} // namespace quorvane
