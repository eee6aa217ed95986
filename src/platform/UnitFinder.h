// SPDX-License-Identifier: MIT
// Finding the source file of a unit by the unit's name. Hosts and add-ins find the same file.
#pragma once

#include "platform/Export.h"
#include "platform/ota/Services.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace platform {

// Looks for NAME.pas, NAME.pp and NAME.dpr, in this order, in one folder after the other. Names are compared without
// case; where a folder has several such files, the one spelled like the unit comes first.
//
// A folder that is searched with its subfolders is searched nearest first. Hidden folders and symbolic links to folders
// are not entered, so there are no circles. Nothing is remembered from one search to the next: a thousand folders are
// read in a few hundredths of a second, and what is found is what is there now.
class VIRELLE_PLATFORM TUnitFinder {
public:
  // Of a folder with its subfolders, this many folders are looked into at most.
  static constexpr int DefaultFolderLimit = 5000;

  explicit TUnitFinder(int folderLimit = DefaultFolderLimit) : FFolderLimit(folderLimit) {}

  struct TResult {
    QString FileName;    // absolute; empty when the unit was not found
    QStringList Folders; // that were searched, in this order
  };

  // Looks beside `currentFile` if that is an absolute name, then along `path`.
  TResult Find(const QString& unitName, const QString& currentFile, const std::vector<TOTASearchFolder>& path) const;

private:
  QString FindInTree(const QString& root, const QString& unitName) const;

  int FFolderLimit;
};

// What the user is told of a unit that was not found in `folders`.
VIRELLE_PLATFORM QString UnitNotFoundMessage(const QString& unitName, const QStringList& folders);

} // namespace platform
