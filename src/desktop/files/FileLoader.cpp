// SPDX-License-Identifier: MIT
#include "desktop/files/FileLoader.h"

#include <QThread>

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>

namespace desktop {

struct FileLoader::Job {
  QString path;
  Prepare prepare;
  Done done;
  Lane* lane = nullptr;
  QThread* home = nullptr; // of the document, once it is loaded
  std::shared_ptr<LoadControl> control = std::make_shared<LoadControl>();
  std::mutex mutex;
  LoadResult result;

  // In the thread.
  void run() {
    LoadResult loaded = load();
    if (loaded.document != nullptr)
      loaded.document->moveToThread(home);
    const std::lock_guard lock(mutex);
    result = std::move(loaded);
  }

  LoadResult takeResult() {
    const std::lock_guard lock(mutex);
    return std::move(result);
  }

private:
  LoadResult load() const try {
    LoadResult loaded = desktop::load(path, quorvane::DefaultCodePage, control.get());
    if (loaded.document != nullptr && prepare)
      prepare(*loaded.document);
    return loaded;
  } catch (const std::bad_alloc&) {
    return {nullptr, tr("Cannot open %1: there is not enough memory.").arg(path)};
  }
};

FileLoader::FileLoader(QObject* parent) : QObject(parent) {}

FileLoader::~FileLoader() {
  for (const std::weak_ptr<LoadControl>& control : controls_) {
    if (const std::shared_ptr<LoadControl> running = control.lock())
      running->stop();
  }
}

std::shared_ptr<LoadControl> FileLoader::load(const QString& path, Prepare prepare, Done done) {
  auto job = std::make_shared<Job>();
  job->path = path;
  job->prepare = std::move(prepare);
  job->done = std::move(done);
  job->home = thread();
  job->lane = &*std::ranges::min_element(lanes_, {}, &Lane::waiting);
  ++job->lane->waiting;
  std::erase_if(controls_, [](const std::weak_ptr<LoadControl>& control) { return control.expired(); });
  controls_.push_back(job->control);
  job->lane->tasks.add([this, job] {
    job->run();
    QMetaObject::invokeMethod(
        this, [this, job] { finish(*job); }, Qt::QueuedConnection);
  });
  return job->control;
}

void FileLoader::finish(Job& job) {
  --job.lane->waiting;
  LoadResult result = job.takeResult();
  const Done done = std::move(job.done); // what it holds belongs to this thread, though the other may keep the job
  if (!job.control->isStopped())
    done(std::move(result));
}

} // namespace desktop
