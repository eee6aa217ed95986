// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <sys/types.h>

#include <compare>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <stop_token>
#include <utility>
#include <vector>

namespace desktop {

// What tells one file or folder from all others, whatever its names are.
struct FileId {
  dev_t device = 0;
  ino_t inode = 0;

  friend auto operator<=>(const FileId&, const FileId&) = default;
};

// None if there is no file at `path`. Links are followed.
std::optional<FileId> fileIdOf(const QString& path);

// Goes through the regular files in a folder: those of one folder by name, then its subfolders in the same way. Links
// are followed, but each file and folder is visited once, so that links in a circle do no harm. Subfolders whose names
// begin with a dot are left out. Any thread.
class FileWalk {
public:
  // Called with each file's absolute name and its identity; false ends the walk.
  using Visit = std::function<bool(const QString& path, const FileId& id)>;

  FileWalk(bool withSubfolders, std::stop_token stop) : withSubfolders_(withSubfolders), stop_(std::move(stop)) {}

  // Walks through the folder with the absolute name `path`. False when `visit` or the stop token
  // has ended the walk.
  bool walk(const QString& path, const Visit& visit);
  // The folders that could not be read, each with the reason, for the user.
  const std::vector<std::pair<QString, QString>>& unreadable() const { return unreadable_; }

private:
  struct Entries;

  bool walkFolder(const std::filesystem::path& folder, const Visit& visit);
  bool visitFiles(const Entries& entries, const Visit& visit);
  bool isNew(const FileId& id) { return visited_.insert(id).second; }
  Entries entriesOf(const std::filesystem::path& folder);

  bool withSubfolders_;
  std::stop_token stop_;
  std::set<FileId> visited_;
  std::vector<std::pair<QString, QString>> unreadable_;
};

} // namespace desktop
