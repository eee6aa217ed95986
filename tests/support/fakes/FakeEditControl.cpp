// SPDX-License-Identifier: MIT
#include "support/fakes/FakeEditControl.h"

#include <QFontMetrics>

#include <cmath>

namespace fakes {

namespace {

QFont CellFont() {
  QFont font(QStringLiteral("DejaVu Sans Mono"), 10);
  const qreal advance = QFontMetricsF(font).horizontalAdvance(u'A');
  font.setLetterSpacing(QFont::AbsoluteSpacing, std::round(advance) - advance);
  return font;
}

} // namespace

FakeEditControl::FakeEditControl(QWidget* parent)
    : QWidget(parent), font_(CellFont()), canvas_(*this),
      windowProc_(platform::TWndMethod::Of<&FakeEditControl::DefaultProc>(*this)) {
  setObjectName(QStringLiteral("Editor"));
  SetUp(80, 30, 0);
}

FakeEditControl::~FakeEditControl() {
  Send(platform::WM_DESTROY);
}

void FakeEditControl::SetUp(int columns, int lines, int gutterWidth, qreal ratio) {
  const QSize cell = CellSize();
  gutterWidth_ = gutterWidth;
  Width = gutterWidth + columns * cell.width();
  PublishedClientHeight = lines * cell.height();
  LinesInWindow = lines + 1;
  picture_ = QImage(static_cast<int>(std::lround(Width * ratio)),
                    static_cast<int>(std::lround(PublishedClientHeight * ratio)), QImage::Format_RGB32);
  picture_.setDevicePixelRatio(ratio);
  picture_.fill(Qt::white);
}

QSize FakeEditControl::CellSize() const {
  const QFontMetrics metrics(font_);
  return {metrics.horizontalAdvance(u'A'), metrics.height()};
}

QImage FakeEditControl::Cell(int column, int row) const {
  const QSize cell = CellSize();
  return Pixels(QRect(QPoint(gutterWidth_ + (column - 1) * cell.width(), (row - 1) * cell.height()), cell));
}

QImage FakeEditControl::Pixels(const QRect& area) const {
  const qreal ratio = picture_.devicePixelRatio();
  const auto edge = [ratio](int logical) { return static_cast<int>(std::lround(logical * ratio)); };
  const QPoint topLeft(edge(area.x()), edge(area.y()));
  const QPoint bottomRight(edge(area.x() + area.width()) - 1, edge(area.y() + area.height()) - 1);
  QImage pixels = picture_.copy(QRect(topLeft, bottomRight));
  pixels.setDevicePixelRatio(1);
  return pixels;
}

platform::TMessage FakeEditControl::Send(unsigned code, std::uintptr_t wParam) {
  platform::TMessage message;
  message.Msg = code;
  message.WParam = wParam;
  windowProc_(message);
  return message;
}

void FakeEditControl::Repaint() {
  ++Repaints;
  Send(platform::WM_PAINT);
}

QImage& FakeEditControl::BeginDrawing() {
  if (OnBeginDrawing)
    OnBeginDrawing();
  return picture_;
}

void FakeEditControl::DefaultProc(platform::TMessage& message) {
  received_.push_back(message.Msg);
  if (OnMessage)
    OnMessage(message);
}

} // namespace fakes
