// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QTabBar>

namespace desktop {

class Page;

// The tabs of an editor window, one a page. It owns no page; it shows their titles, a dot at what is unsaved, and the
// whole path as a tool tip.
class PageTabs : public QTabBar {
  Q_OBJECT

public:
  explicit PageTabs(QWidget* parent = nullptr);

  // Adds a tab for `page` right of the tab in front, without bringing it to the front.
  void addPage(Page* page);
  void removePage(Page* page);
  void setCurrentPage(Page* page);
  // Moves the tab of `page` to the place `index`, from 0; clipped to what there is.
  void movePage(const Page* page, int index);
  // The page of the tab in front, or null.
  Page* currentPage() const { return pageAt(currentIndex()); }
  // In the order of the tabs, which the user may drag.
  QList<Page*> pages() const;
  // Shows the titles anew. Pages with the same title are told apart by their folders.
  void updateTitles();

  // Hides the tabs and leaves the titles alone until release() is called as often: each change of tabs that can be seen
  // lays all of them out.
  void hold();
  void release();
  bool isHeld() const { return holds_ > 0; }

Q_SIGNALS:
  void closeRequested(Page* page);
  void closeOthersRequested(Page* page);

protected:
  QSize minimumTabSizeHint(int index) const override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

private:
  Page* pageAt(int index) const;
  int indexOf(const Page* page) const;

  int holds_ = 0;
};

} // namespace desktop
