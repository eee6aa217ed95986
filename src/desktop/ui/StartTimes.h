// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace desktop {

// Says on the debug output when the program has come so far in its start, for whoever measures it from outside: a line
// "virelle.start: first paint" once `window` has been painted for the first time, with all that is in it.
//
// Nothing is watched unless the logging category "virelle.start" is switched on, which it is not by itself:
//   QT_LOGGING_RULES=virelle.start.info=true virelle
// The object belongs to `window`. Main thread only.
class StartTimes : public QObject {
  Q_OBJECT

public:
  static void watch(QWidget& window);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit StartTimes(QWidget& window);
};

} // namespace desktop
