// SPDX-License-Identifier: MIT
#include "desktop/files/FileWalk.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

#include <algorithm>
#include <system_error>

namespace desktop {

namespace fs = std::filesystem;

namespace {

struct Status {
  FileId id;
  mode_t mode = 0;
};

std::optional<Status> statusOf(const char* path) {
  struct stat status = {};
  if (::stat(path, &status) != 0)
    return std::nullopt;
  return Status{{status.st_dev, status.st_ino}, status.st_mode};
}

QString nameOf(const fs::path& path) {
  return QFile::decodeName(path.c_str());
}

bool isHidden(const fs::path& path) {
  return path.filename().native().starts_with('.');
}

} // namespace

std::optional<FileId> fileIdOf(const QString& path) {
  const std::optional<Status> status = statusOf(QFile::encodeName(path).constData());
  return status ? std::optional(status->id) : std::nullopt;
}

// What is in one folder, by name.
struct FileWalk::Entries {
  std::vector<std::pair<fs::path, FileId>> files;
  std::vector<fs::path> folders;
};

bool FileWalk::walk(const QString& path, const Visit& visit) {
  return walkFolder(fs::path(QFile::encodeName(QDir::cleanPath(path)).toStdString()), visit);
}

bool FileWalk::walkFolder(const fs::path& folder, const Visit& visit) {
  const std::optional<Status> status = statusOf(folder.c_str());
  if (status && !isNew(status->id))
    return true;
  const Entries entries = entriesOf(folder);
  return !stop_.stop_requested() && visitFiles(entries, visit) &&
         std::ranges::all_of(entries.folders, [&](const fs::path& each) { return walkFolder(each, visit); });
}

bool FileWalk::visitFiles(const Entries& entries, const Visit& visit) {
  return std::ranges::all_of(
      entries.files, [&](const auto& each) { return !isNew(each.second) || visit(nameOf(each.first), each.second); });
}

FileWalk::Entries FileWalk::entriesOf(const fs::path& folder) {
  Entries entries;
  std::error_code error;
  for (fs::directory_iterator next(folder, error);
       !error && next != fs::directory_iterator() && !stop_.stop_requested(); next.increment(error)) {
    const fs::path& path = next->path();
    const std::optional<Status> status = statusOf(path.c_str());
    if (status && S_ISREG(status->mode))
      entries.files.emplace_back(path, status->id);
    else if (status && S_ISDIR(status->mode) && withSubfolders_ && !isHidden(path))
      entries.folders.push_back(path);
  }
  if (error)
    unreadable_.emplace_back(nameOf(folder), QString::fromStdString(error.message()));
  std::ranges::sort(entries.files, {}, [](const auto& each) -> const fs::path& { return each.first; });
  std::ranges::sort(entries.folders);
  return entries;
}

} // namespace desktop
