// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/RecoveryFile.h"
#include "desktop/files/TaskQueue.h"
#include "desktop/files/TextSnapshot.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace desktop {

// A recovery file that an editor has left behind which did not end in order. While one of these lives, no other editor
// takes the files of the same run.
class OrphanedText {
public:
  const RecoveryNote& note() const { return note_; }
  // The whole of it; nothing if it cannot be read any more, or if there is not enough memory.
  std::optional<RecoveredText> read() const;
  // Removes the file.
  void discard() const;

private:
  friend class RecoveryFolder;
  class Run;

  std::shared_ptr<Run> run_;
  QString path_;
  RecoveryNote note_;
};

// The folder of the recovery files of all running editors, and of those that were killed.
//
// The files of one run are called "RUN-1.recovery", "RUN-2.recovery" and so on. While there are any, the editor holds a
// lock on "RUN.lock"; the system takes it back from a process that ended in whatever way, so files whose lock can be
// had are nobody's. A name is never used for two runs, and a run that has got rid of its files begins with a new name.
//
// Files are written and removed by a thread of the folder's own, in the order of the calls, each in one step. Only the
// user may read them. Main thread only.
class RecoveryFolder : public QObject {
  Q_OBJECT

public:
  // A folder at `path`, made when it is first needed. An empty path is no place: every writing fails.
  explicit RecoveryFolder(QString path);
  // Waits for the thread. Files that were not removed stay, and are orphans from then on.
  ~RecoveryFolder() override;

  // A name for one more text, to be passed to the others.
  QString newName();
  // Writes the text kept under `name` in place of what was kept of it before; written() follows.
  void write(const QString& name, const RecoveryNote& note, const TextSnapshot& text);
  // Removes what is kept under `name`, if anything is.
  void remove(const QString& name);

  // What ended editors have left behind. Files that hold nothing of use are put aside.
  std::vector<OrphanedText> takeOrphans() const;
  // Keeps what an orphan holds under `name`, as if it had been written. False when that is not possible; the orphan is
  // then as before.
  bool adopt(const OrphanedText& orphan, const QString& name);

Q_SIGNALS:
  // What was kept last under `name` is on the disk, or could not be written for `problem`, which is for the user.
  void written(const QString& name, const QString& problem);

private:
  using Run = OrphanedText::Run;

  QString beginRun();
  QString pathOf(const QString& name) const;
  void removeOldLocks() const;
  void takeFilesOf(const QString& prefix, std::vector<OrphanedText>& orphans) const;

  QString path_;
  int lastNumber_ = 0;
  std::shared_ptr<Run> run_; // null while there are no files
  QSet<QString> names_;      // of the files that there are, or will be when the thread is done
  TaskQueue tasks_;
};

} // namespace desktop
