// SPDX-License-Identifier: MIT
// Waiting in tests: always for a condition, never for a time.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace support {

// Serves events until `condition()` holds. False if it still does not after `seconds`, which is meant to be far longer
// than it can take: the limit only keeps a broken test from hanging.
template <class TCondition> bool waitUntil(TCondition&& condition, int seconds = 120) {
  const QDeadlineTimer deadline{std::chrono::seconds(seconds)};
  QTimer wake; // a condition may come true without an event
  wake.start(5);
  while (!condition()) {
    if (deadline.hasExpired())
      return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

// Serves what is waiting in the event queue now, deferred deletions included.
inline void settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

} // namespace support
