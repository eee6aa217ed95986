// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/FileStore.h"
#include "desktop/files/LoadControl.h"
#include "desktop/files/TaskQueue.h"

#include <QObject>
#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace desktop {

// Loads files in threads, so that the main thread goes on meanwhile.
//
// Two are loaded at a time; further ones wait. A document is made and filled in the thread and belongs to the main
// thread from when it is handed over. Main thread only.
class FileLoader : public QObject {
  Q_OBJECT

public:
  // Does to a document, in the loading thread, what would take long once it is to be shown.
  using Prepare = std::function<void(SourceDocument& document)>;
  // Receives the document, or why there is none.
  using Done = std::function<void(LoadResult result)>;

  explicit FileLoader(QObject* parent = nullptr);
  // Stops what is being loaded and waits for the threads, which takes a moment at most.
  ~FileLoader() override;

  // Loads the file at `path`, as load() does; `done` is called from the event loop. It is not called when the loading
  // has been stopped by then.
  std::shared_ptr<LoadControl> load(const QString& path, Prepare prepare, Done done);

private:
  // A thread, and how many files it has yet to load.
  struct Lane {
    int waiting = 0;
    TaskQueue tasks;
  };
  struct Job;

  void finish(Job& job);

  std::vector<std::weak_ptr<LoadControl>> controls_;
  std::array<Lane, 2> lanes_; // last, so that the threads end before what they use
};

} // namespace desktop
