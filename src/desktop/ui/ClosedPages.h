// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/EditControl.h"

#include <QObject>
#include <QString>

#include <vector>

namespace desktop {

class Page;
class TEditWindow;
class Workspace;

// The files whose pages were closed in this run, to be opened again as they were shown. Untitled pages are not among
// them. Main thread only.
class ClosedPages : public QObject {
  Q_OBJECT

public:
  explicit ClosedPages(Workspace& workspace);

  bool isEmpty() const { return closed_.empty(); }
  // Opens the file that was closed last in `window`, with its caret and scroll position, and returns its page. Files
  // that are open are passed over; null if there is none, if it is large and comes later, or if it cannot be
  // opened, which the window then says.
  Page* reopen(TEditWindow* window);

Q_SIGNALS:
  // isEmpty() may have changed.
  void changed();

private:
  struct Closed {
    QString path;
    EditState state;
  };

  void follow(const TEditWindow* window);
  void remember(const Page* page);

  Workspace& workspace_;
  std::vector<Closed> closed_; // the latest last
};

} // namespace desktop
