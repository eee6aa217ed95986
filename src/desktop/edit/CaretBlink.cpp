// SPDX-License-Identifier: MIT
#include "desktop/edit/CaretBlink.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <QTimerEvent>

namespace desktop {

void CaretBlink::start() {
  const int period = QGuiApplication::styleHints()->cursorFlashTime();
  if (period >= 2)
    timer_.start(period / 2, this);
  else
    timer_.stop();
  turn(true);
}

void CaretBlink::stop() {
  timer_.stop();
  turn(false);
}

void CaretBlink::timerEvent(QTimerEvent* event) {
  if (event->timerId() == timer_.timerId())
    turn(!on_);
  else
    QObject::timerEvent(event);
}

void CaretBlink::turn(bool on) {
  if (on == on_)
    return;
  on_ = on;
  Q_EMIT toggled();
}

} // namespace desktop
