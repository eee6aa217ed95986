// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/FileSearch.h"
#include "desktop/files/TaskQueue.h"

#include <QObject>

#include <stop_token>
#include <vector>

namespace desktop {

// Searches files in a thread of its own. Main thread only.
class FindInFiles : public QObject {
  Q_OBJECT

public:
  explicit FindInFiles(QObject* parent = nullptr);
  // Ends a search that goes on; nothing is emitted any more. Waits until the thread is through with a line, or with
  // reading a file.
  ~FindInFiles() override;

  // Begins a search. One that goes on is stopped and does not emit anything from now on.
  void start(FileSearch search);
  // Asks the search that goes on to end; finished() comes soon.
  void stop() { stop_.request_stop(); }

Q_SIGNALS:
  // Matches in the order in which they are found, some at a time.
  void found(const std::vector<FileMatch>& matches);
  // Now and then while it goes on.
  void progressed(const FileSearchOutcome& sofar);
  // The search is through, full or stopped; `trouble` says, for the user, why it could not be brought to its end
  // otherwise. Comes once for each search that is not replaced by another.
  void finished(const FileSearchOutcome& outcome, const QString& trouble);

private:
  class Run;

  std::stop_source stop_;
  int latest_ = 0;  // the number of the search started last
  TaskQueue queue_; // goes first, while what the thread calls is still there
};

} // namespace desktop
