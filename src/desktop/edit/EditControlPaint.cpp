// SPDX-License-Identifier: MIT
// How the edit control's picture comes about and gets to the screen.
#include "desktop/edit/CaretBlink.h"
#include "desktop/edit/CellLayout.h"
#include "desktop/edit/EditControl.h"
#include "desktop/edit/EditViewport.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace desktop {

namespace {

constexpr int insertCaretWidth = 2;
// From the gutter's line to the text, the line included.
constexpr int gutterGap = 4;

// Sends a viewport's painting to an image for as long as it lives.
class Redirection {
public:
  Redirection(EditViewport& viewport, QImage& image, int shift) : viewport_(viewport) {
    viewport_.redirectTo(&image, shift);
  }
  ~Redirection() { viewport_.redirectTo(nullptr, 0); }
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

private:
  EditViewport& viewport_;
};

} // namespace

void TEditControl::Invalidate() {
  requestPaint();
}

void TEditControl::Repaint() {
  requestPaint();
  if (!painting_ && isVisible())
    viewport_->repaint();
}

void TEditControl::holdPainting() {
  ++paintingHolds_;
  viewport_->setUpdatesEnabled(false);
}

void TEditControl::releasePainting() {
  if (--paintingHolds_ > 0)
    return;
  viewport_->setUpdatesEnabled(true);
  requestPaint();
}

void TEditControl::requestPaint() {
  paintWanted_ = true;
  viewport_->update();
  gutter_->update();
  gutterAsked_ = true;
}

void TEditControl::requestErase() {
  eraseWanted_ = true;
  requestPaint();
}

// Has `area` of the client area copied to the screen; nothing is painted.
void TEditControl::requestCopy(const QRegion& area) {
  const QRegion text = area.translated(-gutterWidth_, 0) & viewport_->rect();
  copyOnly_ += text;
  if (!text.isEmpty())
    viewport_->update(text);
  if (area.intersects(gutter_->rect())) // never more than a copy of the picture
    gutter_->update(area & gutter_->rect());
}

// The text widget asks for updates by its own blinking as well, which changes nothing here: a small rectangle around
// the caret that no scrolling goes with. Moves of the caret and changes of the text are heard of in other ways too.
void TEditControl::onUpdateRequest(const QRect& rect, int dy) {
  constexpr int margin = 6; // Qt grows the caret's rectangle by up to 5 pixels
  if (dy == 0 && caretRect().adjusted(-margin, -margin, margin, margin).contains(rect))
    copyOnly_ += rect;
  else
    requestPaint();
}

QImage& TEditControl::BeginDrawing() {
  if (!painting_) {
    // What is still to be painted would remove the drawing again.
    if (isVisible())
      QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
    fitSurface();
  }
  return surface_;
}

void TEditControl::EndDrawing(const QRect& area) {
  if (!painting_)
    requestCopy(area);
}

void TEditControl::paintEvent(QPaintEvent* event) {
  const QRegion& region = event->region();
  const bool rendered = viewport_->isRendered(); // the screen still waits for what was asked for
  const bool copyWillDo = rendered || (region - copyOnly_).isEmpty();
  if (paintWanted_ || !surfaceFits() || !copyWillDo)
    paintPass(*event);
  if (!rendered)
    copyOnly_ -= region;
  QPainter painter(viewport_);
  painter.drawImage(-gutterWidth_, 0, surface_);
  paintMargin(painter);
  paintFrames(painter);
  hotLink_->paint(painter, scheme_.text);
  paintCaret(painter);
}

// Paints the whole picture, whatever part of it the event is about.
void TEditControl::paintPass(QPaintEvent& event) {
  const QScopedValueRollback painting(painting_, true);
  fitSurface();
  paintWanted_ = false;
  copyOnly_ = {};
  if (highlighter_)
    highlighter_->prepare(firstVisibleBlock(), lastVisibleBlock());
  if (eraseWanted_) {
    eraseWanted_ = false;
    send(platform::WM_ERASEBKGND, 0, &event);
  }
  send(platform::WM_PAINT, 0, &event);
  findFrames();

  const QRegion shown = viewport_->isRendered() ? QRegion() : event.region();
  QRegion unseen = (QRegion(viewport_->rect()) - shown).translated(gutterWidth_, 0);
  if (!gutterAsked_)
    unseen += gutter_->rect();
  requestCopy(unseen);
}

void TEditControl::paintByDefault() {
  eraseByDefault();
  const Redirection redirection(*viewport_, surface_, gutterWidth_);
  auto* const layout = qobject_cast<CellLayout*>(document()->documentLayout());
  const qreal ratio = surface_.devicePixelRatio();
  layout->setCaretAway(std::trunc(ratio) != ratio);
  QPaintEvent whole(viewport_->rect());
  QPlainTextEdit::paintEvent(&whole);
  layout->setCaretAway(false);
}

