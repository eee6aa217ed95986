// SPDX-License-Identifier: MIT
// Between the controls of the options dialog and plain values. Which control holds which option stands in the options'
// table; what is done with it follows from the option's kind alone. Main thread only.
#pragma once

#include "settings/model/QVOptionValues.h"

#include <QString>
#include <QWidget>

namespace quorvane {

// The object name of an option's control.
QString ControlName(TQVOption option);

// Put one value or all of them into the controls below `form`, and take all back. An option whose control is missing,
// or of a kind that does not fit, is an EAssertionFailed that names the unit QVOptions.
void ShowValue(TQVOption option, const TQVOptionValues& values, QWidget& form);
void ShowValues(const TQVOptionValues& values, QWidget& form);
TQVOptionValues TakeValues(const QWidget& form);

} // namespace quorvane
