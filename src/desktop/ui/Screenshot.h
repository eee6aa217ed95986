// SPDX-License-Identifier: MIT
// A picture of a whole window.
#pragma once

#include <QString>

class QWidget;

namespace desktop {

// Writes what `window` shows, menus and status bar included, to the PNG file `path`, in device pixels. Returns an empty
// string, or why it could not be written.
QString saveScreenshot(QWidget& window, const QString& path);

} // namespace desktop
