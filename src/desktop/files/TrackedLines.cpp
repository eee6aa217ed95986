// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include <QTextBlock>

#include <algorithm>
#include <map>
#include <utility>

namespace desktop {

namespace {

struct Move {
  int from;
  int to;
  int data;

  bool isDown() const { return to > from; }
};

// No line may be reported to a place that another is still to be moved from.
bool isReportedBefore(const Move& left, const Move& right) {
  if (left.isDown() != right.isDown())
    return left.isDown();
  return left.isDown() ? left.from > right.from : left.from < right.from;
}

} // namespace

TrackedLines::TrackedLines(QTextDocument& document, Report report)
    : document_(document), report_(std::move(report)), steps_(document.availableUndoSteps()) {
  connect(&document_, &QTextDocument::contentsChanged, this, &TrackedLines::finishEdit);
}

TrackedLines::~TrackedLines() = default;

void TrackedLines::add(int line, int data) {
  settle();
  if (line < 0 || line >= document_.blockCount())
    return;
  Line& added = lines_.emplace_back(Line{line, data, QTextCursor(&document_)});
  added.start.setKeepPositionOnInsert(true);
  place(added);
  if (document_.availableUndoSteps() == steps_)
    added.complete = line;
}

int TrackedLines::indexOf(int line) const {
  const auto found = std::ranges::find(lines_, line, &Line::number);
  return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

void TrackedLines::remove(int index) {
  lines_.erase(lines_.begin() + index);
}

void TrackedLines::finishEdit() {
  settle();
  steps_ = document_.availableUndoSteps();
  for (Line& line : lines_)
    line.complete = line.number;
}

void TrackedLines::settle() {
  const int steps = document_.availableUndoSteps();
  std::map<int, int> targets; // by the number so far
  for (Line& line : lines_) {
    const int target = follow(line, steps);
    const auto [known, isNew] = targets.emplace(line.number, target);
    if (!isNew)
      known->second = std::min(known->second, target);
  }
  int highest = 0; // no line overtakes another
  for (auto& [number, target] : targets)
    highest = target = std::max(target, highest);

  std::vector<Move> moves;
  for (Line& line : lines_) {
    const int target = targets.at(line.number);
    if (target != line.number)
      moves.push_back({std::exchange(line.number, target), target, line.data});
    place(line);
  }
  std::ranges::stable_sort(moves, isReportedBefore);
  for (const Move& move : moves)
    report_(move.from, move.to, move.data);
}

// The number that `line` has got. When edits have been undone it is where it was before them, if it was lost by them.
int TrackedLines::follow(Line& line, int steps) const {
  const Found found = find(line);
  const bool isKept = !line.formers.empty() && line.formers.back().steps == steps_; // lost in this very block
  if (!found.isWhole && steps > steps_ && line.complete && !isKept)
    line.formers.push_back({steps_, *line.complete});
  int number = found.number;
  for (; !line.formers.empty() && line.formers.back().steps >= steps; line.formers.pop_back())
    number = std::min(line.formers.back().number, document_.blockCount() - 1);
  return number;
}

// Marks the start of the line and its first character.
void TrackedLines::place(Line& line) const {
  const QTextBlock block = document_.findBlockByNumber(line.number);
  const int start = block.position();
  line.start.setPosition(start);
  if (block.length() == 1 && !block.next().isValid()) {
    line.second = QTextCursor();
    return;
  }
  if (line.second.isNull()) {
    line.second = QTextCursor(&document_);
    line.second.setKeepPositionOnInsert(true);
  }
  line.second.setPosition(start + 1);
}

TrackedLines::Found TrackedLines::find(const Line& line) const {
  const QTextBlock started = document_.findBlock(line.start.position());
  // The end of the text is behind everything that was put in front of it.
  const int first = (line.second.isNull() ? document_.characterCount() : line.second.position()) - 1;
  const QTextBlock continued = document_.findBlock(first);
  const bool isWhole = first >= line.start.position() && started.position() == line.start.position();
  return {isWhole && continued.position() == first ? continued.blockNumber() : started.blockNumber(), isWhole};
}

} // namespace desktop
