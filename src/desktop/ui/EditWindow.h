// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

#include <memory>

namespace platform {
class TActionList;
}

namespace desktop {

struct EditState;
class FindBar;
class MessageBar;
class Page;
class PageTabs;
class SourceDocument;
class StatusBar;
class TEditControl;

// An editor window: tabs, one edit control that shows the page in front, and a status bar.
//
// Add-ins know it by its class name "TEditWindow" and its object name "EditWindow_N", and find the control "Editor" and
// the list "ActionList1" among its direct children. They may add children of their own: whatever carries an alignment
// is laid out with the rest. It registers itself as a form of the screen. It lies in a frame with menus, the
// MainWindow, and emits activated() whenever that frame becomes the active window.
class TEditWindow : public QWidget {
  Q_OBJECT

public:
  // While one of these lives, the tabs of its window are not laid out for each page that comes or goes, which takes
  // long for hundreds. They cannot be seen meanwhile, so it has to be gone before control is back in the event loop.
  class ManyPages {
  public:
    explicit ManyPages(TEditWindow* window);
    ~ManyPages();
    ManyPages(const ManyPages&) = delete;
    ManyPages& operator=(const ManyPages&) = delete;

  private:
    PageTabs* tabs_;
  };

  explicit TEditWindow(const QString& name, QWidget* parent = nullptr);
  // Closes the pages first, while everything that listens is still there.
  ~TEditWindow() override;

  TEditControl* editor() const { return editor_; }
  platform::TActionList* actionList() const { return actionList_; }
  FindBar* findBar() const { return findBar_; }
  MessageBar* messageBar() const { return messageBar_; }
  StatusBar* statusBar() const { return statusBar_; }

  // All pages in the order of their tabs.
  QList<Page*> pages() const;
  // The page in front, or null when no page is open.
  Page* currentPage() const { return current_; }
  // The page of the file with the absolute path `fileName`, or null.
  Page* findPage(const QString& fileName) const;

  // Opens `document` as a new page right of the page in front, and shows it.
  Page* addPage(std::unique_ptr<SourceDocument> document);
  // Brings a page of this window to the front.
  void showPage(Page* page);
  // Moves the tab of a page of this window to the place `index`, from 0; the last place at most.
  void movePage(const Page* page, int index);
  // Closes a page of this window and destroys it, saved or not. The page right of it comes to the front, or else the
  // one left of it.
  void closePage(Page* page);

Q_SIGNALS:
  // `page` is in front now; null when the last page was closed.
  void currentPageChanged(Page* page);
  void pageAdded(Page* page);
  // `page` is still whole, but will be destroyed when this signal has been delivered.
  void pageAboutToClose(Page* page);
  // Title, modified mark, encoding or read-only state of a page may have changed.
  void pageChanged(Page* page);
  // The user wants to close `page`; what is unsaved has not been asked about.
  void closeRequested(Page* page);
  // The same for all pages but `page`.
  void closeOthersRequested(Page* page);
  // The window can be seen now, for the first time or again.
  void shown();
  // The frame around this window has become the active window.
  void activated();

protected:
  bool event(QEvent* event) override;

private:
  void buildParts();
  void showCurrent(Page* page);
  void showDocumentOf(const Page* page, const EditState& state);
  void showPageState(Page* page);
  void enableGuests();

  PageTabs* tabs_;
  MessageBar* messageBar_;
  TEditControl* editor_;
  FindBar* findBar_;
  StatusBar* statusBar_;
  platform::TActionList* actionList_;
  QWidget* emptyHint_; // stands in place of the control while no page is open
  QWidgetList parts_;  // the window's own, to tell them from what add-ins put into it
  Page* current_ = nullptr;
  bool colouredAsPascal_ = false; // how the text of the page in front is shown
};

} // namespace desktop
