// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace quorvane {

// One of the buttons at the bottom of a dialog.
struct TQVPanelButton {
  const char* Name; // of the component
  const char* Caption;
  int Result; // with which it closes the dialog
};

// The panel at the bottom of `form`, which owns it: OK, the default, and Cancel, at the right.
QWidget* NewButtonPanel(QDialog& form, const TQVPanelButton& ok, const TQVPanelButton& cancel);

} // namespace quorvane
