// SPDX-License-Identifier: MIT
#include "platform/Metrics.h"

#include <QApplication>
#include <QStyle>

namespace platform {

int GetSystemMetrics(int index) {
  switch (index) {
  case SM_CYHSCROLL:
    return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  case SM_CYEDGE:
    return 2; // one dark and one light line
  default:
    return 0;
  }
}

} // namespace platform
