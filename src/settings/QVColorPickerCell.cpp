// SPDX-License-Identifier: MIT
#include "settings/QVColorPickerCell.h"

#include "settings/QVColorPickerColors.h"
#include "settings/QVColorPickerDrawing.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>

#include <algorithm>

namespace quorvane {

namespace {

constexpr int kCellSize = 20;
constexpr int kSwatchMargin = 4;

} // namespace

TColBtn::TColBtn(QWidget* parent) : QAbstractButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::TabFocus); // the mouse picks by a click and leaves the focus alone
  setAttribute(Qt::WA_Hover);
  resize(sizeHint());
  Describe();
}

void TColBtn::SetActiveColor(platform::TColor color) {
  if (color == activeColor_)
    return;
  activeColor_ = color;
  Describe();
  update();
}

void TColBtn::SetFlat(bool flat) {
  flat_ = flat;
  update();
}

void TColBtn::HideSwatch() {
  hasSwatch_ = false;
  setCheckable(false);
  Describe();
  update();
}

void TColBtn::SetTitle(const QString& title) {
  title_ = title;
  Describe();
}

QSize TColBtn::sizeHint() const {
  return {kCellSize, kCellSize};
}

void TColBtn::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    Describe(); // a system colour has another value now
}

void TColBtn::Describe() {
  QStringList parts;
  if (!title_.isEmpty())
    parts.append(title_);
  if (hasSwatch_)
    parts.append(ColorName(activeColor_, palette()));
  setAccessibleName(parts.join(QStringLiteral(", ")));
  setToolTip(accessibleName());
}

void TColBtn::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

void TColBtn::keyReleaseEvent(QKeyEvent* event) {
  event->ignore();
}

void TColBtn::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton && rect().contains(event->position().toPoint())) {
    event->accept();
    Q_EMIT RightClicked();
    return;
  }
  QAbstractButton::mouseReleaseEvent(event);
}

void TColBtn::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter);
  QRect rest = rect().adjusted(kSwatchMargin, 0, -kSwatchMargin, 0);
  if (hasSwatch_) {
    const QRect swatch(kSwatchMargin, kSwatchMargin, height() - 2 * kSwatchMargin, height() - 2 * kSwatchMargin);
    const QColor color = platform::ToQColor(activeColor_, palette(), palette().color(QPalette::Button));
    DrawSwatch(painter, swatch, color, palette());
    if (Down())
      DrawTick(painter, swatch, color.isValid() ? color : palette().color(QPalette::Button));
    rest.setLeft(swatch.right() + 1 + kSwatchMargin);
  }
  if (!text().isEmpty())
    PaintCaption(painter, rest);
  if (hasFocus())
    DrawFocus(painter, rect(), palette());
}

void TColBtn::PaintPanel(QPainter& painter) {
  QStyleOptionToolButton option;
  option.initFrom(this);
  option.state.setFlag(QStyle::State_HasFocus, false); // drawn by the cell itself, alike in all styles
  option.state.setFlag(QStyle::State_AutoRaise, flat_);
  const bool sunken = isDown() || Down();
  option.state.setFlag(QStyle::State_Sunken, sunken);
  option.state.setFlag(QStyle::State_On, Down());
  option.state.setFlag(QStyle::State_Raised, !sunken && (!flat_ || underMouse()));
  if (!flat_ || sunken || underMouse())
    style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
}

// The height of a cell is fixed, so a large font is made to fit.
void TColBtn::PaintCaption(QPainter& painter, const QRect& area) {
  QFont shown = font();
  const int height = QFontMetrics(shown).height();
  if (const int room = area.height() - 4; height > room)
    shown.setPixelSize(std::max(1, QFontInfo(shown).pixelSize() * room / height));
  painter.setFont(shown);
  int flags = Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic;
  if (style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) == 0)
    flags |= Qt::TextHideMnemonic;
  const QString caption = QFontMetrics(shown).elidedText(text(), Qt::ElideRight, area.width(), Qt::TextShowMnemonic);
  style()->drawItemText(&painter, area, flags, palette(), isEnabled(), caption, QPalette::ButtonText);
}

} // namespace quorvane
