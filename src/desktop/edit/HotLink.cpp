// SPDX-License-Identifier: MIT
#include "desktop/edit/HotLink.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include <utility>

namespace desktop {

HotLink::HotLink(QPlainTextEdit* editor) : QObject(editor), editor_(editor) {
  editor->installEventFilter(this);
  editor->viewport()->installEventFilter(this);
  editor->viewport()->setMouseTracking(true);
  connect(editor, &QPlainTextEdit::textChanged, this, &HotLink::clear);
  for (const QScrollBar* const bar : {editor->horizontalScrollBar(), editor->verticalScrollBar()})
    connect(bar, &QScrollBar::valueChanged, this, &HotLink::clear);
}

void HotLink::setFinder(Finder find) {
  find_ = std::move(find);
  clear();
}

bool HotLink::eventFilter(QObject* watched, QEvent* event) {
  const bool isViewport = watched == editor_->viewport();
  switch (event->type()) {
  case QEvent::MouseMove:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
    return isViewport && handleMouse(static_cast<QMouseEvent&>(*event));
  case QEvent::Leave:
    if (isViewport)
      follow(std::nullopt, {});
    break;
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
    if (const auto& key = static_cast<const QKeyEvent&>(*event); !isViewport && key.key() == Qt::Key_Control) {
      // The modifiers of an event are those before its key.
      Qt::KeyboardModifiers held = key.modifiers();
      held.setFlag(Qt::ControlModifier, event->type() == QEvent::KeyPress);
      follow(mouse_, held);
    }
    break;
  case QEvent::FocusOut:
  case QEvent::Resize:
    clear();
    break;
  default:
    break;
  }
  return false;
}

bool HotLink::handleMouse(QMouseEvent& event) {
  follow(event.position().toPoint(), event.modifiers());
  switch (event.type()) {
  case QEvent::MouseButtonPress:
    if (event.button() == Qt::LeftButton)
      pressed_ = link_;
    return pressed_.has_value();
  case QEvent::MouseButtonRelease:
    return event.button() == Qt::LeftButton && release();
  default:
    return pressed_.has_value(); // a move with the button down on a link selects nothing
  }
}

// A button that comes up somewhere else than it went down follows nothing.
bool HotLink::release() {
  const std::optional<Place> pressed = std::exchange(pressed_, std::nullopt);
  if (!pressed)
    return false;
  if (pressed == link_) {
    clear();
    Q_EMIT activated(pressed->begin);
  }
  return true;
}

void HotLink::follow(std::optional<QPoint> mouse, Qt::KeyboardModifiers modifiers) {
  mouse_ = mouse;
  show(mouse_ && modifiers == Qt::ControlModifier ? linkAt(*mouse_) : std::nullopt);
}

std::optional<HotLink::Place> HotLink::linkAt(const QPoint& point) const {
  if (!find_)
    return std::nullopt;
  QTextCursor cursor = editor_->cursorForPosition(point); // stands at the nearest edge of a character
  const QRect edge = editor_->cursorRect(cursor);
  const int unit = cursor.positionInBlock() - (edge.left() > point.x() ? 1 : 0);
  const QTextBlock line = cursor.block();
  if (point.y() < edge.top() || point.y() > edge.bottom() || unit < 0 || unit >= line.length() - 1)
    return std::nullopt;
  const std::optional<UnitSpan> span = find_(line, unit);
  if (!span)
    return std::nullopt;
  return Place{line.position() + span->start, line.position() + span->start + span->length};
}

void HotLink::show(const std::optional<Place>& link) {
  if (link == link_)
    return;
  const QRect before = area();
  link_ = link;
  editor_->viewport()->setCursor(link_ ? Qt::PointingHandCursor : Qt::IBeamCursor);
  Q_EMIT changed(before.united(area()));
}

void HotLink::clear() {
  show(std::nullopt);
}

QString HotLink::text() const {
  if (!link_)
    return {};
  QTextCursor cursor(editor_->document());
  cursor.setPosition(link_->begin);
  cursor.setPosition(link_->end, QTextCursor::KeepAnchor);
  return cursor.selectedText();
}

QRect HotLink::area() const {
  if (!link_ || link_->end >= editor_->document()->characterCount()) // the text has become shorter
    return {};
  QTextCursor cursor(editor_->document());
  cursor.setPosition(link_->begin);
  const QPoint first = editor_->cursorRect(cursor).topLeft();
  const int height = qRound(editor_->document()->documentLayout()->blockBoundingRect(cursor.block()).height());
  cursor.setPosition(link_->end);
  return {first, QSize(editor_->cursorRect(cursor).left() - first.x(), height)};
}

void HotLink::paint(QPainter& painter, const QColor& color) const {
  const QRect cells = area();
  if (!cells.isEmpty())
    painter.fillRect(cells.left(), cells.bottom(), cells.width(), 1, color);
}

} // namespace desktop
