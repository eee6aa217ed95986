// SPDX-License-Identifier: MIT
#include "desktop/files/SearchPath.h"

#include "desktop/files/FileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>
#include <string_view>

namespace desktop {

namespace {

constexpr qint64 mostBytes = 1 << 20; // of a file that somebody can have meant

const auto foldersKey = QLatin1StringView("folders");
const auto pathKey = QLatin1StringView("path");
const auto subfoldersKey = QLatin1StringView("subfolders");

QString message(const char* text) {
  return QCoreApplication::translate("SearchPath", text);
}

// What a file says. `damaged`: not all of it could be understood.
struct Contents {
  QList<SearchFolder> folders;
  bool damaged = false;
};

std::optional<SearchFolder> folderOf(const QJsonValue& value) {
  const QJsonValue path = value[pathKey];
  const QJsonValue subfolders = value[subfoldersKey];
  if (!path.isString() || !QDir::isAbsolutePath(path.toString()) || !(subfolders.isBool() || subfolders.isUndefined()))
    return std::nullopt;
  return SearchFolder{QDir::cleanPath(path.toString()), subfolders.toBool()};
}

Contents parse(const QByteArray& bytes) {
  const QJsonValue folders = QJsonDocument::fromJson(bytes)[foldersKey];
  Contents contents{{}, !folders.isArray()};
  for (const QJsonValue value : folders.toArray()) {
    if (const std::optional<SearchFolder> folder = folderOf(value))
      contents.folders.append(*folder);
    else
      contents.damaged = true;
  }
  return contents;
}

QByteArray format(const QList<SearchFolder>& folders) {
  QJsonArray array;
  for (const SearchFolder& folder : folders)
    array.append(QJsonObject{{pathKey, folder.path}, {subfoldersKey, folder.withSubfolders}});
  return QJsonDocument(QJsonObject{{foldersKey, array}}).toJson();
}

} // namespace

QString SearchPath::open(const QString& fileName) {
  fileName_.clear();
  folders_.clear();
  QFile file(fileName);
  if (!file.exists()) {
    fileName_ = fileName;
    return {};
  }
  if (!file.open(QIODevice::ReadOnly))
    return message("The search path in %1 could not be read: %2. Changes to it will not be kept.")
        .arg(fileName, file.errorString());
  const QByteArray bytes = file.read(mostBytes + 1);
  file.close();
  const Contents contents = bytes.size() > mostBytes ? Contents{{}, true} : parse(bytes);
  folders_ = contents.folders;
  fileName_ = fileName;
  return contents.damaged ? putAside(fileName) : QString();
}

QString SearchPath::putAside(const QString& fileName) {
  const QString aside = fileName + QStringLiteral(".damaged");
  QFile::remove(aside);
  if (!QFile::rename(fileName, aside)) {
    fileName_.clear();
    return message("The search path in %1 is damaged. Changes to it will not be kept.").arg(fileName);
  }
  const QString problem = folders_.isEmpty() ? QString() : write();
  return problem.isEmpty() ? message("The search path in %1 is damaged; it was renamed to %2.").arg(fileName, aside)
                           : problem;
}

QString SearchPath::setFolders(const QList<SearchFolder>& folders) {
  folders_ = folders;
  return write();
}

QString SearchPath::write() const {
  if (fileName_.isEmpty())
    return {};
  QDir().mkpath(QFileInfo(fileName_).absolutePath());
  const QByteArray bytes = format(folders_);
  const QString problem =
      writeFile(fileName_, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  return problem.isEmpty() ? QString() : message("The search path could not be kept: %1").arg(problem);
}

} // namespace desktop
