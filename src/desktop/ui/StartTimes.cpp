// SPDX-License-Identifier: MIT
#include "desktop/ui/StartTimes.h"

#include <QEvent>
#include <QLoggingCategory>
#include <QWidget>

namespace desktop {

namespace {

Q_LOGGING_CATEGORY(start, "virelle.start", QtWarningMsg)

} // namespace

void StartTimes::watch(QWidget& window) {
  if (start().isInfoEnabled())
    new StartTimes(window);
}

StartTimes::StartTimes(QWidget& window) : QObject(&window) {
  window.installEventFilter(this);
}

// A window is painted, and what was painted is given to the window system, while one of these is served; so it is over
// when what is queued now has its turn.
bool StartTimes::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint) {
    watched->removeEventFilter(this);
    QMetaObject::invokeMethod(
        this,
        [this] {
          qCInfo(start, "first paint");
          deleteLater();
        },
        Qt::QueuedConnection);
  }
  return false;
}

} // namespace desktop
