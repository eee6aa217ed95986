// SPDX-License-Identifier: MIT
#include "platform/FileLock.h"

#include "platform/Debug.h"
#include "platform/FileError.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace platform {
namespace {

constexpr std::chrono::milliseconds betweenAttempts{5};

int Open(const QString& path) {
  const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (file < 0)
    throw EFileError(path.toStdString() + ": " + qt_error_string(errno).toStdString());
  return file;
}

// Whether the lock was taken before `deadline`; if not, errno says why.
bool Lock(int file, std::chrono::steady_clock::time_point deadline) {
  while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= deadline)
      return false;
    std::this_thread::sleep_for(betweenAttempts);
  }
  return true;
}

// Whether `error` means that there are no locks in this file system, as with some network and user-space ones.
bool NoLocksHere(int error) {
  return error == ENOLCK || error == ENOTSUP || error == ENOSYS;
}

} // namespace

TFileLock::TFileLock(const QString& path, std::chrono::milliseconds longestWait) : file_(Open(path)) {
  if (Lock(file_, std::chrono::steady_clock::now() + longestWait))
    return;
  const int error = errno;
  const std::string reason = qt_error_string(error).toStdString();
  if (NoLocksHere(error)) {
    OutputDebugString(path.toStdString() + " cannot be locked: " + reason + "; writing goes on without a lock");
    return;
  }
  ::close(file_);
  throw EFileError(error == EWOULDBLOCK ? "another program is writing it" : reason);
}

TFileLock::~TFileLock() {
  ::close(file_);
}

} // namespace platform
