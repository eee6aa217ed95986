// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QSpinBox;

namespace desktop {

// Asks for a line number.
class GoToLineDialog : public QDialog {
  Q_OBJECT

public:
  // Offers the lines 1 to `lineCount` and proposes `line`.
  GoToLineDialog(int line, int lineCount, QWidget* parent = nullptr);

  // The chosen line, from 1.
  int line() const;

private:
  QSpinBox* line_;
};

} // namespace desktop
