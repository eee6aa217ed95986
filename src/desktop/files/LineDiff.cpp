// SPDX-License-Identifier: MIT
#include "desktop/files/LineDiff.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace desktop {

namespace {

// How often a stretch between lines that are held in place is searched for further ones.
constexpr int deepest = 12;

using Numbers = std::vector<int>; // a number for each line; equal lines have equal ones

// A line that occurs once in both texts.
struct Anchor {
  int before;
  int after;
};

struct Stretch {
  LineChange range;
  int depth;
};

class Comparison {
public:
  Comparison(Numbers before, Numbers after, std::size_t different)
      : before_(std::move(before)), after_(std::move(after)), counts_(different) {}

  std::vector<LineChange> changes() {
    std::vector<Stretch> open = {{{0, static_cast<int>(before_.size()), 0, static_cast<int>(after_.size())}, 0}};
    while (!open.empty()) {
      const Stretch stretch{trimmed(open.back().range), open.back().depth};
      open.pop_back();
      split(stretch, open);
    }
    std::ranges::sort(changes_, {}, [](const LineChange& change) { return change.oldBegin + change.newBegin; });
    return std::move(changes_);
  }

private:
  struct Count {
    int before = 0;
    int after = 0;
    int place = 0; // in the text before
  };

  LineChange trimmed(LineChange range) const {
    while (range.oldBegin < range.oldEnd && range.newBegin < range.newEnd &&
           before_[at(range.oldBegin)] == after_[at(range.newBegin)]) {
      ++range.oldBegin;
      ++range.newBegin;
    }
    while (range.oldBegin < range.oldEnd && range.newBegin < range.newEnd &&
           before_[at(range.oldEnd - 1)] == after_[at(range.newEnd - 1)]) {
      --range.oldEnd;
      --range.newEnd;
    }
    return range;
  }

  void split(const Stretch& stretch, std::vector<Stretch>& open) {
    const LineChange& range = stretch.range;
    if (range.oldBegin == range.oldEnd && range.newBegin == range.newEnd)
      return;
    const std::vector<Anchor> anchors = stretch.depth < deepest ? inOrder(anchorsOf(range)) : std::vector<Anchor>();
    if (anchors.empty()) {
      changes_.push_back(range);
      return;
    }
    LineChange next{range.oldBegin, 0, range.newBegin, 0};
    for (const Anchor& anchor : anchors) {
      next.oldEnd = anchor.before;
      next.newEnd = anchor.after;
      open.push_back({next, stretch.depth + 1});
      next = {anchor.before + 1, 0, anchor.after + 1, 0};
    }
    next.oldEnd = range.oldEnd;
    next.newEnd = range.newEnd;
    open.push_back({next, stretch.depth + 1});
  }

  // In the order of the text after.
  std::vector<Anchor> anchorsOf(const LineChange& range) {
    for (int line = range.oldBegin; line < range.oldEnd; ++line) {
      Count& count = counts_[at(before_[at(line)])];
      ++count.before;
      count.place = line;
    }
    for (int line = range.newBegin; line < range.newEnd; ++line)
      ++counts_[at(after_[at(line)])].after;
    std::vector<Anchor> anchors;
    for (int line = range.newBegin; line < range.newEnd; ++line) {
      const Count& count = counts_[at(after_[at(line)])];
      if (count.before == 1 && count.after == 1)
        anchors.push_back({count.place, line});
    }
    for (int line = range.oldBegin; line < range.oldEnd; ++line)
      counts_[at(before_[at(line)])] = {};
    for (int line = range.newBegin; line < range.newEnd; ++line)
      counts_[at(after_[at(line)])] = {};
    return anchors;
  }

  // As many of `anchors` as can be had without one overtaking another.
  static std::vector<Anchor> inOrder(const std::vector<Anchor>& anchors) {
    std::vector<std::size_t> ends;                     // of the best row of each length
    std::vector<std::size_t> previous(anchors.size()); // in its row
    for (std::size_t i = 0; i < anchors.size(); ++i) {
      const auto place = std::ranges::lower_bound(ends, anchors[i].before, {},
                                                  [&anchors](std::size_t end) { return anchors[end].before; });
      previous[i] = place == ends.begin() ? i : *(place - 1);
      if (place == ends.end())
        ends.push_back(i);
      else
        *place = i;
    }
    std::vector<Anchor> row(ends.size());
    std::size_t last = ends.empty() ? 0 : ends.back();
    for (auto slot = row.rbegin(); slot != row.rend(); ++slot) {
      *slot = anchors[last];
      last = previous[last];
    }
    return row;
  }

  static std::size_t at(int index) { return static_cast<std::size_t>(index); }

  Numbers before_;
  Numbers after_;
  std::vector<Count> counts_; // of each number; all zero between two searches
  std::vector<LineChange> changes_;
};

} // namespace

// What most changes leave alone is not worth a number for each line.
std::vector<LineChange> lineChanges(const std::vector<std::u16string_view>& before,
                                    const std::vector<std::u16string_view>& after) {
  const auto head = std::ranges::mismatch(before, after).in1 - before.begin();
  const auto tail =
      std::ranges::mismatch(before.rbegin(), before.rend() - head, after.rbegin(), after.rend() - head).in1 -
      before.rbegin();
  std::unordered_map<std::u16string_view, int> known;
  const auto numbersOf = [&known, head, tail](const std::vector<std::u16string_view>& lines) {
    Numbers numbers;
    numbers.reserve(lines.size() - static_cast<std::size_t>(head + tail));
    std::for_each(lines.begin() + head, lines.end() - tail, [&](std::u16string_view line) {
      numbers.push_back(known.emplace(line, static_cast<int>(known.size())).first->second);
    });
    return numbers;
  };
  Numbers numbersBefore = numbersOf(before);
  Numbers numbersAfter = numbersOf(after);
  std::vector<LineChange> changes =
      Comparison(std::move(numbersBefore), std::move(numbersAfter), known.size()).changes();
  const int skipped = static_cast<int>(head);
  for (LineChange& change : changes)
    change = {change.oldBegin + skipped, change.oldEnd + skipped, change.newBegin + skipped, change.newEnd + skipped};
  return changes;
}

} // namespace desktop
