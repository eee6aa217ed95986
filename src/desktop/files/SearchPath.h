// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace desktop {

// A folder in which the user keeps units.
struct SearchFolder {
  QString path;                // absolute; the folder need not exist
  bool withSubfolders = false; // the folders below it are meant too, at any depth

  friend bool operator==(const SearchFolder&, const SearchFolder&) = default;
};

// The folders in which units are looked for, in this order, kept in a file of the user's. The file is JSON:
//
//   {"folders": [{"path": "/home/me/lib", "subfolders": true}, {"path": "/usr/share/units"}]}
//
// A file that is damaged is renamed to end in ".damaged", and what could be understood of it is used. Main thread only.
class SearchPath {
public:
  // Reads the file at `fileName`, which need not exist, and keeps later changes there; until then the list is kept in
  // memory only. Returns a sentence for the user if something was wrong with the file, else an empty string. A file
  // that cannot be read is left alone: changes are then not kept.
  QString open(const QString& fileName);

  const QList<SearchFolder>& folders() const { return folders_; }
  // Replaces the list. Returns why it could not be written, for the user, or an empty string; the list holds for this
  // run in either case.
  QString setFolders(const QList<SearchFolder>& folders);

private:
  QString putAside(const QString& fileName);
  QString write() const;

  QString fileName_; // empty while nothing is to be written
  QList<SearchFolder> folders_;
};

} // namespace desktop
