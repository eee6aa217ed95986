// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTextDocument>

#include <limits>
#include <optional>

namespace desktop {

// Which lines of a document have been edited, for those who keep something for each line.
//
// It counts how many lines at the start and at the end of the text have stayed as they were. That is told only when
// every edit has been heard of: one that was not (signals blocked, or made while another was being reported) leaves
// nothing to rely on. For the thread of the document.
class EditedLines : public QObject {
  Q_OBJECT

public:
  // Lines that are as they were, at the start and at the end of the text. They may overlap.
  struct Kept {
    int first = allLines;
    int last = allLines;

    bool areAll() const { return first == allLines; }
  };
  static constexpr int allLines = std::numeric_limits<int>::max();

  // Listens to `document`, which must outlive it.
  explicit EditedLines(const QTextDocument& document);

  // False in the midst of an edit block, whose changes are reported when it ends.
  bool isSettled() const { return document_.revision() == settledRevision_; }
  // What has stayed since the last call, or nothing if that is not known. To be called when it is settled.
  std::optional<Kept> take();

Q_SIGNALS:
  // An edit has ended, and has been taken into account.
  void settled();

private:
  void noteChange(int position, int removed, int added);
  void settle();

  const QTextDocument& document_;
  std::optional<Kept> kept_ = Kept();
  int settledRevision_;       // the document's revision when its last edit block ended
  int reportedRevision_ = -1; // the one whose change was heard of last
  int heardCharacters_;       // the document's size by the changes heard of
};

} // namespace desktop
