// SPDX-License-Identifier: MIT
#pragma once

class QMenu;

namespace desktop {

class TEditWindow;
class Workspace;

// Adds the menu "RecentMenu" to `menu`. It lists the recent files of `workspace` whenever it is opened, and opens the
// chosen one in `window`. Files that are not there any more can be seen, but not chosen.
void addRecentMenu(QMenu& menu, Workspace& workspace, TEditWindow& window);

} // namespace desktop
