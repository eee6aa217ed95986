// SPDX-License-Identifier: MIT
// The diagnostic log window.
#pragma once

#include <QDockWidget>
#include <QString>

namespace quorvane {

// A form with a read-only memo "Memo1" that fills it and an action list "DockActionList". It can stand by itself or be
// docked to the edge of a main window; it is hidden until somebody shows it. Units write what they do to it, and it
// discards every line: the calls are kept so that logging can be switched on in one place, by overriding Log.
//
// The unit's start creates the one instance, owned by the application, and its stop frees it, almost last of all, so
// that other units may log while they stop. Main thread only.
class TQVLogForm : public QDockWidget {
  Q_OBJECT
public:
  TQVLogForm();
  // Clears QVLogForm if it is this form.
  ~TQVLogForm() override;

  // Discards `text`. Intended: see above.
  virtual void Log(const QString& text);
};

// The one log form, or null while the unit is not started.
extern TQVLogForm* QVLogForm;

// Logs `text` to the form, if there is one.
void Log(const QString& text);

// Start and stop of the unit.
void StartQVLog();
void StopQVLog();

} // namespace quorvane
