// SPDX-License-Identifier: MIT
#include "settings/QVColorPicker.h"

#include "platform/Application.h"
#include "settings/QVColorPickerColors.h"
#include "settings/QVColorPickerDlg.h"
#include "settings/QVColorPickerPanel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QTimerEvent>

#include <algorithm>

namespace quorvane {

namespace {

using platform::TColor;

constexpr int kMargin = 4;
constexpr int kSwatchHeight = 5; // below a glyph
constexpr int kGap = 1;          // between glyph and swatch
constexpr int kGlyphSize = 12;

// How long after the loss of the focus the press that caused it may arrive; less than people need for another one.
constexpr int kDismissalMs = 200;

} // namespace

TColorBtn::TColorBtn(QWidget* parent)
    : QAbstractButton(parent), autoBtnCaption_(QStringLiteral("Automatic")),
      otherBtnCaption_(QStringLiteral("&Other colors...")), regKey_(QStringLiteral("Pelinor")),
      paletteType_(TColPickDlg::UsualType()) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAttribute(Qt::WA_Hover);
  setAccessibleName(QStringLiteral("Color"));
  Describe();
  connect(this, &QAbstractButton::clicked, this, &TColorBtn::DropDown);
}

TColorBtn::~TColorBtn() = default;

void TColorBtn::SetActiveColor(TColor color) {
  if (color == activeColor_)
    return;
  activeColor_ = color;
  Describe();
  update();
}

void TColorBtn::SetFlat(bool flat) {
  flat_ = flat;
  update();
}

void TColorBtn::SetGlyphType(TGlyphType type) {
  glyphType_ = type;
  update();
}

void TColorBtn::SetGlyph(const QIcon& glyph) {
  glyph_ = glyph;
  update();
}

void TColorBtn::SetDDArrowWidth(quint8 width) {
  arrowWidth_ = width;
  updateGeometry();
  update();
}

TColPickDlg* TColorBtn::Palette() const {
  return palette_ && !palette_->IsClosed() ? palette_.data() : nullptr;
}

void TColorBtn::ReadReg() const {
  ReadUserColors(regKey_);
}

void TColorBtn::WriteReg() const {
  WriteUserColors(regKey_);
}

void TColorBtn::DropDown() {
  if (Palette() != nullptr) {
    palette_->close();
    return;
  }
  ReadReg();
  if (BeforeDropDown) {
    const QPointer<TColorBtn> alive(this);
    const auto beforeDropDown = BeforeDropDown; // outlives the button
    platform::Guarded(beforeDropDown);
    if (!alive)
      return;
  }
  palette_ = new TColPickDlg(this, paletteType_);
  TColorPicker& picker = palette_->Picker();
  picker.SetAutoBtnCaption(autoBtnCaption_);
  picker.SetOtherBtnCaption(otherBtnCaption_);
  picker.SetAutomaticColor(automaticColor_);
  picker.SetFlat(dropDownFlat_);
  palette_->Drop(*this);
  update();
}

void TColorBtn::Accept(TColor color, bool automatic) {
  SetActiveColor(color);
  targetColor_ = color;
  isAutomatic_ = automatic;
  platform::Guarded([this] { WriteReg(); });
  if (OnClick) {
    const auto onClick = OnClick; // outlives the button
    platform::Guarded(onClick);
  }
}

void TColorBtn::PaletteLostFocus() {
  if (underMouse())
    dismissal_.start(kDismissalMs, this);
}

void TColorBtn::PaletteClosed(bool hadFocus) {
  update();
  if (hadFocus)
    window()->activateWindow();
}

QSize TColorBtn::sizeHint() const {
  const int height =
      std::max(kMargin + kGlyphSize + kGap + kSwatchHeight + kMargin, fontMetrics().height() + 2 * kMargin);
  return {height + kMargin + arrowWidth_, height};
}

void TColorBtn::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    Describe(); // a system colour has another value now
}

void TColorBtn::hideEvent(QHideEvent* event) {
  if (Palette() != nullptr)
    palette_->close();
  QAbstractButton::hideEvent(event);
}

void TColorBtn::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  if (event->key() == Qt::Key_Down && (modifiers == Qt::NoModifier || modifiers == Qt::AltModifier)) {
    event->accept();
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

void TColorBtn::leaveEvent(QEvent* event) {
  dismissal_.stop();
  QAbstractButton::leaveEvent(event);
}

void TColorBtn::mousePressEvent(QMouseEvent* event) {
  const bool dismisses = dismissal_.isActive();
  dismissal_.stop();
  // Closed at the press: at the release the palette may be gone already, for it loses the focus to this window.
  if (Palette() != nullptr)
    palette_->close();
  else if (!dismisses)
    return QAbstractButton::mousePressEvent(event);
  event->accept();
}

void TColorBtn::timerEvent(QTimerEvent* event) {
  if (event->timerId() == dismissal_.timerId())
    dismissal_.stop();
  else
    QAbstractButton::timerEvent(event);
}

void TColorBtn::Describe() {
  const QString name = ColorName(activeColor_, palette());
  setAccessibleDescription(name);
  setToolTip(name);
}

void TColorBtn::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter);
  const QRect inside = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const QRect arrow(width() - arrowWidth_ - 1, inside.top(), arrowWidth_, inside.height());
  PaintColor(painter, QRect(inside.topLeft(), QPoint(arrow.left() - kMargin, inside.bottom())));
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  const QColor ink = palette().color(group, QPalette::ButtonText);
  QColor line = ink;
  line.setAlphaF(0.3F);
  painter.fillRect(Snapped(painter, QRectF(arrow.left() - 1, arrow.top(), 1, arrow.height())), line);
  DrawDropDown(painter, arrow, ink);
  if (hasFocus())
    DrawFocus(painter, rect(), palette());
}

void TColorBtn::PaintPanel(QPainter& painter) {
  QStyleOptionToolButton option;
  option.initFrom(this);
  option.state.setFlag(QStyle::State_HasFocus, false); // drawn by the button itself, alike in all styles
  option.state.setFlag(QStyle::State_AutoRaise, flat_);
  const bool sunken = isDown() || Palette() != nullptr;
  const bool raised = !sunken && (!flat_ || underMouse());
  option.state.setFlag(QStyle::State_Sunken, sunken);
  option.state.setFlag(QStyle::State_Raised, raised);
  if (sunken || raised)
    style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
}

// The swatch below the glyph; all of `area` when there is none.
void TColorBtn::PaintColor(QPainter& painter, const QRect& area) {
  QRect swatch = area;
  if (HasGlyph()) {
    swatch.setTop(area.bottom() + 1 - kSwatchHeight);
    const QRect glyph(area.topLeft(), QPoint(area.right(), swatch.top() - 1 - kGap));
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    if (glyphType_ == gtCustom)
      glyph_.paint(&painter, glyph, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    else
      DrawGlyph(painter, glyph, glyphType_, palette().color(group, QPalette::ButtonText));
  }
  if (!isEnabled())
    painter.setOpacity(0.4);
  DrawSwatch(painter, swatch, platform::ToQColor(activeColor_, palette(), palette().color(QPalette::Button)),
             palette());
  painter.setOpacity(1);
}

} // namespace quorvane
