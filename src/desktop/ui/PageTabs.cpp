// SPDX-License-Identifier: MIT
#include "desktop/ui/PageTabs.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ui/CloseButton.h"
#include "desktop/ui/Page.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

QString folderName(const Page& page) {
  return QFileInfo(page.document()->fileName()).dir().dirName();
}

} // namespace

PageTabs::PageTabs(QWidget* parent) : QTabBar(parent) {
  setObjectName(QStringLiteral("Tabs"));
  setDocumentMode(true);
  setDrawBase(true);
  setExpanding(false);
  setMovable(true);
  setUsesScrollButtons(true);
  setElideMode(Qt::ElideMiddle);
  setFocusPolicy(Qt::NoFocus);
  setSelectionBehaviorOnRemove(QTabBar::SelectRightTab);
}

Page* PageTabs::pageAt(int index) const {
  return tabData(index).value<Page*>();
}

int PageTabs::indexOf(const Page* page) const {
  const QList<Page*> all = pages();
  return static_cast<int>(std::find(all.begin(), all.end(), page) - all.begin());
}

QList<Page*> PageTabs::pages() const {
  QList<Page*> pages;
  for (int index = 0; index < count(); ++index)
    pages.append(pageAt(index));
  return pages;
}

void PageTabs::addPage(Page* page) {
  // The first tab that is inserted becomes current at once; whoever listens must find its page.
  const QSignalBlocker blocker(this);
  const int index = insertTab(currentIndex() + 1, QString());
  setTabData(index, QVariant::fromValue(page));
  auto* const button = new CloseButton(tr("Close"), this);
  button->setFocusPolicy(Qt::NoFocus);
  connect(button, &CloseButton::clicked, page, [this, page] { Q_EMIT closeRequested(page); });
  setTabButton(index, QTabBar::RightSide, button);
  updateTitles();
}

void PageTabs::removePage(Page* page) {
  const QSignalBlocker blocker(this);
  removeTab(indexOf(page));
  updateTitles();
}

void PageTabs::movePage(const Page* page, int index) {
  moveTab(indexOf(page), std::clamp(index, 0, count() - 1));
}

void PageTabs::setCurrentPage(Page* page) {
  setCurrentIndex(indexOf(page));
}

void PageTabs::hold() {
  ++holds_;
  hide();
}

void PageTabs::release() {
  if (--holds_ > 0)
    return;
  updateTitles();
  setVisible(count() > 0);
}

void PageTabs::updateTitles() {
  if (isHeld())
    return;
  const QList<Page*> all = pages();
  QStringList names;
  for (const Page* page : all)
    names.append(page->title());
  QHash<QString, int> uses;
  for (const QString& name : std::as_const(names))
    ++uses[name];
  for (int index = 0; index < count(); ++index) {
    const Page& page = *all[index];
    QString title = names[index];
    title.replace(u'&', QStringLiteral("&&"));
    if (uses[names[index]] > 1)
      title += QStringLiteral(" \u2013 ") + folderName(page);
    if (page.document()->isModified())
      title += QStringLiteral(" \u2022");
    // Setting a text lays all tabs out anew, whatever it is.
    if (title != tabText(index))
      setTabText(index, title);
    setTabToolTip(index, page.document()->isUntitled() ? tr("%1 (never saved)").arg(names[index])
                                                       : QDir::toNativeSeparators(page.document()->fileName()));
  }
}

// Tabs that do not all fit are scrolled. They would shrink to a letter or two first, but a name has to be read; only a
// very long one is shortened.
QSize PageTabs::minimumTabSizeHint(int index) const {
  constexpr int longName = 30; // characters
  const QSize shortest = QTabBar::minimumTabSizeHint(index);
  const int widest = std::max(shortest.width(), longName * fontMetrics().averageCharWidth());
  return {std::min(tabSizeHint(index).width(), widest), shortest.height()};
}

void PageTabs::mouseReleaseEvent(QMouseEvent* event) {
  const int index = tabAt(event->position().toPoint());
  if (event->button() == Qt::MiddleButton && index >= 0)
    Q_EMIT closeRequested(pageAt(index));
  else
    QTabBar::mouseReleaseEvent(event);
}

void PageTabs::contextMenuEvent(QContextMenuEvent* event) {
  Page* const page = pageAt(tabAt(event->pos()));
  if (page == nullptr)
    return;
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  connect(menu->addAction(tr("&Close")), &QAction::triggered, page, [this, page] { Q_EMIT closeRequested(page); });
  QAction* const others = menu->addAction(tr("Close &Others"));
  others->setEnabled(count() > 1);
  connect(others, &QAction::triggered, page, [this, page] { Q_EMIT closeOthersRequested(page); });
  menu->addSeparator();
  QAction* const copy = menu->addAction(tr("Copy Full &Path"));
  copy->setEnabled(!page->document()->isUntitled());
  connect(copy, &QAction::triggered, page,
          [page] { QGuiApplication::clipboard()->setText(page->document()->fileName()); });
  menu->popup(event->globalPos());
}

} // namespace desktop
