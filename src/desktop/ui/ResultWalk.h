// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace desktop {

struct FoundPlace;
class Page;
class ResultList;
class TEditWindow;
class Workspace;

// Goes from place to place of the list of results. Main thread only.
class ResultWalk : public QObject {
  Q_OBJECT

public:
  // Both must outlive it.
  ResultWalk(Workspace& workspace, ResultList& list);

  // The row that was gone to last, or -1 when none of this list has been.
  int currentRow() const { return current_; }

  // Shows the place of a row (from 0, below the list's count) with the caret, or a selection, on it and gives the focus
  // to the text. A file that is not open is opened in `window`, which may take a while; if it cannot be opened `window`
  // says so. The row is the current one in any case, so that one can go on behind it.
  void go(int row, TEditWindow* window) { go(row, window, {}); }
  // Goes to the row behind the current one, or before it; from the last row to the first and the other way round, which
  // the status bar says. Without a row it is the first, or the last one.
  void goToNext(TEditWindow* window);
  void goToPrevious(TEditWindow* window);

Q_SIGNALS:
  void currentRowChanged(int row);

private:
  void go(int row, TEditWindow* window, const QString& note);
  void setCurrentRow(int row);
  void show(Page* page, const FoundPlace& place, const QString& note);

  Workspace& workspace_;
  ResultList& list_;
  int current_ = -1;
};

} // namespace desktop
