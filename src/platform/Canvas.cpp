// SPDX-License-Identifier: MIT
#include "platform/Canvas.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

// The device pixels of a logical rectangle: each edge is rounded by itself.
QRect ToDevice(const QRect& area, qreal ratio) {
  const auto edge = [ratio](int logical) { return static_cast<int>(std::lround(logical * ratio)); };
  const int left = edge(area.x());
  const int top = edge(area.y());
  return {left, top, edge(area.x() + area.width()) - left, edge(area.y() + area.height()) - top};
}

// A painter that works in device pixels of an image, whatever the image's ratio.
class TDevicePainter : public QPainter {
public:
  explicit TDevicePainter(QImage& image) : QPainter(&image) {
    const qreal ratio = image.devicePixelRatio();
    scale(1 / ratio, 1 / ratio);
  }
};

bool IsEmpty(const QRect& area) {
  return area.width() <= 0 || area.height() <= 0;
}

// Copies the device pixels at `from` in `source`, as far as both rectangles and the image go.
QImage Cut(const QImage& source, const QRect& from, const QSize& size) {
  QImage pixels = source.copy(QRect(from.topLeft(), from.size().boundedTo(size)));
  pixels.setDevicePixelRatio(1);
  return pixels;
}

void ReplaceColor(QImage& pixels, QRgb key, QRgb replacement) {
  for (int y = 0; y < pixels.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(pixels.scanLine(y));
    std::replace_if(
        line, line + pixels.width(), [key](QRgb pixel) { return (pixel & RGB_MASK) == (key & RGB_MASK); }, replacement);
  }
}

} // namespace

ICanvasSurface::~ICanvasSurface() = default;

void TFont::Assign(const QString& name, int points) {
  Face = QFont(name, points);
}

TCanvas::TCanvas(ICanvasSurface& surface) : surface_(surface) {
  Font.Face = surface.SurfaceFont();
}

QColor TCanvas::Resolve(TColor color) const {
  return ToQColor(color, surface_.SurfacePalette(), surface_.SurfaceColor());
}

int TCanvas::Width() const {
  const QImage& image = surface_.BeginDrawing();
  return static_cast<int>(std::ceil(image.width() / image.devicePixelRatio()));
}

int TCanvas::TextWidth(const QString& text) const {
  return QFontMetrics(Font.Face).horizontalAdvance(text);
}

int TCanvas::TextHeight(const QString&) const {
  return QFontMetrics(Font.Face).height();
}

void TCanvas::MoveTo(int x, int y) {
  position_ = {x, y};
}

void TCanvas::LineTo(int x, int y) {
  Polyline({position_, {x, y}});
}

void TCanvas::Polyline(const QPolygon& points) {
  if (points.isEmpty())
    return;
  position_ = points.constLast();
  const QColor color = Resolve(Pen.Color);
  const QRect bounds(points.boundingRect());
  if (!color.isValid() || bounds.size() == QSize(1, 1))
    return;
  const int margin = Pen.Width;
  const QRect area = bounds.adjusted(-margin, -margin, margin, margin);
  QImage& image = surface_.BeginDrawing();
  const QRect pixels = ToDevice(area, image.devicePixelRatio()) & image.rect();
  if (pixels.isEmpty())
    return;
  const QImage before = image.copy(pixels);
  {
    QPainter painter(&image);
    painter.setPen(QPen(color, Pen.Width, Qt::SolidLine, Qt::SquareCap));
    // The painter draws the end point too; it belongs to the line that goes on from there.
    const QRect end(position_ - QPoint(Pen.Width / 2, Pen.Width / 2), QSize(Pen.Width, Pen.Width));
    painter.setClipRegion(QRegion(area).subtracted(end));
    painter.drawPolyline(points);
  }
  if (image.copy(pixels) != before)
    surface_.EndDrawing(area);
}

void TCanvas::FillRect(const QRect& area) {
  const QColor color = Resolve(Brush.Color);
  if (Brush.Style == bsClear || !color.isValid() || IsEmpty(area))
    return;
  {
    QImage& image = surface_.BeginDrawing();
    TDevicePainter painter(image);
    painter.fillRect(ToDevice(area, image.devicePixelRatio()), color);
  }
  surface_.EndDrawing(area);
}

void TCanvas::TextOut(int x, int y, const QString& text) {
  const QRect area(x, y, TextWidth(text), TextHeight(text));
  FillRect(area);
  const QColor color = Resolve(Font.Color);
  if (!color.isValid() || IsEmpty(area))
    return;
  {
    QPainter painter(&surface_.BeginDrawing());
    painter.setFont(Font.Face);
    painter.setPen(color);
    painter.drawText(x, y + QFontMetrics(Font.Face).ascent(), text);
  }
  // Italic and overhanging glyphs reach a little beyond their advance.
  surface_.EndDrawing(area.adjusted(-area.height() / 2, 0, area.height() / 2, 0));
}

void TCanvas::CopyRect(const QRect& to, TCanvas& source, const QRect& from) {
  if (IsEmpty(to) || IsEmpty(from))
    return;
  QImage& sourceImage = source.surface_.BeginDrawing();
  QImage& image = surface_.BeginDrawing();
  const QRect target = ToDevice(to, image.devicePixelRatio());
  // A bitmap has one spare device pixel each way, so that an area whose edges round apart still fits.
  const QImage pixels = Cut(sourceImage, ToDevice(from, sourceImage.devicePixelRatio()), target.size() + QSize(1, 1));
  {
    TDevicePainter painter(image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(target.topLeft(), pixels);
  }
  surface_.EndDrawing(to);
}

void TCanvas::BrushCopy(const QRect& to, TBitmap& bitmap, const QRect& from, TColor key) {
  if (IsEmpty(to) || IsEmpty(from))
    return;
  QImage& image = surface_.BeginDrawing();
  const QRect target = ToDevice(to, image.devicePixelRatio());
  const QPoint origin = ToDevice(from, bitmap.image_.devicePixelRatio()).topLeft();
  QImage pixels = Cut(bitmap.image_, QRect(origin, target.size()), target.size());
  const QColor keyColor = Resolve(key);
  const QColor fill = Resolve(Brush.Color);
  if (keyColor.isValid() && fill.isValid())
    ReplaceColor(pixels, keyColor.rgb(), fill.rgb());
  {
    TDevicePainter painter(image);
    painter.drawImage(target.topLeft(), pixels);
  }
  surface_.EndDrawing(to);
}

TBitmap::TBitmap(int width, int height, const TCanvas& canvas)
    : width_(std::max(width, 1)), height_(std::max(height, 1)), model_(canvas.Surface()), canvas_(*this) {
  const qreal ratio = canvas.Surface().BeginDrawing().devicePixelRatio();
  image_ = QImage(static_cast<int>(std::ceil(width_ * ratio)) + 1, static_cast<int>(std::ceil(height_ * ratio)) + 1,
                  QImage::Format_RGB32);
  image_.setDevicePixelRatio(ratio);
  image_.fill(Qt::white);
}

TBitmap::~TBitmap() = default;

QFont TBitmap::SurfaceFont() const {
  return model_.SurfaceFont();
}
QPalette TBitmap::SurfacePalette() const {
  return model_.SurfacePalette();
}
QColor TBitmap::SurfaceColor() const {
  return model_.SurfaceColor();
}

} // namespace platform
