// SPDX-License-Identifier: MIT
#include "host/QVImages.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QRectF>

#include <array>
#include <cmath>

namespace quorvane {

namespace {

// A blue that keeps its distance from light and dark grounds alike.
constexpr QRgb kAccent = 0xFF4284D0;

// Draws in units of a sixteenth of the image. Every edge is put on a whole device pixel, so nothing is blurred.
class TGrid {
public:
  TGrid(QPainter& painter, const QRect& area) : painter_(painter), area_(area) {}

  void Fill(double left, double top, double right, double bottom, const QColor& color) {
    painter_.fillRect(Snapped(left, top, right, bottom), color);
  }
  // A frame one unit wide, inside the given edges.
  void Frame(double left, double top, double right, double bottom, const QColor& color) {
    Fill(left, top, right, top + 1, color);
    Fill(left, bottom - 1, right, bottom, color);
    Fill(left, top + 1, left + 1, bottom - 1, color);
    Fill(right - 1, top + 1, right, bottom - 1, color);
  }
  void Erase(double left, double top, double right, double bottom) {
    const QPainter::CompositionMode mode = painter_.compositionMode();
    painter_.setCompositionMode(QPainter::CompositionMode_Clear);
    Fill(left, top, right, bottom, Qt::transparent);
    painter_.setCompositionMode(mode);
  }

private:
  QRect Snapped(double left, double top, double right, double bottom) const {
    const auto x = [this](double units) {
      return area_.left() + static_cast<int>(std::lround(units * area_.width() / 16));
    };
    const auto y = [this](double units) {
      return area_.top() + static_cast<int>(std::lround(units * area_.height() / 16));
    };
    return {QPoint(x(left), y(top)), QPoint(x(right) - 1, y(bottom) - 1)};
  }

  QPainter& painter_;
  QRect area_;
};

struct TInks {
  QColor Line;   // outlines and text
  QColor Accent; // what the image is about
};

void DrawSections(TGrid grid, const TInks& inks) {
  grid.Frame(2, 0, 14, 16, inks.Line);
  for (const double top : {3.0, 9.0}) {
    grid.Fill(4, top, 12, top + 2, inks.Accent);
    grid.Fill(5, top + 3, 11, top + 4, inks.Line);
  }
}

void DrawUnits(TGrid grid, const TInks& inks) {
  grid.Frame(0, 0, 10, 11, inks.Line);
  grid.Fill(2, 3, 8, 4, inks.Line);
  grid.Erase(4, 4, 16, 16);
  grid.Frame(5, 5, 16, 16, inks.Line);
  grid.Fill(7, 7, 14, 14, inks.Accent);
}

using TDrawing = void (*)(TGrid grid, const TInks& inks);
constexpr std::array<TDrawing, qvImageCount> kDrawings = {DrawSections, DrawUnits};

class TDrawnIcon : public QIconEngine {
public:
  explicit TDrawnIcon(TDrawing drawing) : drawing_(drawing) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QSize size(static_cast<int>(std::lround(rect.width() * ratio)),
                     static_cast<int>(std::lround(rect.height() * ratio)));
    painter->drawPixmap(rect, pixmap(size, mode, state));
  }

  // `size` is in device pixels.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    if (mode == QIcon::Disabled)
      painter.setOpacity(0.4);
    drawing_(TGrid(painter, drawn.rect()),
             {QGuiApplication::palette().color(QPalette::Active, QPalette::ButtonText), QColor::fromRgba(kAccent)});
    return drawn;
  }

  QIconEngine* clone() const override { return new TDrawnIcon(*this); }

private:
  TDrawing drawing_;
};

} // namespace

QIcon Images(int index) {
  if (index < 0 || index >= qvImageCount)
    return {};
  return QIcon(new TDrawnIcon(kDrawings.at(static_cast<std::size_t>(index))));
}

} // namespace quorvane
