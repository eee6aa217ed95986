// SPDX-License-Identifier: MIT
// A lock that programs agree on.
#pragma once

#include "platform/Export.h"

#include <QString>

#include <chrono>

namespace platform {

// Holds the system's lock on a file while it lives, against all other objects of this class, in this process and in
// others. The system gives it back when the process ends, killed ones included, so no lock is ever left behind. Where
// the file system knows no locks there is none, and a line in the debugger output says so.
class VIRELLE_PLATFORM TFileLock {
public:
  // Makes the file at `path` if it is missing and waits for its lock, but no longer than `longestWait`. Raises
  // EFileError if the lock cannot be had.
  TFileLock(const QString& path, std::chrono::milliseconds longestWait);
  ~TFileLock();

  TFileLock(const TFileLock&) = delete;
  TFileLock& operator=(const TFileLock&) = delete;

private:
  int file_;
};

} // namespace platform
