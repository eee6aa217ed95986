// SPDX-License-Identifier: MIT
#include "platform/SafeFile.h"

#include "platform/FileLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

namespace platform {
namespace {

constexpr qint64 mostBytes = 64LL << 20;
constexpr std::chrono::seconds longestWait{5};
constexpr int mostLinks = 40; // in a row, as the system has it

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

// The file that `path` leads to, `path` itself if that is no link; it need not exist. Raises EFileError.
QString TargetOf(const QString& path) {
  std::filesystem::path target = QFile::encodeName(path).toStdString();
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(target, error); ++links) {
    if (links == mostLinks)
      Fail(qt_error_string(ELOOP));
    const std::filesystem::path next = std::filesystem::read_symlink(target, error);
    if (error)
      Fail(QString::fromStdString(error.message()));
    target = target.parent_path() / next;
  }
  return QFile::decodeName(target.c_str());
}

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// A file that goes unless it is kept.
class TNewFile {
public:
  // Makes the file, in place of one that was left behind. From the first moment it has no more than `permissions`; a
  // file without a predecessor has the usual ones.
  TNewFile(const QString& path, std::optional<QFile::Permissions> permissions) : file_(path) {
    QFile::remove(path);
    constexpr QIODevice::OpenMode mode = QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered;
    if (!(permissions ? file_.open(mode, *permissions) : file_.open(mode)))
      Fail(file_.errorString());
  }
  ~TNewFile() {
    if (!kept_)
      file_.remove();
  }
  TNewFile(const TNewFile&) = delete;
  TNewFile& operator=(const TNewFile&) = delete;

  // Gives it also those permissions that the system leaves off new files.
  void SetPermissions(QFile::Permissions permissions) {
    if (!file_.setPermissions(permissions))
      Fail(file_.errorString());
  }
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

// Replaces the file at `path`, no link.
void Replace(const QString& path, std::string_view bytes, const TSafeFile::TBeforeReplacing& beforeReplacing) {
  const QFileInfo old(path);
  const auto permissions = old.exists() ? std::optional(old.permissions()) : std::nullopt;
  TNewFile file(path + QStringLiteral(".new"), permissions);
  if (permissions)
    file.SetPermissions(*permissions);
  file.Write(bytes);
  if (beforeReplacing)
    beforeReplacing(path);
  file.Rename(path);
}

} // namespace

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
  const QString path = TargetOf(path_);
  const TFileLock lock(path + QStringLiteral(".lock"), longestWait);
  const QByteArray bytes = BytesOf(path, QIODevice::ReadWrite);
  if (const std::string newBytes = change(View(bytes)); newBytes != View(bytes))
    Replace(path, newBytes, beforeReplacing);
}

} // namespace platform
