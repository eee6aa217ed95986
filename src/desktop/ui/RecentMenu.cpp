// SPDX-License-Identifier: MIT
#include "desktop/ui/RecentMenu.h"

#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/RecentFiles.h"
#include "desktop/ui/Workspace.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace desktop {

namespace {

// "&1 ~/src/unit.pas": a digit for the keyboard, and no other ampersand is a mnemonic.
QString itemText(int number, const QString& path) {
  const QString home = QDir::homePath() + u'/';
  QString name = path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path;
  name.replace(u'&', QStringLiteral("&&"));
  return number < 10 ? QStringLiteral("&%1 %2").arg(number).arg(name) : QStringLiteral("1&0 %1").arg(name);
}

void fill(QMenu& menu, Workspace& workspace, TEditWindow& window) {
  menu.clear();
  int number = 0;
  for (const QString& path : workspace.recentFiles().files()) {
    QAction* const action = menu.addAction(itemText(++number, path));
    action->setEnabled(QFileInfo::exists(path));
    QObject::connect(action, &QAction::triggered, &window,
                     [&workspace, &window, path] { workspace.openings().open(&window, path); });
  }
  if (number == 0) {
    menu.addAction(QMenu::tr("No Files Yet"))->setEnabled(false);
    return;
  }
  menu.addSeparator();
  QObject::connect(menu.addAction(QMenu::tr("&Clear the List")), &QAction::triggered, &window,
                   [&workspace] { workspace.recentFiles().clear(); });
}

} // namespace

void addRecentMenu(QMenu& menu, Workspace& workspace, TEditWindow& window) {
  QMenu* const recent =
      menu.addMenu(QIcon::fromTheme(QStringLiteral("document-open-recent")), QMenu::tr("Open &Recent"));
  recent->setObjectName(QStringLiteral("RecentMenu"));
  QObject::connect(recent, &QMenu::aboutToShow, recent,
                   [recent, &workspace, &window] { fill(*recent, workspace, window); });
}

} // namespace desktop
