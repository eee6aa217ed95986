// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class QWidget;

namespace desktop {

// Shows `window`, which may be iconified, above the others and gives it the focus, because the user has asked for it in
// another process.
//
// Desktops keep programs from taking the focus as they like, so the process passes on what its desktop gave it for that
// purpose: its `startupId` under X11, which also tells the desktop that the start is over, or its `activationToken`
// under Wayland. Both may be empty. Without a startup id X11 is told that it is the user's wish.
void activateWindow(QWidget& window, const QByteArray& startupId, const QByteArray& activationToken);

} // namespace desktop
