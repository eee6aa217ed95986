// SPDX-License-Identifier: MIT
#include "platform/Align.h"

#include <QVariant>

namespace platform {

void SetAlign(QWidget& control, TAlign align) {
  control.setProperty(AlignProperty, static_cast<int>(align));
}

TAlign Align(const QWidget& control) {
  return static_cast<TAlign>(control.property(AlignProperty).toInt());
}

} // namespace platform
