// SPDX-License-Identifier: MIT
#include "desktop/ui/Screenshot.h"

#include <QApplication>
#include <QEventLoop>
#include <QImageWriter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace desktop {

namespace {

constexpr std::chrono::milliseconds firstResults{500};

} // namespace

QString saveScreenshot(QWidget& window, const QString& path) {
  // A blinking caret would be in some pictures and not in others.
  QApplication::setCursorFlashTime(0);
  // Layouts, first paints and what add-ins have asked for are served before the picture is taken. An add-in may work in
  // a thread of its own, of which nothing is known here, so it is given a while.
  QEventLoop events;
  QTimer::singleShot(firstResults, &events, &QEventLoop::quit);
  events.exec(QEventLoop::ExcludeUserInputEvents);
  QImageWriter writer(path, "png");
  return writer.write(window.grab().toImage()) ? QString() : writer.errorString();
}

} // namespace desktop
