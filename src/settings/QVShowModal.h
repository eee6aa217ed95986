// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"

#include <QApplication>
#include <QDialog>
#include <QWindow>

namespace quorvane {

// Shows a form that no window owns until the user closes it, and returns its result. It stays above the dialog that the
// user is in, else above the window that is active now; when there is none, above the main form.
inline int ShowModalAboveActive(QDialog& form) {
  const QWidget* owner = QApplication::activeModalWidget(); // which the desktop may not have activated yet
  if (owner == nullptr)
    owner = QApplication::activeWindow();
  if (owner == nullptr || owner == &form)
    owner = platform::Application().MainForm();
  form.winId(); // makes the window that is told what it belongs to
  form.windowHandle()->setTransientParent(owner != nullptr ? owner->window()->windowHandle() : nullptr);
  return form.exec();
}

} // namespace quorvane
