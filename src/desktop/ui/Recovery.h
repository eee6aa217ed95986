// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/RecoveryFolder.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <map>
#include <vector>

namespace desktop {

class Page;
class Workspace;

// Keeps the unsaved text of every page in a recovery file, so that no end of the program takes it away.
//
// A text that has been changed is written when an interval has passed, and not again before it is changed again; it is
// removed when it has been saved, undone or closed. Writing does not hold up typing: only a copy of the text is taken
// here, the rest is done by a thread. When the files cannot be written, a message says so once, and again only after it
// has worked in between. Main thread only.
class Recovery : public QObject {
  Q_OBJECT

public:
  // A text is on the disk at the latest so long after it has been changed, and the interval leaves time to write it.
  static constexpr std::chrono::seconds longestDelay{10};
  static constexpr std::chrono::milliseconds usualInterval{8'000};

  // Follows all pages of `workspace`, which must outlive it, and keeps their texts in `folder`.
  Recovery(Workspace& workspace, const QString& folder, std::chrono::milliseconds interval = usualInterval);
  // Leaves the files of all texts that are still unsaved; the next run will offer them.
  ~Recovery() override;

  // How long it takes until a changed text is written, from now on.
  void setInterval(std::chrono::milliseconds interval);

  // Asks in the top window whether to restore what was left behind by editors that did not end in order; apart from the
  // others for texts whose files were saved after they had been kept. Not now is an answer too: the files stay and are
  // offered at the next start. What equals its file is not offered.
  void offer();
  // Removes all that is kept, since the user wants none of it.
  void discard();

Q_SIGNALS:
  // The text of the file, as it was when the last interval ended, is on the disk.
  void kept(const QString& fileName);

private:
  // What is known of one page's text.
  struct Text {
    QString name;      // in the folder; empty while nothing is kept
    bool due = true;   // it is not kept as it is
    bool busy = false; // being written
  };

  void follow(Page* page);
  void noteChange(Page* page);
  void update(Page* page);
  void forget(Page* page);
  void writeAll();
  void write(Page* page, Text& text);
  void finish(const QString& name, const QString& problem);
  void askFor(const std::vector<OrphanedText>& orphans, const QString& question, const QString& restoring,
              const QString& discarding);
  void restore(const std::vector<OrphanedText>& orphans);
  // Returns why it cannot be done now, or an empty string.
  QString restore(const OrphanedText& orphan);
  Page* makePage(const RecoveredText& recovered);

  Workspace& workspace_;
  RecoveryFolder folder_;
  QTimer timer_{this};
  std::chrono::milliseconds interval_;
  std::map<Page*, Text> texts_; // of all pages
  bool failing_ = false;        // the last writing has failed, and the user knows
};

} // namespace desktop
