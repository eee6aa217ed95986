// SPDX-License-Identifier: MIT
// Drawing on a control outside and inside its paint event.
//
// A control that add-ins draw on keeps its picture in an image of its own and shows that image. TCanvas draws into the
// image: each operation opens a painter, draws and closes it, so a canvas may be used at any time on the main thread
// while no other painter is open on the surface. All coordinates are logical pixels of the control's client area; they
// fall on device pixels by rounding each edge, so neighbouring rectangles meet without gap or overlap at any device
// pixel ratio.
#pragma once

#include "platform/Color.h"
#include "platform/Export.h"

#include <QFont>
#include <QImage>
#include <QPolygon>
#include <QRect>
#include <QString>

namespace platform {

// The picture behind a canvas. Implemented by each control that can be drawn on, and by TBitmap.
class VIRELLE_PLATFORM ICanvasSurface {
public:
  virtual ~ICanvasSurface();

  // The image to draw into, its device pixel ratio set. Called before every operation; outside a paint event the
  // control brings the picture up to date first, so that a drawing lands on what the user is about to see.
  virtual QImage& BeginDrawing() = 0;
  // The operation has touched `area` (logical). Outside a paint event the control sees to it that the area is shown.
  virtual void EndDrawing(const QRect& area) = 0;
  // The font that a canvas of this surface starts with.
  virtual QFont SurfaceFont() const = 0;
  // Where system colours come from.
  virtual QPalette SurfacePalette() const = 0;
  // What clDefault stands for here.
  virtual QColor SurfaceColor() const = 0;
};

enum TBrushStyle { bsSolid, bsClear };

struct TPen {
  TColor Color = clBlack;
  int Width = 1; // logical pixels
};

struct TBrush {
  TColor Color = clWhite;
  TBrushStyle Style = bsSolid; // bsClear: text leaves its ground as it is, FillRect draws nothing
};

// A font and its colour. Assigning one copies it.
struct TFont {
  QFont Face;
  TColor Color = clWindowText;

  // Replaces the face by family `name` at `points` points, neither bold nor italic.
  VIRELLE_PLATFORM void Assign(const QString& name, int points);
  void SetSize(int points) { Face.setPointSize(points); }
  void SetBold(bool bold) { Face.setBold(bold); }
};

class TBitmap;

// The lasting drawing tool of one surface. Pen, Brush and Font keep their values between operations and between paint
// events; whoever changes them puts them back.
class VIRELLE_PLATFORM TCanvas {
public:
  // Draws on `surface`, which must outlive the canvas.
  explicit TCanvas(ICanvasSurface& surface);

  TPen Pen;
  TBrush Brush;
  TFont Font;

  // The size of `text` in the current font, in logical pixels. The width is the advance, letter spacing included.
  int TextWidth(const QString& text) const;
  int TextHeight(const QString& text) const;

  // Sets the point at which the next line starts.
  void MoveTo(int x, int y);
  // Draws with the pen from the current point up to, not including, (x, y), which becomes the current point.
  void LineTo(int x, int y);
  // Draws with the pen through `points`, up to, not including, the last, which becomes the current point: what MoveTo
  // and a LineTo for each point draw, in one operation. Lines that stood there already cause no copy to the screen.
  void Polyline(const QPolygon& points);
  // Fills `area` with the brush.
  void FillRect(const QRect& area);
  // Writes `text` in the font with its top left corner at (x, y); a solid brush fills the text's ground first.
  void TextOut(int x, int y, const QString& text);
  // Copies the pixels of `from` in `source` to the top left corner of `to`, device pixel by device pixel, cut to `to`.
  void CopyRect(const QRect& to, TCanvas& source, const QRect& from);
  // Copies `from` of `bitmap` to `to` as CopyRect does, but every pixel of exactly the colour `key` becomes the
  // brush's.
  void BrushCopy(const QRect& to, TBitmap& bitmap, const QRect& from, TColor key);

  // The width of the surface in logical pixels, a part of one counted whole.
  int Width() const;

  ICanvasSurface& Surface() const { return surface_; }

private:
  QColor Resolve(TColor color) const;

  ICanvasSurface& surface_;
  QPoint position_;
};

// An off-screen picture with a canvas of its own. It is made for one drawing and takes its device pixel ratio, font and
// colours from that drawing's canvas, so that a copy to and fro is exact.
class VIRELLE_PLATFORM TBitmap : private ICanvasSurface {
public:
  // A picture of width x height logical pixels (at least 1 x 1) for use with `canvas`.
  TBitmap(int width, int height, const TCanvas& canvas);
  ~TBitmap() override;

  int Width() const { return width_; }
  int Height() const { return height_; }
  TCanvas& Canvas() { return canvas_; }

private:
  friend class TCanvas;
  QImage& BeginDrawing() override { return image_; }
  void EndDrawing(const QRect&) override {}
  QFont SurfaceFont() const override;
  QPalette SurfacePalette() const override;
  QColor SurfaceColor() const override;

  int width_;
  int height_;
  QImage image_;
  const ICanvasSurface& model_;
  TCanvas canvas_;
};

} // namespace platform
