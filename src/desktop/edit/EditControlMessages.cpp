// SPDX-License-Identifier: MIT
// How the edit control turns Qt's events into messages, and messages into what the host does.
#include "desktop/edit/CaretBlink.h"
#include "desktop/edit/EditControl.h"
#include "desktop/edit/Typing.h"
#include "platform/Actions.h"
#include "platform/Application.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

namespace desktop {

using namespace platform;

namespace {

template <class TEvent> TEvent* eventOf(const TMessage& message) {
  return reinterpret_cast<TEvent*>(message.LParam);
}

// Whether the keys' text is to be typed.
bool isTypedText(const QString& text) {
  return !text.isEmpty() && isTyped(text.toUcs4().constFirst());
}

// Whether the key would put text in although a command modifier is held: Qt refuses only some of these, and a mistyped
// shortcut must not change the source.
bool isUnboundText(const QKeyEvent& event) {
  return event.modifiers() & (Qt::AltModifier | Qt::MetaModifier) && isTypedText(event.text());
}

// The characters that a key press types: none for commands, CR for Enter, a tab for Tab.
QString typedText(const QKeyEvent& event) {
  const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (event.modifiers() & commands)
    return {};
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
    return QStringLiteral("\r");
  if (event.key() == Qt::Key_Tab)
    return QStringLiteral("\t");
  return isTypedText(event.text()) ? event.text() : QString();
}

} // namespace

void TEditControl::SetWindowProc(const TWndMethod& procedure) {
  windowProc_ = procedure ? procedure : TWndMethod::Of<&TEditControl::defaultProc>(*this);
}

// The procedure may replace itself during the call, so a copy is called.
void TEditControl::send(unsigned code, std::uintptr_t wParam, QEvent* event) {
  TMessage message{code, wParam, reinterpret_cast<std::intptr_t>(event), 0};
  Guarded([procedure = windowProc_, &message] { procedure(message); });
}

void TEditControl::defaultProc(TMessage& message) {
  switch (message.Msg) {
  case WM_PAINT:
    return paintByDefault();
  case WM_ERASEBKGND:
    eraseByDefault();
    message.Result = 1;
    return;
  case WM_VSCROLL:
    return applyScroll(Qt::Vertical);
  case WM_HSCROLL:
    return applyScroll(Qt::Horizontal);
  case WM_CHAR:
    return applyCharacter(static_cast<char32_t>(message.WParam));
  default:
    break;
  }
  if (message.LParam == 0) // what follows is Qt's work with an event
    return;
  switch (message.Msg) {
  case WM_SETFOCUS:
    QPlainTextEdit::focusInEvent(eventOf<QFocusEvent>(message));
    return blink_->start();
  case WM_KILLFOCUS:
    QPlainTextEdit::focusOutEvent(eventOf<QFocusEvent>(message));
    return blink_->stop();
  case CN_KEYDOWN:
    if (eventOf<QEvent>(message)->type() == QEvent::ShortcutOverride)
      QPlainTextEdit::event(eventOf<QEvent>(message));
    return;
  case WM_KEYDOWN:
    return applyKey(*eventOf<QKeyEvent>(message));
  case WM_KEYUP:
    return QPlainTextEdit::keyReleaseEvent(eventOf<QKeyEvent>(message));
  case WM_LBUTTONDBLCLK:
    return QPlainTextEdit::mouseDoubleClickEvent(eventOf<QMouseEvent>(message));
  default:
    return;
  }
}

bool TEditControl::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    announceKey(static_cast<QKeyEvent&>(*event));
    return event->isAccepted();
  }
  if (event->type() == QEvent::ReadOnlyChange && isReadOnly()) // the caret can be moved in a text that is only read
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return QPlainTextEdit::event(event);
}

void TEditControl::announceKey(QKeyEvent& event) {
  keyAnnounced_ = true;
  send(CN_KEYDOWN, VirtualKey(event.key()), &event);
}

void TEditControl::keyPressEvent(QKeyEvent* event) {
  if (!keyAnnounced_) // a press that came past the shortcuts
    announceKey(*event);
  keyAnnounced_ = false;
  const QString text = typedText(*event);
  event->setAccepted(!text.isEmpty());
  send(WM_KEYDOWN, VirtualKey(event->key()), event);
  sendCharacters(text, *event);
}

void TEditControl::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat())
    return QPlainTextEdit::keyReleaseEvent(event);
  send(WM_KEYUP, VirtualKey(event->key()), event);
}

