// SPDX-License-Identifier: MIT
// The splash window.
#pragma once

#include <QFrame>
#include <QTimer>

namespace quorvane {

// A borderless picture in the middle of the screen, on top of everything, for the five seconds after the package was
// loaded: a panel with a raised edge of 3 pixels around the 400 x 250 pixels of "Image1".
//
// The start of the unit, the last of the package's, creates the one instance, without an owner, shows it and starts its
// timer "Timer1"; when that fires, the form releases itself. Nothing else ends it: neither a click, nor the stop of the
// unit, so a package that is unloaded meanwhile leaves its splash standing to the end of its time. The window never
// takes the focus from the editor. Main thread only.
class TVirelleSplashForm : public QFrame {
  Q_OBJECT
public:
  // A hidden form with its timer disabled.
  TVirelleSplashForm();
  // Clears VirelleSplashForm if it is this form.
  ~TVirelleSplashForm() override;

  // Shows the form in the middle of the screen that the host's main form is on, paints it at once and enables the timer.
  // Where windows come up only with the events of their system, so does the painting: no events are served here, since
  // the host's own windows wait to be equipped before anything of them is seen.
  void ShowForAWhile();

private:
  void Timer1Timer();

  QTimer* timer_;
};

// The splash on show, or null.
extern TVirelleSplashForm* VirelleSplashForm;

// Start of the unit: shows the splash, unless the host's application wants none. There is nothing to stop.
void StartQVVirelleSplash();

} // namespace quorvane
