// SPDX-License-Identifier: MIT
#include "toolbar/QVUnitFinder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace quorvane {

namespace {

const std::array kExtensions = {QStringLiteral(".pas"), QStringLiteral(".pp"), QStringLiteral(".dpr")};

} // namespace

TQVUnitFinder::TResult TQVUnitFinder::Find(const QString& unitName, const QString& currentFile,
                                           const std::vector<platform::TOTASearchFolder>& path) {
  TResult result;
  const QFileInfo current(currentFile);
  if (current.isAbsolute()) {
    result.Folders.append(current.absolutePath());
    result.FileName = FindInListing(ReadFolder(current.absolutePath()), unitName);
  }
  for (const platform::TOTASearchFolder& folder : path) {
    if (!result.FileName.isEmpty())
      break;
    const QString root = QDir::cleanPath(folder.Path);
    if (folder.WithSubfolders || !result.Folders.contains(root))
      result.FileName = folder.WithSubfolders ? FindInTree(root, unitName) : FindInListing(ReadFolder(root), unitName);
    if (!result.Folders.contains(root))
      result.Folders.append(root);
  }
  return result;
}

QString TQVUnitFinder::FindInTree(const QString& root, const QString& unitName) {
  const auto known = trees_.find(root);
  if (known != trees_.end()) {
    QString found = FindInListings(known->second, unitName);
    if (!found.isEmpty() && QFileInfo::exists(found))
      return found;
  }
  return FindInListings(trees_[root] = ReadTree(root), unitName);
}

TQVUnitFinder::TTree TQVUnitFinder::ReadTree(const QString& root) const {
  TTree tree;
  QStringList waiting{root};
  // Breadth first, so that what is near to the root is not lost to the limit.
  for (qsizetype next = 0; next < waiting.size() && next < folderLimit_; ++next) {
    const QString folder = waiting.at(next);
    tree.push_back(ReadFolder(folder));
    const QDir directory(folder);
    for (const QString& name : directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name))
      waiting.append(directory.filePath(name));
  }
  return tree;
}

TQVUnitFinder::TListing TQVUnitFinder::ReadFolder(const QString& folder) {
  TListing listing{folder, {}};
  for (QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
    if (std::ranges::any_of(kExtensions,
                            [&](const QString& extension) { return name.endsWith(extension, Qt::CaseInsensitive); }))
      listing.Files.append(std::move(name));
  }
  return listing;
}

QString TQVUnitFinder::FindInListing(const TListing& listing, const QString& unitName) {
  for (const QString& extension : kExtensions) {
    const QString wanted = unitName + extension;
    const auto matches = [&](Qt::CaseSensitivity sensitivity) {
      return std::ranges::find_if(listing.Files,
                                  [&](const QString& name) { return name.compare(wanted, sensitivity) == 0; });
    };
    auto found = matches(Qt::CaseSensitive);
    if (found == listing.Files.end())
      found = matches(Qt::CaseInsensitive);
    if (found != listing.Files.end())
      return QDir(listing.Folder).filePath(*found);
  }
  return {};
}

QString TQVUnitFinder::FindInListings(const TTree& tree, const QString& unitName) {
  for (const TListing& listing : tree) {
    if (QString found = FindInListing(listing, unitName); !found.isEmpty())
      return found;
  }
  return {};
}

} // namespace quorvane
