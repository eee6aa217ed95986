// SPDX-License-Identifier: MIT
#include "desktop/files/FileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace desktop {

bool mayWrite(const QString& path) {
  return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

namespace {

QString message(const char* text) {
  return QCoreApplication::translate("FileWriter", text);
}

// Whether the file has to stay the same one, which replacing it would not allow: other names lead to it, it belongs to
// somebody else, or its folder takes no new files.
bool mustStayInPlace(const QString& path, const struct stat& status) {
  if (status.st_nlink > 1 || status.st_uid != ::geteuid())
    return true;
  return !mayWrite(QFileInfo(QFileInfo(path).canonicalFilePath()).absolutePath());
}

// A disk that fills up takes a part at first; only the next attempt tells the reason.
bool writeAll(QIODevice& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const qint64 written = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (written <= 0)
      return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

QString replaceFile(const QString& path, std::string_view bytes) {
  QSaveFile file(path);
  // Without a buffer: if the rest of it cannot be written when the file is committed, nobody hears of it.
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
    return file.errorString();
  if (!writeAll(file, bytes)) {
    QString reason = file.errorString();
    file.cancelWriting();
    return reason;
  }
  return file.commit() ? QString() : file.errorString();
}

// Overwrites an open file from its start. Room for all of it is taken first, so that a full disk is noticed while the
// old contents are whole.
QString overwrite(QFile& file, std::string_view bytes) {
  const qint64 oldSize = file.size();
  const auto newSize = static_cast<qint64>(bytes.size());
  if (newSize > oldSize) {
    const int error = ::posix_fallocate(file.handle(), 0, newSize);
    if (error != 0) {
      file.resize(oldSize);
      return qt_error_string(error);
    }
  }
  if (!file.seek(0) || !writeAll(file, bytes) || !file.flush() || !file.resize(newSize))
    return file.errorString();
  return ::fsync(file.handle()) == 0 ? QString() : qt_error_string(errno);
}

// Copies the contents of `file` to `backup`, down to the disk.
QString makeBackup(QFile& file, QTemporaryFile& backup) {
  if (!backup.open()) {
    // The folder takes no files; the one for temporary files does.
    backup.setFileTemplate(QDir::temp().filePath(QFileInfo(file.fileName()).fileName() + QStringLiteral(".XXXXXX")));
    if (!backup.open())
      return backup.errorString();
  }
  const QByteArray old = file.readAll();
  if (file.error() != QFile::NoError)
    return file.errorString();
  if (!writeAll(backup, {old.constData(), static_cast<std::size_t>(old.size())}) || !backup.flush())
    return backup.errorString();
  return ::fsync(backup.handle()) == 0 ? QString() : qt_error_string(errno);
}

QString restore(QFile& file, QTemporaryFile& backup) {
  if (!backup.seek(0))
    return backup.errorString();
  const QByteArray old = backup.readAll();
  return overwrite(file, {old.constData(), static_cast<std::size_t>(old.size())});
}

QString writeInPlace(const QString& path, std::string_view bytes) {
  QFile file(path);
  if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
    return file.errorString();
  QTemporaryFile backup(QFileInfo(path).canonicalFilePath() + QStringLiteral(".XXXXXX"));
  if (const QString reason = makeBackup(file, backup); !reason.isEmpty())
    return message("no backup can be made: %1").arg(reason);

  backup.setAutoRemove(false);
  QString reason = overwrite(file, bytes);
  if (!reason.isEmpty() && !restore(file, backup).isEmpty())
    return message("%1. The old contents are in %2").arg(reason, backup.fileName());
  backup.remove();
  return reason;
}

} // namespace

QString writeFile(const QString& path, std::string_view bytes) {
  struct stat status = {};
  if (::stat(QFile::encodeName(path).constData(), &status) != 0)
    return errno == ENOENT ? replaceFile(path, bytes) : qt_error_string(errno);
  if (!S_ISREG(status.st_mode))
    return message("it is no regular file");
  if (!mayWrite(path))
    return qt_error_string(errno);
  return mustStayInPlace(path, status) ? writeInPlace(path, bytes) : replaceFile(path, bytes);
}

} // namespace desktop
