// SPDX-License-Identifier: MIT
#include "platform/UnitFinder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace platform {

namespace {

const std::array kExtensions = {QStringLiteral(".pas"), QStringLiteral(".pp"), QStringLiteral(".dpr")};

bool IsNamed(const QFileInfo& entry, const QString& name, Qt::CaseSensitivity sensitivity) {
  return entry.isFile() && entry.fileName().compare(name, sensitivity) == 0;
}

// The unit's file among the entries of one folder; empty when it is not there.
QString FindAmong(const QFileInfoList& entries, const QString& unitName) {
  for (const QString& extension : kExtensions) {
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
      const auto found = std::ranges::find_if(
          entries, [&](const QFileInfo& entry) { return IsNamed(entry, unitName + extension, sensitivity); });
      if (found != entries.end())
        return found->filePath();
    }
  }
  return {};
}

QString FindInFolder(const QString& folder, const QString& unitName) {
  return FindAmong(QDir(folder).entryInfoList(QDir::Files, QDir::Name), unitName);
}

} // namespace

TUnitFinder::TResult TUnitFinder::Find(const QString& unitName, const QString& currentFile,
                                       const std::vector<TOTASearchFolder>& path) const {
  TResult result;
  const QFileInfo current(currentFile);
  if (current.isAbsolute()) {
    result.Folders.append(current.absolutePath());
    result.FileName = FindInFolder(current.absolutePath(), unitName);
  }
  for (const TOTASearchFolder& folder : path) {
    if (!result.FileName.isEmpty())
      break;
    const QString root = QDir::cleanPath(folder.Path);
    if (folder.WithSubfolders || !result.Folders.contains(root))
      result.FileName = folder.WithSubfolders ? FindInTree(root, unitName) : FindInFolder(root, unitName);
    if (!result.Folders.contains(root))
      result.Folders.append(root);
  }
  return result;
}

// Breadth first, so that what is near to the root is found first and not lost to the limit.
QString TUnitFinder::FindInTree(const QString& root, const QString& unitName) const {
  QStringList folders{root};
  for (qsizetype next = 0; next < folders.size() && next < FFolderLimit; ++next) {
    const QFileInfoList entries =
        QDir(folders.at(next)).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (QString found = FindAmong(entries, unitName); !found.isEmpty())
      return found;
    for (const QFileInfo& entry : entries) {
      if (entry.isDir() && !entry.isSymLink())
        folders.append(entry.filePath());
    }
  }
  return {};
}

QString UnitNotFoundMessage(const QString& unitName, const QStringList& folders) {
  return folders.isEmpty()
             ? QStringLiteral("Unit %1 was not found: there is no folder to search.").arg(unitName)
             : QStringLiteral("Unit %1 was not found. Folders searched: %2").arg(unitName, folders.join(u", "));
}

} // namespace platform
