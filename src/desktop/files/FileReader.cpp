// SPDX-License-Identifier: MIT
#include "desktop/files/FileReader.h"

#include "desktop/files/FileStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <functional>

namespace desktop {

namespace {

QString message(const char* text) {
  return QCoreApplication::translate("FileStore", text);
}

FileStamp stampOf(const struct stat& status) {
  constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
  return {status.st_size, status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec, status.st_ino};
}

// Line feeds, and carriage returns that no line feed follows.
std::int64_t countLineEnds(const QByteArray& bytes) {
  std::int64_t count = 0;
  for (qsizetype i = 0; i < bytes.size(); ++i)
    count += bytes[i] == '\n' || (bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n'));
  return count;
}

// All bytes, or one more than is allowed. The file may grow or shrink meanwhile; `size` is what it should have.
QByteArray readAll(QFile& file, qint64 size, const LoadControl* control) {
  constexpr qint64 sliceBytes = 4 << 20;
  QByteArray bytes;
  bytes.reserve(size + 1);
  while (bytes.size() <= largestFileBytes) {
    if (control != nullptr && control->isStopped())
      throw LoadStopped();
    const QByteArray slice = file.read(std::min(sliceBytes, largestFileBytes + 1 - bytes.size()));
    if (slice.isEmpty())
      break;
    bytes += slice;
  }
  return bytes;
}

} // namespace

FileStamp stampOf(const QString& path) {
  struct stat status = {};
  return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? stampOf(status) : FileStamp{};
}

std::size_t contentHash(std::string_view bytes) {
  return std::hash<std::string_view>()(bytes);
}

FileContents readFile(const QString& path, const LoadControl* control) {
  struct stat status = {};
  if (::stat(QFile::encodeName(path).constData(), &status) != 0)
    return {{}, {}, qt_error_string(errno)};
  if (S_ISDIR(status.st_mode))
    return {{}, {}, message("it is a folder")};
  if (!S_ISREG(status.st_mode))
    return {{}, {}, message("it is no regular file")};
  const QString tooLarge = message("it is over %1 MB").arg(largestFileBytes >> 20);
  if (status.st_size > largestFileBytes)
    return {{}, {}, tooLarge};

  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return {{}, {}, file.errorString()};
  FileContents contents{readAll(file, status.st_size, control), stampOf(status), {}};
  if (file.error() != QFile::NoError)
    contents.error = file.errorString();
  else if (contents.bytes.size() > largestFileBytes)
    contents.error = tooLarge;
  else if (countLineEnds(contents.bytes) > mostLines)
    contents.error = message("it has more than %1 lines").arg(QLocale().toString(mostLines));
  return contents;
}

} // namespace desktop
