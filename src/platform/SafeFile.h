// SPDX-License-Identifier: MIT
// A file that several programs change and none may spoil.
#pragma once

#include "platform/Export.h"
#include "platform/FileError.h"

#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

// A file that is read and changed as a whole. One of more than 64 MB is refused: it is neither read nor changed.
//
// It is replaced in one step: what is new is written to "NAME.new" and takes the old file's name when it is on the
// disk. Who writes holds a lock on "NAME.lock", an empty file that stays. The lock is the system's, which takes it back
// from a process that has ended in whatever way, so it is never left behind, and a "NAME.new" that was left behind is
// nobody's and can be overwritten. Where a link leads to the file, NAME is the file's own, so all who share it agree on
// its lock, and the link stays one. What is new may be read by the same people as the old. Any thread.
class VIRELLE_PLATFORM TSafeFile {
public:
  // What becomes of the file's bytes.
  using TChange = std::function<std::string(std::string_view bytes)>;
  // Called before a file is replaced, with the path of that file, no link; what it throws keeps it from being replaced.
  using TBeforeReplacing = std::function<void(const QString& path)>;

  // For a file at `path`, which need not exist. An empty path is no place: there is nothing to be read.
  explicit TSafeFile(QString path) : path_(std::move(path)) {}

  const QString& Path() const { return path_; }
  // The path of the folder.
  QString Folder() const;

  // The file's bytes, none if there is no file. Raises EFileError.
  std::string Read() const;

  // Makes the folder if it is missing. Raises EFileError.
  void MakeFolder() const;

  // Changes the file as it is now, in a folder that exists; it is not touched if the change leaves its bytes as they
  // are. Waits for other writers, but not for long. Raises EFileError if it cannot be written; it is then as it was.
  void Change(const TChange& change, const TBeforeReplacing& beforeReplacing = {}) const;

private:
  QString path_;
};

} // namespace platform