// Qt gets the composition, the window procedure the characters that it ends in.
void TEditControl::inputMethodEvent(QInputMethodEvent* event) {
  const QTextBlock composed = textCursor().block();
  const QString committed = event->commitString();
  if (isReadOnly() || committed.isEmpty()) {
    QPlainTextEdit::inputMethodEvent(event);
  } else {
    QInputMethodEvent end; // of the composition so far, and of the text that the commit replaces
    end.setCommitString(QString(), event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&end);
    sendCharacters(committed, *event);
    if (!event->preeditString().isEmpty()) {
      QInputMethodEvent next(event->preeditString(), event->attributes());
      QPlainTextEdit::inputMethodEvent(&next);
    }
    event->accept();
  }
  if (highlighter_ && composed.isValid()) // the composition has put formats of its own in place of the colours
    highlighter_->forget(composed);
}

void TEditControl::sendCharacters(const QString& text, QEvent& event) {
  for (const uint character : text.toUcs4())
    send(WM_CHAR, character, &event);
}

void TEditControl::focusInEvent(QFocusEvent* event) {
  send(WM_SETFOCUS, 0, event);
}

void TEditControl::focusOutEvent(QFocusEvent* event) {
  send(WM_KILLFOCUS, 0, event);
}

void TEditControl::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton)
    send(WM_LBUTTONDBLCLK, 0, event);
  else
    QPlainTextEdit::mouseDoubleClickEvent(event);
}

// Qt's own zoom would change the font of a read-only text behind the control's back.
void TEditControl::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ControlModifier)
    return turnZoom(*event);
  wheel_ = event;
  QPlainTextEdit::wheelEvent(event);
  wheel_ = nullptr;
}

// Fine wheels and touch pads tell of parts of a step.
void TEditControl::turnZoom(QWheelEvent& event) {
  constexpr int step = QWheelEvent::DefaultDeltasPerStep;
  zoomTurn_ += event.angleDelta().y();
  const int steps = zoomTurn_ / step;
  zoomTurn_ %= step;
  event.accept();
  if (steps != 0)
    Q_EMIT zoomWanted(steps);
}

// The scroll bar has decided on a position but not yet taken it; the default procedure makes it do so. When the message
// does not get there the bar stays where it was.
void TEditControl::sendScroll(Qt::Orientation orientation) {
  scrolled_ = false;
  send(orientation == Qt::Vertical ? WM_VSCROLL : WM_HSCROLL, 0, wheel_);
  QScrollBar& bar = scrollBar(orientation);
  if (!scrolled_)
    bar.setSliderPosition(bar.value());
}

void TEditControl::applyScroll(Qt::Orientation orientation) {
  scrolled_ = true;
  QScrollBar& bar = scrollBar(orientation);
  bar.setValue(bar.sliderPosition());
}

QScrollBar& TEditControl::scrollBar(Qt::Orientation orientation) const {
  return orientation == Qt::Vertical ? *verticalScrollBar() : *horizontalScrollBar();
}

void TEditControl::applyKey(QKeyEvent& event) {
  if (!typedText(event).isEmpty()) // the characters follow as messages of their own
    return;
  if (event.key() == Qt::Key_Insert && event.modifiers() == Qt::NoModifier) {
    setInsertMode(!insertMode_);
    return event.accept();
  }
  if (event.key() == Qt::Key_Backtab) {
    unindentBlock();
    return event.accept();
  }
  const bool isBackspace = event.key() == Qt::Key_Backspace && !(event.modifiers() & ~Qt::ShiftModifier);
  if (isBackspace && (unindentCaret() || takePairBack()))
    return event.accept();
  if (isUnboundText(event))
    return event.ignore();
  QPlainTextEdit::keyPressEvent(&event);
}

// False when the caret does not stand behind indentation that could be shortened.
bool TEditControl::unindentCaret() {
  QTextCursor cursor = textCursor();
  if (isReadOnly() || !unindentToLineAbove(cursor, indentOptions()))
    return false;
  setTextCursor(cursor);
  return true;
}

bool TEditControl::takesPairs() const {
  return typesPairs_ && insertMode_ && highlighter_ && !isReadOnly();
}

// False when the caret does not stand in an empty pair.
bool TEditControl::takePairBack() {
  QTextCursor cursor = textCursor();
  if (!takesPairs() || !pairs_.takeBack(cursor))
    return false;
  setTextCursor(cursor);
  return true;
}

void TEditControl::applyCharacter(char32_t character) {
  if (isReadOnly())
    return;
  QTextCursor cursor = textCursor();
  if (takesPairs() && pairs_.type(cursor, character))
    return setTextCursor(cursor);
  const bool overwrites = !insertMode_ && isTyped(character) && !cursor.hasSelection() && !cursor.atBlockEnd();
  if (overwrites) { // only then, since a run of typed characters is to be one undo step
    cursor.beginEditBlock();
    cursor.deleteChar();
  }
  typeCharacter(cursor, character, indentOptions());
  if (overwrites)
    cursor.endEditBlock();
  setTextCursor(cursor);
}

} // namespace desktop
