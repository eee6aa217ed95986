// SPDX-License-Identifier: MIT
#include "platform/SafeFile.h"

#include "platform/FileLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>

namespace platform {
namespace {

constexpr qint64 mostBytes = 64LL << 20;
constexpr std::chrono::seconds longestWait{5};

[[noreturn]] void Fail(const QString& reason) {
  throw EFileError(reason.toStdString());
}

// The file's bytes, none if there is no file. `mode` says what the user must have the right to. Raises
// EFileError.
QByteArray BytesOf(const QString& path, QIODevice::OpenMode mode) {
  const QFileInfo info(path);
  if (path.isEmpty() || !info.exists())
    return {};
  if (!info.isFile())
    Fail(QStringLiteral("it is no regular file"));
  QFile file(path);
  if (!file.open(mode | QIODevice::ExistingOnly))
    Fail(file.errorString());
  QByteArray bytes = file.read(mostBytes + 1);
  if (file.error() != QFile::NoError)
    Fail(file.errorString());
  if (bytes.size() > mostBytes)
    Fail(QStringLiteral("it is larger than %1 MB").arg(mostBytes >> 20));
  return bytes;
}

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// A file that goes unless it is kept.
class TNewFile {
public:
  // Makes the file, in place of one that was left behind.
  explicit TNewFile(const QString& path) : file_(path) {
    QFile::remove(path);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
      Fail(file_.errorString());
  }
  ~TNewFile() {
    if (!kept_)
      file_.remove();
  }
  TNewFile(const TNewFile&) = delete;
  TNewFile& operator=(const TNewFile&) = delete;

  // Down to the disk.
  void Write(std::string_view bytes) {
    // A disk that fills up takes a part at first; only the next attempt tells the reason.
    while (!bytes.empty()) {
      const qint64 written = file_.write(bytes.data(), static_cast<qint64>(bytes.size()));
      if (written <= 0)
        Fail(file_.errorString());
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    if (::fsync(file_.handle()) != 0)
      Fail(qt_error_string(errno));
  }
  void SetPermissions(QFile::Permissions permissions) { file_.setPermissions(permissions); }
  // Gives it the name of `path`, whose file goes.
  void Rename(const QString& path) {
    if (::rename(QFile::encodeName(file_.fileName()).constData(), QFile::encodeName(path).constData()) != 0)
      Fail(qt_error_string(errno));
    kept_ = true;
  }

private:
  QFile file_;
  bool kept_ = false;
};

} // namespace

EFileError::~EFileError() = default;

QString TSafeFile::Folder() const {
  return QFileInfo(path_).absolutePath();
}

std::string TSafeFile::Read() const {
  return BytesOf(path_, QIODevice::ReadOnly).toStdString();
}

void TSafeFile::MakeFolder() const {
  if (!QDir().mkpath(Folder()))
    Fail(QStringLiteral("the folder %1 cannot be made").arg(Folder()));
}

void TSafeFile::Change(const TChange& change, const TBeforeReplacing& beforeReplacing) const {
  const TFileLock lock(path_ + QStringLiteral(".lock"), longestWait);
  const QByteArray bytes = BytesOf(path_, QIODevice::ReadWrite);
  if (const std::string newBytes = change(View(bytes)); newBytes != View(bytes))
    Replace(newBytes, beforeReplacing);
}

void TSafeFile::Replace(std::string_view bytes, const TBeforeReplacing& beforeReplacing) const {
  const QFileInfo old(path_);
  // A link stays one: the file that it leads to is replaced.
  const QString path = old.exists() ? old.canonicalFilePath() : path_;
  TNewFile file(path + QStringLiteral(".new"));
  file.Write(bytes);
  if (old.exists())
    file.SetPermissions(old.permissions());
  if (beforeReplacing)
    beforeReplacing(path);
  file.Rename(path);
}

} // namespace platform
