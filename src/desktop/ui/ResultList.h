// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/ui/FoundPlace.h"

#include <QAbstractTableModel>
#include <QTextCursor>

#include <functional>
#include <map>
#include <vector>

namespace desktop {

class Page;
class SourceDocument;
class Workspace;

// The places that the last check or search has found, for all windows, in the order in which they came.
//
// Whoever looks for places begins a run and adds to it as long as it is the latest: a new run ends the one before and
// takes its places away. Places in open pages follow the edits of their text, those behind the first thousand of a page
// by their lines only; when such a page is closed they keep the lines that the file has. As a model it has a row for
// each place; its texts are plain. Main thread only.
class ResultList : public QAbstractTableModel {
  Q_OBJECT

public:
  enum Column { TextColumn, FileColumn, LineColumn, CellColumn, ColumnCount };

  // A list without a run. `workspace` must outlive it.
  explicit ResultList(Workspace& workspace);
  ~ResultList() override;

  // Begins a run and returns its number, which is above 0. `title` says what is looked for. `stop` is called when the
  // user wants the run to end or another begins; it may call finish. File names are shown relative to `folder` where
  // they lie in it, without their folders where it is empty.
  int begin(const QString& title, std::function<void()> stop = {}, const QString& folder = {});
  // What follows is ignored if `run` is not the latest, or has been finished.
  void append(int run, const std::vector<FoundPlace>& places);
  // Says how far the run is.
  void showProgress(int run, const QString& text);
  // Ends the run; `summary` says what it has come to. False if that is ignored.
  bool finish(int run, const QString& summary);

  // Whether the latest run goes on.
  bool isRunning() const { return running_; }
  // Asks the run that goes on to end.
  void stop();

  // What the latest run looks for, and how far it is or what it has come to. Both are empty before the first run.
  const QString& title() const { return title_; }
  const QString& summary() const { return summary_; }

  int count() const { return static_cast<int>(rows_.size()); }
  // The place of a row (from 0, below count()) where the edits so far have brought it.
  FoundPlace place(int row) const;
  // The open page that the place is in, or null.
  Page* page(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
  // title(), summary() or isRunning() may have changed.
  void stateChanged();
  // The latest run has ended.
  void finished();

private:
  struct Row {
    FoundPlace place;
    const SourceDocument* document = nullptr; // while its file is open
    QTextCursor cursor = {};                  // at the place then, if the document has not too many of them
    int line = 0;                             // where there is no cursor: the line from 1
  };
  struct Spot;

  void adopt(Page* page);
  void keep(const SourceDocument* document);
  void release(Page* page);
  void follow(Page* page);
  void track(Row& row, SourceDocument& document);
  void shift(const SourceDocument* document, int firstLine, int lastLine, int growth);
  void rename(const SourceDocument* document);
  void update();
  static Spot spotOf(const Row& row);
  FoundPlace present(const Row& row) const;
  Page* pageOf(const QTextDocument* document) const;
  QString shownFile(const QString& fileName) const;
  QVariant display(const FoundPlace& place, int column) const;
  QString spoken(const FoundPlace& place) const;
  QList<Page*> pages() const;

  Workspace& workspace_;
  std::vector<Row> rows_;
  std::map<const SourceDocument*, int> cursors_; // how many each open document has
  int run_ = 0;                                  // the number of the latest run
  bool running_ = false;
  std::function<void()> stop_;
  QString title_;
  QString summary_;
  QString folder_;
};

} // namespace desktop
