// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/FileWatch.h"
#include "desktop/files/SourceDocument.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <map>

namespace desktop {

class Page;
class TEditWindow;
class Workspace;

// Notices what other programs do to the files that are open, and keeps their pages up to date.
//
// A file counts as changed when its contents are others than those that the page has read or written last. A page that
// has not been edited is reloaded; for one that has, the message bar of its window asks. When a file has gone the user
// is told, and the page becomes modified, since its text is the only one now. Nothing happens while a dialog or a menu
// is open or an add-in is editing; it follows then. Main thread only.
class DiskChanges : public QObject {
  Q_OBJECT

public:
  // Watches all files of `workspace`, which must outlive it.
  explicit DiskChanges(Workspace& workspace);
  ~DiskChanges() override;

Q_SIGNALS:
  // All pages have been compared with their files, and what was to be done has been done.
  void settled();

private:
  // What is known of a page whose file has changed.
  struct Change {
    FileStamp stamp;            // of the file when it was looked at last
    bool isHandled = false;     // nothing is to be done before the stamp is another
    bool isGone = false;        // the page was made modified because its file had gone
    int revision = 0;           // of the document then
    QPointer<QWidget> question; // in the page's message bar
  };

  void follow(TEditWindow* window);
  void followPage(Page* page);
  void forget(Page* page);
  void watchFiles();
  bool mayAct() const;
  void look();
  // False if the file is still being changed.
  bool check(Page& page);
  void takeOver(Page& page, Change& change);
  void takeAsSaved(Page& page, Change& change);
  void reload(Page& page);
  void tellGone(Page& page, Change& change);
  void ask(Page& page, Change& change, std::size_t hash);
  void settle(Page& page, Change& change);
  static bool isEdited(const Page& page, const Change& change);

  Workspace& workspace_;
  FileWatch watch_;
  std::map<Page*, Change> changes_; // of all pages
};

} // namespace desktop
