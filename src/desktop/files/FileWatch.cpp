// SPDX-License-Identifier: MIT
#include "desktop/files/FileWatch.h"

#include <QFileInfo>
#include <QSet>

#include <chrono>

namespace desktop {

namespace {

constexpr std::chrono::milliseconds moment{100};
constexpr std::chrono::seconds retryTime{1};

// The names under which a change of the file at `path` can be noticed; links are followed.
QStringList watchedNames(const QString& path) {
  const QFileInfo file(path);
  QStringList names = {path, file.absolutePath()};
  if (file.isSymLink())
    names += {file.symLinkTarget(), QFileInfo(file.symLinkTarget()).absolutePath()};
  const QString canonical = file.canonicalFilePath(); // empty if there is no file
  if (!canonical.isEmpty() && canonical != path)
    names += {canonical, QFileInfo(canonical).absolutePath()};
  return names;
}

} // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent) {
  soon_.setSingleShot(true);
  soon_.setInterval(moment);
  retry_.setSingleShot(true);
  retry_.setInterval(retryTime);
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &FileWatch::lookSoon);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &FileWatch::lookSoon);
  connect(&retry_, &QTimer::timeout, this, &FileWatch::lookSoon);
  // Watched first and looked at then, so that no change falls in between.
  connect(&soon_, &QTimer::timeout, this, [this] {
    watch();
    Q_EMIT look();
  });
}

void FileWatch::setFiles(const QStringList& paths) {
  files_ = paths;
  lookSoon();
}

// Not begun again while it runs, or a file that is written without an end would never be looked at.
void FileWatch::lookSoon() {
  if (!soon_.isActive())
    soon_.start();
}

void FileWatch::watch() {
  QSet<QString> wanted;
  for (const QString& file : files_) {
    for (const QString& name : watchedNames(file))
      wanted.insert(name);
  }
  // A file under an old name may be another one by now, so none keeps its old watch.
  if (const QStringList old = watcher_.files(); !old.isEmpty())
    watcher_.removePaths(old);
  for (const QString& folder : watcher_.directories()) {
    if (!wanted.contains(folder))
      watcher_.removePath(folder);
  }
  bool all = true;
  for (const QString& name : wanted)
    all = watchPath(name) && all;
  if (!all && !retry_.isActive())
    retry_.start();
}

bool FileWatch::watchPath(const QString& path) {
  if (watcher_.directories().contains(path))
    return QFileInfo::exists(path);
  return QFileInfo::exists(path) && watcher_.addPath(path);
}

} // namespace desktop
