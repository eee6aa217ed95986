// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>
#include <optional>

class QColor;
class QMouseEvent;
class QPainter;
class QPlainTextEdit;
class QTextBlock;

namespace desktop {

// A part of a line: its first UTF-16 unit, from 0, and how many there are.
struct UnitSpan {
  int start = 0;
  int length = 0;
};

// The link under the mouse while Ctrl alone is held: underlined, with the hand for a pointer, and followed by a click.
//
// It listens to an editor and its viewport, but for a click on a link it takes nothing away from them. The line below
// the text is for the editor to lay over its picture. Whatever may move the text under the mouse ends the link until
// the mouse moves again.
class HotLink : public QObject {
  Q_OBJECT

public:
  // The link that the character at `unit` of a line belongs to, if any.
  using Finder = std::function<std::optional<UnitSpan>(const QTextBlock& line, int unit)>;

  explicit HotLink(QPlainTextEdit* editor);

  void setFinder(Finder find);
  // The text of the link, empty while there is none.
  QString text() const;
  // The cells of the link, in the viewport; empty while there is none.
  QRect area() const;
  void paint(QPainter& painter, const QColor& color) const;
  void clear();

Q_SIGNALS:
  // `area` of the viewport must be shown again.
  void changed(const QRect& area);
  // The link that begins at `position` of the document was clicked.
  void activated(int position);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct Place {
    int begin = 0; // in the document
    int end = 0;
    friend bool operator==(const Place&, const Place&) = default;
  };

  bool handleMouse(QMouseEvent& event);
  bool release();
  void follow(std::optional<QPoint> mouse, Qt::KeyboardModifiers modifiers);
  std::optional<Place> linkAt(const QPoint& point) const;
  void show(const std::optional<Place>& link);

  QPlainTextEdit* editor_;
  Finder find_;
  std::optional<QPoint> mouse_; // in the viewport, while the mouse is there
  std::optional<Place> link_;
  std::optional<Place> pressed_; // the link that the button went down on
};

} // namespace desktop
