// SPDX-License-Identifier: MIT
#include "settings/QVColorPickerDrawing.h"

#include <QPaintDevice>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane {

namespace {

void Fill(QPainter& painter, const QRectF& area, const QColor& color) {
  painter.fillRect(Snapped(painter, area), color);
}

// A frame inside the edges of `area`, `width` logical pixels wide, but at least one device pixel.
void Frame(QPainter& painter, const QRectF& area, const QColor& color, double width = 1) {
  const double pixel = 1 / painter.device()->devicePixelRatioF();
  const QRectF outer = Snapped(painter, area);
  const double line = std::max(1.0, std::floor(width / pixel)) * pixel;
  const QRectF inner = outer.adjusted(line, line, -line, -line);
  painter.fillRect(QRectF(outer.topLeft(), QPointF(outer.right(), inner.top())), color);
  painter.fillRect(QRectF(QPointF(outer.left(), inner.bottom()), outer.bottomRight()), color);
  painter.fillRect(QRectF(QPointF(outer.left(), inner.top()), inner.bottomLeft()), color);
  painter.fillRect(QRectF(inner.topRight(), QPointF(outer.right(), inner.bottom())), color);
}

void StrokePath(QPainter& painter, const QPainterPath& path, const QColor& ink, double width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.strokePath(path, QPen(ink, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.restore();
}

// The largest square in the middle of `area`, at most `limit` wide.
QRectF MiddleSquare(const QRectF& area, double limit) {
  const double side = std::min({area.width(), area.height(), limit});
  QRectF square(0, 0, side, side);
  square.moveCenter(area.center());
  return square;
}

// The letter A.
void DrawForeground(QPainter& painter, const QRectF& box, const QColor& ink) {
  const double unit = box.width() / 12;
  const auto at = [&](double x, double y) { return QPointF(box.left() + x * unit, box.top() + y * unit); };
  QPainterPath letter;
  letter.moveTo(at(1.5, 12));
  letter.lineTo(at(6, 1));
  letter.lineTo(at(10.5, 12));
  letter.moveTo(at(3.2, 8.2));
  letter.lineTo(at(8.8, 8.2));
  StrokePath(painter, letter, ink, 1.7 * unit);
}

// A frame whose inside is filled, but for a narrow gap between them.
void DrawBackground(QPainter& painter, const QRectF& box, const QColor& ink) {
  const double unit = box.width() / 12;
  Frame(painter, box.adjusted(0, unit, 0, -unit), ink);
  Fill(painter, box.adjusted(2.5 * unit, 3.5 * unit, -2.5 * unit, -3.5 * unit), ink);
}

// Three lines, each wider than the one above it.
void DrawLines(QPainter& painter, const QRectF& box, const QColor& ink) {
  const double unit = box.width() / 12;
  constexpr std::array<std::array<double, 2>, 3> kLines = {{{1, 2}, {4.5, 6.5}, {8.5, 11.5}}};
  for (const auto& [top, bottom] : kLines)
    Fill(painter, QRectF(QPointF(box.left(), box.top() + top * unit), QPointF(box.right(), box.top() + bottom * unit)),
         ink);
}

QColor Between(const QColor& one, const QColor& other) {
  return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2);
}

} // namespace

QRectF Snapped(const QPainter& painter, const QRectF& area) {
  const QTransform toDevice = painter.deviceTransform();
  const QRectF device = toDevice.mapRect(area);
  const QRectF whole(QPointF(std::round(device.left()), std::round(device.top())),
                     QPointF(std::round(device.right()), std::round(device.bottom())));
  return toDevice.inverted().mapRect(whole);
}

void DrawGlyph(QPainter& painter, const QRectF& area, TGlyphType type, const QColor& ink) {
  const QRectF box = MiddleSquare(area, 12);
  switch (type) {
  case gtForeground:
    DrawForeground(painter, box, ink);
    break;
  case gtBackground:
    DrawBackground(painter, box, ink);
    break;
  case gtLines:
    DrawLines(painter, box, ink);
    break;
  case gtCustom:
    break;
  }
}

void DrawDropDown(QPainter& painter, const QRectF& area, const QColor& ink) {
  const double half = std::min(area.width() / 2 - 2, 3.5);
  const QPointF middle = area.center();
  QPainterPath arrow;
  arrow.moveTo(middle.x() - half, middle.y() - half / 2);
  arrow.lineTo(middle.x() + half, middle.y() - half / 2);
  arrow.lineTo(middle.x(), middle.y() + half / 2);
  arrow.closeSubpath();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(arrow, ink);
  painter.restore();
}

void DrawSwatch(QPainter& painter, const QRectF& area, const QColor& color, const QPalette& palette) {
  const QRectF whole = Snapped(painter, area);
  const QColor edge = Between(palette.color(QPalette::ButtonText), palette.color(QPalette::Button));
  if (color.isValid()) {
    painter.fillRect(whole, color);
  } else {
    painter.save();
    painter.setClipRect(whole);
    QPainterPath diagonal;
    diagonal.moveTo(whole.bottomLeft());
    diagonal.lineTo(whole.topRight());
    StrokePath(painter, diagonal, edge, 1.2); // in a soft ink: a tick may stand on it
    painter.restore();
  }
  Frame(painter, whole, edge);
}

void DrawTick(QPainter& painter, const QRectF& area, const QColor& ground) {
  const QRectF box = MiddleSquare(area, 10);
  const double unit = box.width() / 10;
  QPainterPath tick;
  tick.moveTo(box.left() + 1.5 * unit, box.top() + 5 * unit);
  tick.lineTo(box.left() + 4 * unit, box.top() + 7.8 * unit);
  tick.lineTo(box.left() + 8.5 * unit, box.top() + 2.2 * unit);
  // The weights by which the eye takes red, green and blue for bright.
  const int brightness = (299 * ground.red() + 587 * ground.green() + 114 * ground.blue()) / 1000;
  StrokePath(painter, tick, brightness < 128 ? Qt::white : Qt::black, 1.8 * unit);
}

void DrawFocus(QPainter& painter, const QRectF& area, const QPalette& palette) {
  const double pixel = 1 / painter.device()->devicePixelRatioF();
  const QRectF outer = Snapped(painter, area);
  const double line = std::max(1.0, std::floor(1 / pixel)) * pixel;
  Frame(painter, outer, palette.color(QPalette::ButtonText));
  Frame(painter, outer.adjusted(line, line, -line, -line), palette.color(QPalette::Highlight));
}

} // namespace quorvane
