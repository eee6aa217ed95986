// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include <QTextBlock>

#include <algorithm>
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

} // namespace

TrackedLines::TrackedLines(QTextDocument& document, Report report)
    : document_(document), report_(std::move(report)), steps_(document.availableUndoSteps()), settled_(state()) {
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
        last.formers.empty()) {
      ++last.count;
      last.order = order;
      return;
    }
  }
  Line& added = *lines_.insert(next, Line{line, data, 1, order, QTextCursor(&document_)});
  added.start.setKeepPositionOnInsert(true);
  added.complete = complete;
  place(added);
}

int TrackedLines::indexOf(int line) const {
  const auto next = std::ranges::upper_bound(lines_, line, {}, &Line::number);
  const auto index = static_cast<int>(next - lines_.begin()) - 1;
  return index >= 0 && lines_[static_cast<std::size_t>(index)].number == line ? index : -1;
}

void TrackedLines::remove(int index) {
  const auto removed = lines_.begin() + index;
  if (--removed->count == 0)
    lines_.erase(removed);
}

void TrackedLines::finishEdit() {
  settle();
  steps_ = document_.availableUndoSteps();
  for (Line& line : lines_)
    line.complete = line.number;
}

void TrackedLines::settle() {
  settled_ = state();
  std::vector<LineMove> moves;
  int highest = 0; // no line overtakes another
  bool haveMet = false;
  for (auto first = lines_.begin(); first != lines_.end();) {
    const int number = first->number;
    const auto next = std::find_if(first, lines_.end(), [number](const Line& line) { return line.number != number; });
    int target = std::numeric_limits<int>::max(); // those on one line stay together
    for (auto line = first; line != next; ++line)
      target = std::min(target, follow(*line, settled_.steps));
    haveMet |= first != lines_.begin() && highest >= target;
    highest = std::max(target, highest);

    std::set<int> reported;
    for (; first != next; ++first) {
      if (number != highest && reported.insert(first->data).second)
        moves.push_back({number, highest, first->data});
      first->number = highest;
      place(*first);
    }
  }
  if (haveMet)
    std::ranges::sort(lines_, {}, [](const Line& line) { return std::pair(line.number, line.order); });
  std::ranges::stable_sort(moves, isReportedBefore);
  if (!moves.empty())
    report_(moves);
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
