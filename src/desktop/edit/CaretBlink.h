// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>

namespace desktop {

// The rhythm of a caret: whether it is to be seen right now. It blinks as the desktop's settings say, or is steadily on
// where they turn blinking off.
class CaretBlink : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;

  bool isOn() const { return on_; }
  // Starts with the caret on; to be called again whenever the caret moves, so that it is seen while it does.
  void start();
  // Ends with the caret off.
  void stop();

Q_SIGNALS:
  void toggled();

protected:
  void timerEvent(QTimerEvent* event) override;

private:
  void turn(bool on);

  QBasicTimer timer_;
  bool on_ = false;
};

} // namespace desktop
