// SPDX-License-Identifier: MIT
#include "host/QVImages.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QRegion>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane {

namespace {

// A blue that keeps its distance from light and dark grounds alike.
constexpr QRgb kAccent = 0xFF4284D0;

// Draws in units of a sixteenth of the image. Every edge is put on a whole device pixel, so nothing is blurred, and all
// lines are equally thick.
class TGrid {
public:
  TGrid(QPainter& painter, const QRect& area)
      : painter_(painter), area_(area), line_(std::max(static_cast<int>(std::lround(area.width() / 16.0)), 1)) {}

  void Fill(double left, double top, double right, double bottom, const QColor& color) {
    painter_.fillRect(Snapped(left, top, right, bottom), color);
  }
  // A horizontal line below `top`.
  void Rule(double left, double top, double right, const QColor& color) {
    QRect rule = Snapped(left, top, right, top);
    rule.setHeight(line_);
    painter_.fillRect(rule, color);
  }
  // A frame inside the given edges.
  void Frame(double left, double top, double right, double bottom, const QColor& color) {
    const QRect outside = Snapped(left, top, right, bottom);
    const QRegion frame = QRegion(outside) - outside.adjusted(line_, line_, -line_, -line_);
    for (const QRect& side : frame)
      painter_.fillRect(side, color);
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
  int line_; // in device pixels
};

struct TInks {
  QColor Line;   // outlines and text
  QColor Accent; // what the image is about
};

void DrawSections(TGrid grid, const TInks& inks) {
  grid.Frame(2, 0, 14, 16, inks.Line);
  for (const double top : {3.0, 9.0}) {
    grid.Fill(4, top, 12, top + 2, inks.Accent);
    grid.Rule(4, top + 3, 12, inks.Line);
  }
}

void DrawUnits(TGrid grid, const TInks& inks) {
  grid.Frame(0, 0, 10, 11, inks.Line);
  grid.Rule(2, 3, 8, inks.Line);
  grid.Erase(4, 4, 16, 16);
  grid.Frame(5, 5, 16, 16, inks.Line);
  grid.Fill(7, 7, 14, 14, inks.Accent);
}

void DrawWindows(TGrid grid, const TInks& inks) {
  grid.Frame(0, 1, 16, 15, inks.Line);
  grid.Rule(1, 4, 15, inks.Line);
  grid.Fill(2, 2, 14, 3, inks.Accent);
  grid.Fill(2, 6, 6, 13, inks.Accent);
}

void DrawPage(TGrid grid, const TInks& inks) {
  grid.Frame(1, 0, 12, 14, inks.Line);
  grid.Rule(3, 3, 10, inks.Line);
  grid.Rule(3, 6, 10, inks.Line);
  grid.Erase(7, 8, 16, 16);
}

void DrawAddTemplate(TGrid grid, const TInks& inks) {
  DrawPage(grid, inks);
  grid.Fill(8, 11, 16, 13, inks.Accent);
  grid.Fill(11, 8, 13, 16, inks.Accent);
}

void DrawDeleteTemplate(TGrid grid, const TInks& inks) {
  DrawPage(grid, inks);
  grid.Fill(8, 11, 16, 13, inks.Accent);
}

void DrawRenameTemplate(TGrid grid, const TInks& inks) {
  grid.Frame(0, 4, 16, 12, inks.Line);
  grid.Erase(9, 1, 13, 15);
  grid.Fill(10, 1, 12, 15, inks.Accent);
  grid.Fill(8, 1, 14, 3, inks.Accent);
  grid.Fill(8, 13, 14, 15, inks.Accent);
}

using TDrawing = void (*)(TGrid grid, const TInks& inks);
constexpr std::array<TDrawing, qvImageCount> kDrawings = {DrawSections,    DrawUnits,          DrawWindows,
                                                          DrawAddTemplate, DrawDeleteTemplate, DrawRenameTemplate};

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
