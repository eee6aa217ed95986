// SPDX-License-Identifier: MIT
#include "desktop/ui/Screenshot.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QImageWriter>
#include <QPixmap>
#include <QWidget>

namespace desktop {

QString saveScreenshot(QWidget& window, const QString& path) {
  // Layouts, first paints and what add-ins have asked for are served before the picture is taken.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QImageWriter writer(path, "png");
  return writer.write(window.grab().toImage()) ? QString() : writer.errorString();
}

} // namespace desktop
