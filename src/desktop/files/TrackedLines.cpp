// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include <QTextBlock>

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <set>
#include <utility>

namespace desktop {

namespace {

bool isDown(const LineMove& move) {
  return move.newLine > move.oldLine;
}

// No line may be reported to a place that another is still to be moved from.
bool isReportedBefore(const LineMove& left, const LineMove& right) {
  if (isDown(left) != isDown(right))
    return isDown(left);
  return isDown(left) ? left.oldLine > right.oldLine : left.oldLine < right.oldLine;
}

// Drops the states that `isPassed` on the way to the one of `steps` undo steps, that one included, and returns the
// number of the line in it, if it is known.
template <class TPasts, class TPassed> std::optional<int> takenFrom(TPasts& pasts, int steps, TPassed isPassed) {
  std::optional<int> number;
  for (; !pasts.empty() && isPassed(pasts.back().steps, steps); pasts.pop_back()) {
    if (pasts.back().steps == steps)
      number = pasts.back().number;
  }
  return number;
}

} // namespace

void TrackedLines::Line::forgetPast() {
  formers.clear();
  laters.clear();
}

TrackedLines::TrackedLines(QTextDocument& document, Report report, int mostMarked)
    : document_(document), report_(std::move(report)), mostMarked_(mostMarked), steps_(document.availableUndoSteps()),
      settled_(state()), settledLines_(document.blockCount()) {
  connect(&document_, &QTextDocument::undoCommandAdded, this, [this] { hasNewStep_ = true; });
  connect(&document_, &QTextDocument::contentsChange, this, &TrackedLines::noteChange);
  connect(&document_, &QTextDocument::contentsChanged, this, &TrackedLines::finishEdit);
}

TrackedLines::~TrackedLines() = default;

void TrackedLines::add(int line, int data) {
  if (state() != settled_)
    settle();
  if (line < 0 || line >= document_.blockCount())
    return;
  const auto next = std::ranges::upper_bound(lines_, line, {}, &Line::number);
  const std::optional<int> complete = document_.availableUndoSteps() == steps_ ? std::optional(line) : std::nullopt;
  const qint64 order = added_++;
  if (next != lines_.begin()) {
    Line& last = *std::prev(next);
    if (last.number == line && last.data == data && last.order == order - 1 && last.complete == complete &&
        last.formers.empty() && last.laters.empty()) {
      ++last.count;
      last.order = order;
      return;
    }
  }
  Line& added = *lines_.insert(next, Line{line, data, 1, order});
  added.complete = complete;
  if (marked_ < mostMarked_ || !complete) // an open edit block will also report what it did before
    mark(added);
  place(added);
}

int TrackedLines::indexOf(int line) const {
  const auto next = std::ranges::upper_bound(lines_, line, {}, &Line::number);
  const auto index = static_cast<int>(next - lines_.begin()) - 1;
  return index >= 0 && lines_[static_cast<std::size_t>(index)].number == line ? index : -1;
}

void TrackedLines::remove(int index) {
  const auto removed = lines_.begin() + index;
  if (--removed->count > 0)
    return;
  marked_ -= removed->isMarked() ? 1 : 0;
  lines_.erase(removed);
}

void TrackedLines::settle() {
  moveLines(nullptr);
}

void TrackedLines::noteChange(int position, int removed, int added) {
  const Stretch all{0, std::numeric_limits<int>::max()};
  changed_ = changed_ ? all : Stretch{position, position + added};
  for (Line& line : lines_) {
    if (line.isMarked())
      continue;
    for (int* const each : {&line.start, &line.second})
      *each = *each > position + removed ? *each + added - removed : std::min(*each, position);
  }
}

void TrackedLines::finishEdit() {
  const EditBlock block{turnOfLastBlock(), document_.availableUndoSteps(), changedLines()};
  moveLines(&block);
  const bool hasFuture = document_.isRedoAvailable(); // also after an edit block in which nothing was edited
  for (Line& line : lines_) {
    if (block.turn == Turn::Anew)
      line.forgetPast();
    else if (!hasFuture)
      line.laters.clear();
    line.complete = line.number;
  }
  steps_ = block.steps;
  hasNewStep_ = false;
  changed_.reset();
}

// Only an edit makes a step of undo. Some edits go on with the last step, so that their number stays.
TrackedLines::Turn TrackedLines::turnOfLastBlock() const {
  const int steps = document_.availableUndoSteps();
  if (steps < steps_)
    return !hasNewStep_ && document_.isRedoAvailable() ? Turn::Undo : Turn::Anew;
  return hasNewStep_ || steps == steps_ ? Turn::Edit : Turn::Redo;
}

// All lines if it is not known where the last edit block was.
TrackedLines::Stretch TrackedLines::changedLines() const {
  const int end = document_.characterCount() - 1;
  const Stretch places = changed_.value_or(Stretch{0, end});
  return {document_.findBlock(std::min(places.first, end)).blockNumber(),
          document_.findBlock(std::min(places.last, end)).blockNumber()};
}

// Moves every line to where it is now, after the edit block `block` or inside one that is still open. What is not in
// the changed stretch of the text needs no look: it moves with its neighbours.
void TrackedLines::moveLines(const EditBlock* block) {
  settled_ = state();
  const int inserted = document_.blockCount() - std::exchange(settledLines_, document_.blockCount());
  const Stretch changed = block ? block->changed : Stretch{0, document_.blockCount() - 1};
  std::vector<LineMove> moves;
  int highest = 0; // no line overtakes another
  int above = 0;   // the number that the line above had
  auto marked = lines_.begin();
  bool haveMet = false;
  for (auto first = lines_.begin(); first != lines_.end();) {
    const int number = first->number;
    const auto next = std::find_if(first, lines_.end(), [number](const Line& line) { return line.number != number; });
    const bool isNear = number >= changed.first && number <= changed.last - inserted;
    const int target = block == nullptr ? targetInside(first, next, marked, highest + number - above)
                       : isNear         ? targetOf(first, next, *block)
                                        : targetAway(first, next, number < changed.first ? 0 : inserted);
    haveMet |= first != lines_.begin() && highest >= target;
    highest = std::max(target, highest);
    above = number;

    std::set<int> reported;
    for (; first != next; ++first) {
      if (highest != target)
        first->forgetPast();
      if (number != highest && reported.insert(first->data).second)
        moves.push_back({number, highest, first->data});
      first->number = highest;
      if (first->isMarked() ? isNear || highest != target : block != nullptr)
        place(*first);
    }
  }
  if (haveMet)
    std::ranges::sort(lines_, {}, [](const Line& line) { return std::pair(line.number, line.order); });
  std::ranges::stable_sort(moves, isReportedBefore);
  if (!moves.empty())
    report_(moves);
}

// Where the lines of one number, from `first` up to `next`, go together: the first of the places where some of them
// were in this state of the text, or else where their marks have come to lie. One that was elsewhere has another past.
int TrackedLines::targetOf(Lines::iterator first, Lines::iterator next, const EditBlock& block) {
  const int found = find(markedOf(first, next));
  std::vector<std::optional<int>> recalled;
  std::ranges::transform(first, next, std::back_inserter(recalled), [&](Line& line) { return recall(line, block); });
  std::optional<int> earliest;
  for (const std::optional<int>& number : recalled) {
    if (number)
      earliest = std::min(earliest.value_or(*number), *number);
  }
  const int target = std::min(earliest.value_or(found), document_.blockCount() - 1);
  for (auto line = first; line != next; ++line) {
    if (recalled[static_cast<std::size_t>(line - first)].value_or(found) != target)
      line->forgetPast();
  }
  return target;
}

// Where lines of one number are inside an edit block. Those without marks are expected at `distant`, as far from the
// line above as they were, unless the next marked one, to which `marked` is brought, is in their way; the end of the
// block tells exactly.
int TrackedLines::targetInside(Lines::iterator first, Lines::iterator next, Lines::iterator& marked, int distant) {
  marked = std::find_if(std::max(first, marked), lines_.end(), [](const Line& line) { return line.isMarked(); });
  const int limit = marked == lines_.end() ? document_.blockCount() - 1 : find(*marked);
  return marked < next ? limit : std::min(distant, limit);
}

// Where lines of one number are that an edit block has not touched. The number of those without marks may have been
// wrong while it was open.
int TrackedLines::targetAway(Lines::iterator first, Lines::iterator next, int inserted) const {
  const Line& line = markedOf(first, next);
  return line.isMarked() ? line.number + inserted : find(line);
}

// One of the lines from `first` up to `next` that is marked, if there is any.
const TrackedLines::Line& TrackedLines::markedOf(Lines::iterator first, Lines::iterator next) {
  const auto marked = std::find_if(first, next, [](const Line& line) { return line.isMarked(); });
  return marked == next ? *first : *marked;
}

// The number that `line` had in the state of the text to which undo or redo has led. Keeps the number from before the
// block for the way back.
std::optional<int> TrackedLines::recall(Line& line, const EditBlock& block) const {
  const bool isUndo = block.turn == Turn::Undo;
  if (line.complete && block.steps != steps_)
    (isUndo ? line.laters : line.formers).push_back({steps_, *line.complete});
  if (isUndo)
    return takenFrom(line.formers, block.steps, std::greater_equal());
  if (block.turn == Turn::Redo)
    return takenFrom(line.laters, block.steps, std::less_equal());
  return std::nullopt;
}

void TrackedLines::mark(Line& line) {
  ++marked_;
  for (QTextCursor* const cursor : {&line.startMark, &line.secondMark}) {
    *cursor = QTextCursor(&document_);
    cursor->setKeepPositionOnInsert(true);
  }
}

// Settles the start of the line and its first character.
void TrackedLines::place(Line& line) const {
  const QTextBlock block = document_.findBlockByNumber(line.number);
  const bool isEmptyLast = block.length() == 1 && !block.next().isValid();
  line.start = block.position();
  line.second = isEmptyLast ? -1 : line.start + 1;
  if (line.isMarked()) {
    line.startMark.setPosition(line.start);
    line.secondMark.setPosition(std::max(line.second, line.start));
  }
}

int TrackedLines::find(const Line& line) const {
  const int end = document_.characterCount() - 1;
  const int start = std::min(line.isMarked() ? line.startMark.position() : line.start, end);
  const int second = line.isMarked() ? line.secondMark.position() : line.second;
  const QTextBlock started = document_.findBlock(start);
  // The end of the text is behind everything that was put in front of it.
  const int first = line.second < 0 ? end : std::min(second - 1, end);
  const QTextBlock continued = document_.findBlock(first);
  const bool isWhole = first >= start && started.position() == start;
  return (isWhole && continued.position() == first ? continued : started).blockNumber();
}

} // namespace desktop
