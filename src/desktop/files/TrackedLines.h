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
// the one in which its start has come to lie. The document's own cursors mark both places, so that it may report the
// edits of a group as one.
//
// Undo and redo bring each line back to the number that it had in the state of the text to which they lead. A line that
// was not tracked then is followed through the sum of the step.
//
// Who is told of moves knows a line by its number alone, so lines that have come together stay together, also when undo
// or redo would part them: they go to the first of the places where they were. What is added to one line with one value
// again and again is kept as one: an edit takes time for each line that is tracked, however often it is.
//
// Each mark costs time at every single edit of a group. So only the first lines have some. Further ones are followed
// through what the document reports when an edit block ends: as exactly, if the block was at one place; if not, a line
// between its places may come to the first of them. Main thread only.
class TrackedLines : public QObject {
  Q_OBJECT

public:
  // Receives what one edit has moved, which is something.
  using Report = std::function<void(const std::vector<LineMove>& moves)>;

  // `document` must outlive the tracked lines. `report` must not edit the document. `mostMarked` is how many lines have
  // marks.
  TrackedLines(QTextDocument& document, Report report, int mostMarked = 1'000);
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
  // The number of a line in another state of the text, which the document's undo steps tell.
  struct Past {
    int steps;
    int number;
  };
  struct Line {
    int number;
    int data;
    int count;    // how often it was added, each time right after the other
    qint64 order; // of the last time among all that was ever added
    // The start and the place behind the first character, which is -1 for an empty last line. Where there are cursors,
    // they tell; elsewhere both are as the last edit block has left them.
    int start = 0;
    int second = 0;
    QTextCursor startMark = {};
    QTextCursor secondMark = {};
    std::optional<int> complete = {}; // the number after the last edit block; none inside the first one
    std::vector<Past> formers = {};   // where undo leads to, the nearest state last
    std::vector<Past> laters = {};    // where redo leads to, the nearest state last

    void forgetPast();
    bool isMarked() const { return !startMark.isNull(); }
  };
  using Lines = std::deque<Line>;

  // What an edit block was.
  enum class Turn { Edit, Undo, Redo, Anew };
  // Lines or places, the last included.
  struct Stretch {
    int first;
    int last;
  };
  struct EditBlock {
    Turn turn;
    int steps; // the document's undo steps after it
    Stretch changed;
  };

  // Tells any two states of the text apart between which nobody has settled: each edit adds steps of undo, or makes the
  // last one take or remove more characters.
  struct State {
    int steps;
    int characters;

    friend bool operator==(const State&, const State&) = default;
  };

  State state() const { return {document_.availableUndoSteps(), document_.characterCount()}; }
  void noteChange(int position, int removed, int added);
  void finishEdit();
  Turn turnOfLastBlock() const;
  Stretch changedLines() const;
  void moveLines(const EditBlock* block);
  int targetOf(Lines::iterator first, Lines::iterator next, const EditBlock& block);
  std::optional<int> recall(Line& line, const EditBlock& block) const;
  int targetInside(Lines::iterator first, Lines::iterator next, Lines::iterator& marked, int distant);
  int targetAway(Lines::iterator first, Lines::iterator next, int inserted) const;
  static const Line& markedOf(Lines::iterator first, Lines::iterator next);
  void mark(Line& line);
  void place(Line& line) const;
  int find(const Line& line) const;

  QTextDocument& document_;
  Report report_;
  Lines lines_;      // in the order of their numbers; of one number the last added is the last
  qint64 added_ = 0; // how many have ever been added
  int mostMarked_;
  int marked_ = 0;
  int steps_; // the document's undo steps after the last edit block
  State settled_;
  int settledLines_;                    // how many the text had then
  bool hasNewStep_ = false;             // of undo, since the last edit block
  std::optional<Stretch> changed_ = {}; // the places, in the text as it is, between which the last edit block was
};

} // namespace desktop
