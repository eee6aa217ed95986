// SPDX-License-Identifier: MIT
#include "desktop/ui/Screenshot.h"

#include <QApplication>
#include <QEventLoop>
#include <QImageWriter>
#include <QPixmap>
#include <QWidget>

namespace desktop {

QString saveScreenshot(QWidget& window, const QString& path) {
  // A blinking caret would be in some pictures and not in others.
  QApplication::setCursorFlashTime(0);
  // Layouts, first paints and what add-ins have asked for are served before the picture is taken.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QImageWriter writer(path, "png");
  return writer.write(window.grab().toImage()) ? QString() : writer.errorString();
}

} // namespace desktop
