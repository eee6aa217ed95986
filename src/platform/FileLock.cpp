// SPDX-License-Identifier: MIT
#include "platform/FileLock.h"

#include "platform/SafeFile.h"

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

} // namespace

TFileLock::TFileLock(const QString& path, std::chrono::milliseconds longestWait) : file_(Open(path)) {
  if (Lock(file_, std::chrono::steady_clock::now() + longestWait))
    return;
  const std::string reason =
      errno == EWOULDBLOCK ? "another program is writing it" : qt_error_string(errno).toStdString();
  ::close(file_);
  throw EFileError(reason);
}

TFileLock::~TFileLock() {
  ::close(file_);
}

} // namespace platform
