// SPDX-License-Identifier: MIT
#include "desktop/ui/CloseButton.h"

#include <QEvent>
#include <QPainter>

namespace desktop {

CloseButton::CloseButton(const QString& hint, QWidget* parent) : QAbstractButton(parent) {
  setToolTip(hint);
  setAccessibleName(hint);
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::ArrowCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CloseButton::sizeHint() const {
  const int extent = fontMetrics().height() + 2;
  return {extent, extent};
}

void CloseButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void CloseButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void CloseButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor cross = palette().color(foregroundRole());
  const bool pointedAt = isEnabled() && (underMouse() || hasFocus());
  if (pointedAt) {
    QColor ground = cross;
    ground.setAlphaF(isDown() ? 0.3F : 0.15F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
  }
  cross.setAlphaF(pointedAt ? 1.0F : 0.6F);
  painter.setPen(QPen(cross, 1.3, Qt::SolidLine, Qt::RoundCap));
  const double reach = height() * 0.2;
  const QPointF centre = QRectF(rect()).center();
  painter.drawLine(centre + QPointF(-reach, -reach), centre + QPointF(reach, reach));
  painter.drawLine(centre + QPointF(-reach, reach), centre + QPointF(reach, -reach));
}

} // namespace desktop
