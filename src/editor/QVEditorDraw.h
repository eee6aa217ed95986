// SPDX-License-Identifier: MIT
// What the add-in draws over the host's picture of an editor, as functions of a canvas and plain values: they know
// neither editor nor options. Coordinates are logical pixels of the canvas. Each function leaves pen, brush and font of
// the canvas as it found them. Main thread only.
#pragma once

#include "platform/Canvas.h"

#include <QPoint>
#include <QString>

namespace quorvane {

// Keeps pen, brush and font of a canvas, and puts them back when it goes.
class TQVCanvasKeeper {
public:
  explicit TQVCanvasKeeper(platform::TCanvas& canvas)
      : canvas_(canvas), pen_(canvas.Pen), brush_(canvas.Brush), font_(canvas.Font) {}
  ~TQVCanvasKeeper() {
    canvas_.Pen = pen_;
    canvas_.Brush = brush_;
    canvas_.Font = font_;
  }
  TQVCanvasKeeper(const TQVCanvasKeeper&) = delete;
  TQVCanvasKeeper& operator=(const TQVCanvasKeeper&) = delete;

private:
  platform::TCanvas& canvas_;
  platform::TPen pen_;
  platform::TBrush brush_;
  platform::TFont font_;
};

// Colours the ground of `cells` character cells from `topLeft` on with `fill`, keeping the characters: the pixels there
// are taken from `screen` first and laid back over the fill, all but those of the colour `ground`. A cell is as wide as
// an "A" and as high as a text in the canvas's font.
void DrawCells(platform::TCanvas& canvas, platform::TCanvas& screen, const QPoint& topLeft, int cells,
               platform::TColor fill, platform::TColor ground);

// Writes a marker's number with its top left corner at `topLeft`: small, green, without a ground of its own. It may
// reach over the characters to its right.
void DrawSubInteger(platform::TCanvas& canvas, const QPoint& topLeft, int value);

// Draws a red zigzag under a token: from `start` on, in steps of 3 pixels, between 2 above and 2 below it, first up. It
// ends with the last step before `endX`.
void DrawZigzag(platform::TCanvas& canvas, const QPoint& start, int endX);

// A column of line numbers at the left edge of a canvas.
struct TQVLineNumberColumn {
  int Width = 0;         // of the column, in pixels
  int LineHeight = 0;    // in pixels
  int TopLine = 1;       // first visible line, from 1
  int LinesInWindow = 0; // visible lines, a partly visible last one included
  int LineCount = 0;     // lines of the file; beyond it nothing is written
  int CaretLine = 0;     // the line written in bold, from 1
  QString FontName;
  int FontSize = 0; // in points
  platform::TColor Color = platform::clBlack;
};

// Writes the numbers of the visible lines and of one line more, right-aligned so that each ends the width of an "A"
// short of the column's right edge.
void DrawLineNumbers(platform::TCanvas& canvas, const TQVLineNumberColumn& column);

} // namespace quorvane