// The ground of text and gutter and the line between them. Whoever gets this message at another time than in a paint
// pass sees the result at once.
void TEditControl::eraseByDefault() {
  if (!painting_) {
    fitSurface();
    requestCopy(QRect(QPoint(), clientSize()));
  }
  QPainter painter(&surface_);
  painter.fillRect(QRect(QPoint(), clientSize()), scheme_.ground);
  const int line = gutterWidth_ - gutterGap;
  if (line > 0) {
    painter.fillRect(QRect(0, 0, line, viewport_->height()), scheme_.gutterGround);
    painter.fillRect(QRect(line, 0, 1, viewport_->height()), scheme_.gutterLine);
  }
}

void TEditControl::paintGutter() {
  gutterAsked_ = false;
  QPainter painter(gutter_);
  if (surface_.isNull())
    painter.fillRect(gutter_->rect(), scheme_.gutterGround);
  else
    painter.drawImage(0, 0, surface_);
}

void TEditControl::paintCaret(QPainter& painter) const {
  if (!blink_->isOn())
    return;
  QColor color = scheme_.caret;
  if (!insertMode_)
    color.setAlpha(96); // the character under a caret that overwrites stays readable
  painter.fillRect(caretRect(), color);
}

void TEditControl::setFramedSpans(SpanFinder find) {
  framedSpans_ = std::move(find);
  requestPaint();
}

QList<QRect> TEditControl::frames() const {
  QList<QRect> frames = frames_;
  for (QRect& frame : frames)
    frame.translate(gutterWidth_, 0);
  return frames;
}

// The lines in sight have just been laid out.
void TEditControl::findFrames() {
  frames_.clear();
  if (!framedSpans_)
    return;
  const QTextBlock end = lastVisibleBlock().next();
  for (QTextBlock block = firstVisibleBlock(); block.isValid() && block != end; block = block.next()) {
    const QRectF area = blockBoundingGeometry(block).translated(contentOffset());
    const QTextLine line = block.layout()->lineAt(0);
    if (!line.isValid())
      continue;
    for (const UnitSpan& span : framedSpans_(block)) {
      const int left = qRound(area.left() + line.cursorToX(span.start));
      const int right = qRound(area.left() + line.cursorToX(span.start + span.length));
      if (right > 0 && left < viewport_->width() && right > left)
        frames_.append(QRect(left, qRound(area.top()), right - left, cellSize().height()));
    }
  }
}

void TEditControl::setRightMargin(int column) {
  rightMargin_ = std::max(column, 0);
  requestPaint();
}

void TEditControl::paintMargin(QPainter& painter) const {
  const int x = (rightMargin_ - leftColumn() + 1) * cellSize().width();
  if (rightMargin_ > 0 && x >= 0)
    painter.fillRect(QRect(x, 0, 1, viewport_->height()), scheme_.gutterLine);
}

void TEditControl::paintFrames(QPainter& painter) const {
  painter.setPen(scheme_.matchFrame);
  for (const QRect& frame : frames_)
    painter.drawRect(frame.adjusted(-1, 0, 0, -1)); // the left edge stands before the first character
}

// In the viewport: a bar before the caret's character, or its whole cell in overwrite mode.
QRect TEditControl::caretRect() const {
  return {cursorRect().topLeft(), QSize(insertMode_ ? insertCaretWidth : cellSize().width(), cellSize().height())};
}

QSize TEditControl::clientSize() const {
  return {gutterWidth_ + viewport_->width(), viewport_->height()};
}

// Of the surface, in device pixels; never empty, so that there is always something to draw into.
QSize TEditControl::surfaceSize() const {
  const QSizeF size = QSizeF(clientSize()) * devicePixelRatioF();
  return {std::max(static_cast<int>(std::ceil(size.width())), 1),
          std::max(static_cast<int>(std::ceil(size.height())), 1)};
}

bool TEditControl::surfaceFits() const {
  return surface_.devicePixelRatio() == devicePixelRatioF() && surface_.size() == surfaceSize();
}

void TEditControl::fitSurface() {
  if (surfaceFits())
    return;
  surface_ = QImage(surfaceSize(), QImage::Format_RGB32);
  surface_.setDevicePixelRatio(devicePixelRatioF());
  surface_.fill(scheme_.ground);
  eraseWanted_ = true;
  paintWanted_ = true;
}

bool TEditControl::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Move)
    placeGutter();
  return QPlainTextEdit::viewportEvent(event);
}

bool TEditControl::eventFilter(QObject* watched, QEvent* event) {
  if (watched != gutter_)
    return QPlainTextEdit::eventFilter(watched, event);
  if (event->type() == QEvent::Paint)
    paintGutter();
  else if (event->type() == QEvent::Wheel)
    wheelEvent(static_cast<QWheelEvent*>(event));
  else
    return QPlainTextEdit::eventFilter(watched, event);
  return true;
}

// A caret in sight stays in sight, as when an add-in takes room above the text.
void TEditControl::resizeEvent(QResizeEvent* event) {
  const bool isCaretSeen = QRect(QPoint(0, 0), event->oldSize()).contains(caretRect());
  QPlainTextEdit::resizeEvent(event);
  placeGutter();
  requestErase();
  if (isCaretSeen && !viewport_->rect().contains(caretRect()))
    showCaret();
}

void TEditControl::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    requestErase();
}

} // namespace desktop
