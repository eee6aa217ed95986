// SPDX-License-Identifier: MIT
// What the tests of the line numbers share: an editor window with line numbers, and what can be seen of them.
#pragma once

#include "AddinFixture.h"
#include "platform/Align.h"
#include "platform/Component.h"
#include "platform/Metrics.h"
#include "toolbar/QVLineNumbers.h"

#include <QAction>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <cmath>

namespace quorvane {

inline constexpr int kLineHeight = 16;
inline constexpr int kEdge = 2; // the height of an etched edge

// Counts how often the editor's font is asked for, which each painting of the numbers does once.
class CountedOptions : public fakes::FakeEditOptions {
public:
  QString GetFontName() const override {
    ++Asked;
    return FakeEditOptions::GetFontName();
  }
  mutable int Asked = 0;
};

// An editor window with line numbers and no proxy: what an editor of 40 lines shows of a file of 5.
class QVLineNumbers : public AddinTest {
protected:
  QVLineNumbers() {
    Services->TopView = View;
    Services->Options = Options;
    ShowLines(40, 5);
    Numbers->resize(60, 41 * kLineHeight);
  }

  void ShowLines(int linesShown, int lineCount) {
    Editor().LinesInWindow = linesShown + 1;
    Editor().PublishedClientHeight = linesShown * kLineHeight;
    Editor().LineCount = lineCount;
  }

  fakes::FakeEditControl& Editor() { return Window->Editor(); }
  const QImage& Picture() const { return Numbers->Picture(); }

  // What a form does at its next layout.
  void LayOut() { Numbers->resize(Numbers->sizeHint().width(), Numbers->height()); }
  // A paint event, in which the numbers are painted whatever they were before.
  void PaintAll() {
    Numbers->Invalidate();
    Numbers->grab();
  }
  // How often the numbers have been painted since the start or the last call.
  int TakePaints() { return std::exchange(Options->Asked, 0); }

  // The device pixels of a logical rectangle of `image`.
  QImage Cut(const QImage& image, const QRect& area) const {
    const qreal ratio = Picture().devicePixelRatio();
    const auto edge = [ratio](int logical) { return static_cast<int>(std::lround(logical * ratio)); };
    const QPoint topLeft(edge(area.x()), edge(area.y()));
    QImage pixels =
        image.copy(QRect(topLeft, QPoint(edge(area.x() + area.width()) - 1, edge(area.y() + area.height()) - 1)));
    pixels.setDevicePixelRatio(1);
    return pixels;
  }
  QImage Cut(const QRect& area) const { return Cut(Picture(), area); }
  // Row `row` of the numbers, from 0.
  QRect Row(int row) const {
    const QRect client = Numbers->GetClientRect();
    return {client.x(), row * kLineHeight, client.width(), kLineHeight};
  }
  QRect Strip() const {
    const QRect client = Numbers->GetClientRect();
    const int top = client.y() + client.height();
    return {client.x(), top, client.width(), Numbers->height() - top};
  }

  QFont NumberFont(bool bold) const {
    QFont font(QStringLiteral("DejaVu Sans Mono"), 8);
    font.setBold(bold);
    return font;
  }
  // `area` of a picture of `ground` with nothing but `text` in it, its top left corner at `corner`.
  QImage Expected(const QRect& area, const QPoint& corner, const QString& text, bool bold, const QColor& color,
                  const QColor& ground) const {
    QImage image(Picture().size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(Picture().devicePixelRatio());
    image.fill(ground);
    QPainter painter(&image);
    painter.setFont(NumberFont(bold));
    painter.setPen(color);
    painter.drawText(corner + QPoint(0, QFontMetrics(NumberFont(bold)).ascent()), text);
    painter.end();
    return Cut(image, area);
  }
  // Whether row `row` shows `text` and nothing else.
  bool RowShows(int row, const QString& text, bool bold = false) const {
    const QRect area = Row(row);
    return Cut(area) == Expected(area, area.topLeft(), text, bold, Qt::black, Ground());
  }
  bool IsFilled(const QRect& area, const QColor& color) const {
    const QImage pixels = Cut(area);
    QImage filled(pixels.size(), QImage::Format_RGB32);
    filled.fill(color);
    return pixels == filled;
  }

  QColor Ground() const { return Numbers->palette().color(QPalette::Button); }
  QColor SystemColor(QPalette::ColorRole role) const { return Numbers->palette().color(role); }

  std::unique_ptr<fakes::TEditWindow> Window = std::make_unique<fakes::TEditWindow>();
  std::shared_ptr<fakes::FakeBuffer> Buffer = std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/unit1.pas"));
  std::shared_ptr<fakes::FakeView> View = std::make_shared<fakes::FakeView>(Buffer, Window.get());
  std::shared_ptr<CountedOptions> Options = std::make_shared<CountedOptions>();
  QPointer<TQVLineNumbers> Numbers = new TQVLineNumbers(Window.get());
};

} // namespace quorvane
