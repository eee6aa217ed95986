// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

namespace desktop {

class Workspace;

// The files that were opened or saved under a new name last, the latest first.
//
// They are kept in a JSON file, {"files": ["/home/me/a.pas"]}, that all running editors share: each adds its own files
// to what it finds there. A file that cannot be read or written is no reason to disturb anybody; the list is then that
// of this run. Main thread only.
class RecentFiles : public QObject {
  Q_OBJECT

public:
  static constexpr int most = 10;

  // Follows the pages of `workspace`, in memory only until open() is called.
  explicit RecentFiles(Workspace& workspace);
  ~RecentFiles() override;

  // Keeps the list in the file at `fileName` from now on; an empty name is no place. What was opened before does not
  // count: it was open last time.
  void open(const QString& fileName);

  // At most `most` absolute paths; the files need not exist any more. What other editors have added is among them.
  QStringList files();
  void clear();
  // The file at `path`, which has just been opened, was not opened by the user: it keeps its place in the list.
  void leaveOut(const QString& path) { added_.removeOne(path); }

private:
  void add(const QString& path);
  // Adds what is to be added to what the file holds now.
  void merge();
  void write() const;

  QString fileName_;
  QStringList files_;
  QStringList added_; // and not in the file yet, the latest first
  QTimer timer_;      // a start with many files writes once
};

} // namespace desktop
