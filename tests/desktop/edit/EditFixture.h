// SPDX-License-Identifier: MIT
// A shown edit control with a document, and a window procedure that writes down what it is given.
#pragma once

#include "desktop/edit/EditControl.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextDocumentLayout>
#include <QPointer>
#include <QTextDocument>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace desktop {

// A document as the host makes them.
class PlainDocument : public QTextDocument {
public:
  explicit PlainDocument(const QString& text = {}) {
    setDocumentLayout(new QPlainTextDocumentLayout(this));
    setPlainText(text);
    setModified(false);
  }
};

// Stands in the place of the control's window procedure for as long as it lives.
class MessageRecorder {
public:
  explicit MessageRecorder(TEditControl& control) : control_(&control), previous_(control.WindowProc()) {
    control.SetWindowProc(platform::TWndMethod::Of<&MessageRecorder::Proc>(*this));
  }
  ~MessageRecorder() {
    if (control_)
      control_->SetWindowProc(previous_);
  }
  MessageRecorder(const MessageRecorder&) = delete;
  MessageRecorder& operator=(const MessageRecorder&) = delete;

  // Called after each message has been written down; when it returns false the message is not forwarded.
  std::function<bool(platform::TMessage&)> onMessage;
  // Called after each message has been forwarded.
  std::function<void(platform::TMessage&)> afterMessage;

  const std::vector<platform::TMessage>& messages() const { return messages_; }
  void clear() { messages_.clear(); }

  int count(unsigned code) const {
    return static_cast<int>(std::count_if(messages_.begin(), messages_.end(),
                                          [code](const platform::TMessage& message) { return message.Msg == code; }));
  }

  using Key = std::pair<unsigned, std::uintptr_t>;

  // Message and parameter of what keys cause, in order.
  std::vector<Key> keys() const {
    std::vector<Key> result;
    for (const platform::TMessage& message : messages_)
      if (message.Msg == platform::CN_KEYDOWN ||
          (message.Msg >= platform::WM_KEYDOWN && message.Msg <= platform::WM_CHAR))
        result.emplace_back(message.Msg, message.WParam);
    return result;
  }

  void Proc(platform::TMessage& message) {
    messages_.push_back(message);
    if (onMessage && !onMessage(message))
      return;
    previous_(message);
    if (afterMessage)
      afterMessage(message);
  }

private:
  QPointer<TEditControl> control_;
  platform::TWndMethod previous_;
  std::vector<platform::TMessage> messages_;
};

// Counts the paint events of a widget, whatever comes of them.
class PaintEvents : public QObject {
public:
  explicit PaintEvents(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      ++count;
    return false;
  }
};

class EditFixture : public testing::Test {
protected:
  EditFixture() {
    control.resize(640, 400);
    control.setEditorFont(QStringLiteral("DejaVu Sans Mono"), 10);
  }

  // Shows `text` in a window that has the focus, everything painted.
  void show(const QString& text) {
    document.setPlainText(text);
    document.setModified(false);
    control.showDocument(&document);
    control.show();
    control.activateWindow();
    control.setFocus();
    ASSERT_TRUE(support::waitUntil([this] { return control.hasFocus(); }));
    support::settle();
  }

  // One key: the press, before which Qt asks whether it is a shortcut, and the release.
  void press(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    pressOnly(key, text, modifiers);
    release(key, text, modifiers);
  }
  void pressOnly(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&control, &down);
  }
  void release(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(&control, &up);
  }
  void type(const QString& text) {
    for (const QChar c : text)
      press(c.toUpper().unicode(), c);
  }

  std::string text() const { return document.toPlainText().toStdString(); }

  // The colour of the middle of a cell in the control's picture; row and column count from 1, from the first visible
  // ones.
  QColor cellColor(int row, int column) const {
    const QSize cell = control.cellSize();
    const QPointF middle(control.gutterWidth() + (column - 0.5) * cell.width(), (row - 0.5) * cell.height());
    return control.picture().pixelColor((middle * control.picture().devicePixelRatio()).toPoint());
  }
  // The cell as a rectangle of the client area.
  QRect cellRect(int row, int column) const {
    const QSize cell = control.cellSize();
    return {QPoint(control.gutterWidth() + (column - 1) * cell.width(), (row - 1) * cell.height()), cell};
  }

  PlainDocument document; // outlives the control
  TEditControl control;
};

} // namespace desktop
