// SPDX-License-Identifier: MIT
#include "settings/QVColorPickerDlg.h"

#include "settings/QVColorPicker.h"
#include "settings/QVColorPickerCell.h"
#include "settings/QVColorPickerPanel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QKeyEvent>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

using platform::TColor;

// Where a window of `size` stands: below `anchor` if it fits the screen, else above; in any case on the screen.
QPoint PlaceBeside(const QRect& anchor, const QSize& size, const QRect& screen) {
  QPoint place(anchor.left(), anchor.bottom() + 1);
  if (place.y() + size.height() > screen.bottom() + 1 && anchor.top() - size.height() >= screen.top())
    place.setY(anchor.top() - size.height());
  place.setX(std::max(screen.left(), std::min(place.x(), screen.right() + 1 - size.width())));
  place.setY(std::max(screen.top(), std::min(place.y(), screen.bottom() + 1 - size.height())));
  return place;
}

} // namespace

Qt::WindowType TColPickDlg::UsualType() {
  return QGuiApplication::platformName().startsWith(QStringLiteral("wayland")) ? Qt::Popup : Qt::Tool;
}

TColPickDlg::TColPickDlg(TColorBtn* button, Qt::WindowType type)
    : QWidget(button, type | Qt::FramelessWindowHint), picker_(new TColorPicker(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  // A click beside a pop-up only closes it; else one on its button would open it again.
  setAttribute(Qt::WA_NoMouseReplay);
  setWindowTitle(QStringLiteral("Colors"));
  setFixedSize(picker_->size());
  picker_->OnAskColor = [this](TColor preset, std::function<void(TColor)> accept) {
    AskColor(preset, std::move(accept));
  };
}

TColPickDlg::~TColPickDlg() = default;

void TColPickDlg::Drop(TColorBtn& button) {
  button_ = &button;
  const QRect anchor(button.mapToGlobal(QPoint(0, 0)), button.size());
  move(PlaceBeside(anchor, size(), button.screen()->availableGeometry()));
  FormShow();
  show();
  TakeFocus();
}

void TColPickDlg::FormShow() {
  accepted_ = false;
  picker_->Begin(button_->ActiveColor(), button_->IsAutomatic());
}

void TColPickDlg::TakeFocus() {
  activateWindow();
  picker_->FocusCell().setFocus(Qt::PopupFocusReason);
}

bool TColPickDlg::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::ShortcutOverride: // keys are for the palette alone, not for actions of the windows below
    event->accept();
    return true;
  case QEvent::WindowActivate:
    if (!colorDialog_)
      keepsOpen_ = false;
    break;
  case QEvent::WindowDeactivate:
    LoseFocus();
    break;
  default:
    break;
  }
  return QWidget::event(event);
}

void TColPickDlg::LoseFocus() {
  if (keepsOpen_ || closed_)
    return;
  if (button_)
    button_->PaletteLostFocus();
  close();
}

bool TColPickDlg::focusNextPrevChild(bool next) {
  picker_->MoveToGroup(next);
  return true;
}

void TColPickDlg::keyPressEvent(QKeyEvent* event) {
  event->accept();
  FormKeyDown(*event);
}

void TColPickDlg::keyReleaseEvent(QKeyEvent* event) {
  event->accept();
}

// The palette may be gone afterwards.
void TColPickDlg::FormKeyDown(const QKeyEvent& event) {
  switch (event.key()) {
  case Qt::Key_Escape:
    close();
    break;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    accepted_ = true;
    close();
    break;
  default:
    picker_->HandleKey(event);
  }
}

void TColPickDlg::closeEvent(QCloseEvent* event) {
  event->accept();
  if (std::exchange(closed_, true))
    return;
  const bool wasActive = isActiveWindow();
  if (colorDialog_) {
    colorDialog_->disconnect(this);
    colorDialog_->close();
  }
  hide();
  if (button_)
    button_->PaletteClosed(wasActive);
  FormClose();
}

void TColPickDlg::FormClose() {
  if (accepted_ && button_)
    button_->Accept(picker_->PickedColor(), picker_->IsAutomatic());
}

void TColPickDlg::AskColor(TColor preset, std::function<void(TColor)> accept) {
  if (colorDialog_)
    return;
  keepsOpen_ = true;
  const bool hides = windowType() == Qt::Popup;
  const QColor color = platform::ToQColor(preset, palette(), palette().color(QPalette::Button));
  colorDialog_ = new QColorDialog(color.isValid() ? color : QColor(Qt::white), hides ? parentWidget() : this);
  colorDialog_->setAttribute(Qt::WA_DeleteOnClose);
  connect(colorDialog_, &QColorDialog::finished, this, [this, hides, accept = std::move(accept)](int result) {
    const QColor answer = std::exchange(colorDialog_, nullptr)->selectedColor();
    if (result == QDialog::Accepted)
      accept(platform::ToTColor(answer));
    if (hides)
      show();
    TakeFocus();
    if (QApplication::activeWindow() == this) // and has been so all the time; else it will be told
      keepsOpen_ = false;
  });
  if (hides)
    hide();
  colorDialog_->open();
}

} // namespace quorvane
