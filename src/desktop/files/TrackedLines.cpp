// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include <QTextBlock>

#include <algorithm>
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

TrackedLines::TrackedLines(QTextDocument& document, Report report) : document_(document), report_(std::move(report)) {
  connect(&document_, &QTextDocument::contentsChanged, this, &TrackedLines::settle);
}

TrackedLines::~TrackedLines() = default;

void TrackedLines::add(int line, int data) {
  settle();
  if (line < 0 || line >= document_.blockCount())
    return;
  Line& added = lines_.emplace_back(Line{line, data, QTextCursor(&document_), QTextCursor()});
  added.start.setKeepPositionOnInsert(true);
  place(added);
}

int TrackedLines::indexOf(int line) const {
  const auto found = std::ranges::find(lines_, line, &Line::number);
  return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

void TrackedLines::remove(int index) {
  lines_.erase(lines_.begin() + index);
}

void TrackedLines::settle() {
  std::vector<Move> moves;
  for (Line& line : lines_) {
    const int now = lineNow(line);
    if (now != line.number)
      moves.push_back({std::exchange(line.number, now), now, line.data});
    place(line);
  }
  std::ranges::stable_sort(moves, isReportedBefore);
  for (const Move& move : moves)
    report_(move.from, move.to, move.data);
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

int TrackedLines::lineNow(const Line& line) const {
  const QTextBlock started = document_.findBlock(line.start.position());
  // The end of the text is behind everything that was put in front of it.
  const int first = (line.second.isNull() ? document_.characterCount() : line.second.position()) - 1;
  const QTextBlock continued = document_.findBlock(first);
  const bool isAlive = first >= line.start.position();
  const bool beginsLines = started.position() == line.start.position() && continued.position() == first;
  return isAlive && beginsLines ? continued.blockNumber() : started.blockNumber();
}

} // namespace desktop
