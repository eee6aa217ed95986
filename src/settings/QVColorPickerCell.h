// SPDX-License-Identifier: MIT
// One cell of the palette.
#pragma once

#include "platform/Color.h"

#include <QAbstractButton>

namespace quorvane {

// A colour that can be clicked, with or without a caption beside it; or, without its swatch, a plain captioned button.
// A pressed cell is sunken and ticked. What a click does, pressing included, is decided by who listens.
//
// A cell takes no keys but those that the palette leaves to it, which are none: they go up to the palette.
class TColBtn final : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(int ActiveColor READ ActiveColor WRITE SetActiveColor)
  Q_PROPERTY(bool Down READ Down WRITE SetDown)
  Q_PROPERTY(bool Flat READ Flat WRITE SetFlat)
  Q_PROPERTY(int Tag READ Tag WRITE SetTag)
public:
  explicit TColBtn(QWidget* parent);

  platform::TColor ActiveColor() const { return activeColor_; }
  void SetActiveColor(platform::TColor color);
  // Whether the cell is pressed: shown as the current colour.
  bool Down() const { return isChecked(); }
  void SetDown(bool down) { setChecked(down); }
  // Whether the cell has no edge of its own until the mouse is over it.
  bool Flat() const { return flat_; }
  void SetFlat(bool flat);
  int Tag() const { return tag_; }
  void SetTag(int tag) { tag_ = tag; }
  // Without a swatch the button has no colour to show and cannot be pressed.
  void HideSwatch();

  // What the cell is called, apart from its colour; "" when the colour says all. Read aloud and shown as a hint.
  void SetTitle(const QString& title);

  QSize sizeHint() const override;

Q_SIGNALS:
  // The right mouse button was clicked on the cell.
  void RightClicked();

protected:
  // A click presses nothing by itself.
  void nextCheckState() override {}
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  void Describe();
  void PaintPanel(QPainter& painter);
  void PaintCaption(QPainter& painter, const QRect& area);

  platform::TColor activeColor_ = platform::clWhite;
  QString title_;
  int tag_ = 0;
  bool flat_ = false;
  bool hasSwatch_ = true;
};

} // namespace quorvane
