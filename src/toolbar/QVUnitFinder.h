// SPDX-License-Identifier: MIT
// Finding the source file of a unit by the unit's name.
#pragma once

#include "platform/ota/Services.h"

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace quorvane {

// Looks for NAME.pas, NAME.pp and NAME.dpr, in this order, in one folder after the other. Names are compared without
// case; where a folder has several such files, the one spelled like the unit comes first.
//
// Of a folder that is searched with its subfolders the listing is kept for the finder's life, since a tree of sources
// may be large; it is read again when a unit is not in it, or is not there any more. Hidden folders and symbolic links
// to folders are not entered, so there are no circles. A tree is read up to a number of folders, nearest first; what
// lies beyond is not found.
class TQVUnitFinder {
public:
  // Of a tree, this many folders are read at most.
  static constexpr int DefaultFolderLimit = 5000;

  explicit TQVUnitFinder(int folderLimit = DefaultFolderLimit) : folderLimit_(folderLimit) {}

  struct TResult {
    QString FileName;    // absolute; empty when the unit was not found
    QStringList Folders; // that were searched, in this order
  };

  // Looks beside `currentFile` if that is an absolute name, then along `path`.
  TResult Find(const QString& unitName, const QString& currentFile,
               const std::vector<platform::TOTASearchFolder>& path);

private:
  struct TListing {
    QString Folder;    // absolute
    QStringList Files; // Pascal sources, without their folder
  };
  using TTree = std::vector<TListing>; // the folder itself first

  QString FindInTree(const QString& root, const QString& unitName);
  TTree ReadTree(const QString& root) const;

  static TListing ReadFolder(const QString& folder);
  static QString FindInListing(const TListing& listing, const QString& unitName);
  static QString FindInListings(const TTree& tree, const QString& unitName);

  int folderLimit_;
  std::map<QString, TTree> trees_; // by the folder that was searched with its subfolders
};

} // namespace quorvane
