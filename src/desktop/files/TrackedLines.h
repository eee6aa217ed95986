// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTextCursor>
#include <QTextDocument>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace desktop {

// A tracked line that has moved. Lines are counted from 0.
struct LineMove {
  int oldLine;
  int newLine;
  int data;

  friend bool operator==(const LineMove&, const LineMove&) = default;
};

// Lines of one document that are followed through its edits.
//
// A tracked line is known by the place where it starts and by its first character, which is its line end when it is
// empty. What an edit puts in front of that character moves the line down if it ends with a line end, so that the
// character begins a line again; otherwise the line stays where its start is. When the character is gone the line is
// the one in which its start has come to lie, until the edit that took the character is undone. Since the document's
// own cursors mark both places, changes that it reports as one, as undo does, are followed exactly. Only redo of a
// group of edits sees their sum alone: a line of which one edit takes the first character then stays, though another
// edit of the group may have put lines in front of what was left.
//
// Who is told of moves knows a line by its number alone, so lines that have come together stay together. What is added
// to one line with one value again and again is kept as one: an edit takes time for each line that is tracked, however
// often it is. Main thread only.
class TrackedLines : public QObject {
  Q_OBJECT

public:
  // Receives what one edit has moved, which is something.
  using Report = std::function<void(const std::vector<LineMove>& moves)>;

  // `document` must outlive the tracked lines. `report` must not edit the document.
  TrackedLines(QTextDocument& document, Report report);
  ~TrackedLines() override;

  // Tracks line `line` once more. It is not tracked if there is no such line.
  void add(int line, int data);
  // An index of what was added last to the line whose number, as it was last reported, is `line`; -1 when there is
  // none. It holds until something is added, removed or moved.
  int indexOf(int line) const;
  // Takes back one add. `index` must be below size().
  void remove(int index);
  int size() const { return static_cast<int>(lines_.size()); }

  // Reports what has moved so far: first the lines that moved down, the last one first, then those that moved up, the
  // first one first; each value of a line once. The end of every edit does this; inside an edit block it may be asked
  // for.
  void settle();

private:
  // Where a line was before an edit that took its first character away.
  struct Former {
    int steps; // the document's undo steps then
    int number;
  };
  struct Line {
    int number;
    int data;
    int count;    // how often it was added, each time right after the other
    qint64 order; // of the last time among all that was ever added
    QTextCursor start;
    QTextCursor second = {};          // behind the first character; null for an empty last line
    std::optional<int> complete = {}; // the number after the last edit block; none inside the first one
    std::vector<Former> formers = {}; // the latest last
  };
  struct Found {
    int number;
    bool isWhole; // whether the line still begins with its start, and has its first character
  };

  // Tells any two states of the text apart between which nobody has settled: each edit adds steps of undo, or makes the
  // last one take or remove more characters.
  struct State {
    int steps;
    int characters;

    friend bool operator==(const State&, const State&) = default;
  };

  State state() const { return {document_.availableUndoSteps(), document_.characterCount()}; }
  void finishEdit();
  int follow(Line& line, int steps) const;
  void place(Line& line) const;
  Found find(const Line& line) const;

  QTextDocument& document_;
  Report report_;
  std::deque<Line> lines_; // in the order of their numbers; of one number the last added is the last
  qint64 added_ = 0;       // how many have ever been added
  int steps_;              // the document's undo steps after the last edit block
  State settled_;
};

} // namespace desktop
