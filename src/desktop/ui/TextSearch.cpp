// SPDX-License-Identifier: MIT
#include "desktop/ui/TextSearch.h"

#include <QTextBlock>

#include <algorithm>
#include <optional>

namespace desktop {

namespace {

using Accept = std::function<bool(int start, int end)>;

QTextCursor selecting(const QTextBlock& block, const LineMatch& match) {
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + match.start);
  cursor.setPosition(block.position() + match.start + match.length, QTextCursor::KeepAnchor);
  return cursor;
}

// One search: what is looked for, where, and what has come of it so far.
class Search {
public:
  Search(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range, SearchDirection direction,
         const GoOn& goOn)
      : document_(document), matcher_(matcher), range_(range), direction_(direction), goOn_(goOn) {}

  // Goes from the line of position `first` to that of `last`, until there is an accepted match.
  void walk(int first, int last, const Accept& accept) {
    const QTextBlock end = document_.findBlock(last);
    for (QTextBlock block = document_.findBlock(first); block.isValid();
         block = direction_ == SearchDirection::Forward ? block.next() : block.previous()) {
      findInLine(block, accept);
      if (!hit_.match.isNull())
        return;
      hit_.stopped = !goOn_(++lines_);
      if (hit_.stopped || block == end)
        return;
    }
  }

  SearchHit& hit() { return hit_; }
  bool isOver() const { return hit_.stopped || !hit_.match.isNull(); }

private:
  // The first accepted match in the line, or the last one when the search goes backward.
  void findInLine(const QTextBlock& block, const Accept& accept) {
    std::optional<LineMatch> found;
    const bool whole = matcher_.forEach(block.text(), [&](const LineMatch& match) {
      const int start = block.position() + match.start;
      if (range_.covers(block, match) && accept(start, start + match.length))
        found = match;
      return !found || direction_ == SearchDirection::Backward;
    });
    if (!whole)
      hit_.givenUp.note(block);
    if (found)
      hit_.match = selecting(block, *found);
  }

  const QTextDocument& document_;
  const TextMatcher& matcher_;
  const SearchRange& range_;
  SearchDirection direction_;
  const GoOn& goOn_;
  int lines_ = 0;
  SearchHit hit_;
};

} // namespace

SearchRange::SearchRange(const QTextCursor& selection) : isWhole_(false), begin_(selection), end_(selection) {
  begin_.setPosition(selection.selectionStart());
  begin_.setKeepPositionOnInsert(true);
  end_.setPosition(selection.selectionEnd());
}

bool SearchRange::covers(const QTextBlock& block, const LineMatch& match) const {
  if (isWhole_)
    return true;
  const int start = block.position() + match.start;
  return block.document() == document() && start >= begin_.position() && start + match.length <= end_.position();
}

SearchHit findMatch(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range,
                    const QTextCursor& from, SearchDirection direction, const GoOn& goOn) {
  if (matcher.isEmpty())
    return {};
  const int first = range.begin();
  const int last = range.end(document);
  const int caret = from.position();
  const auto isElsewhere = [caret](int start, int end) { return start != end || start != caret; };
  const auto anywhere = [](int, int) { return true; };
  Search search(document, matcher, range, direction, goOn);
  const bool forward = direction == SearchDirection::Forward;
  if (forward) {
    const int after = std::max(from.selectionEnd(), first);
    if (after <= last)
      search.walk(after, last, [&](int start, int end) { return start >= after && isElsewhere(start, end); });
  } else {
    const int before = std::min(from.selectionStart(), last);
    if (before >= first)
      search.walk(before, first, [&](int start, int end) { return end <= before && isElsewhere(start, end); });
  }
  if (!search.isOver()) {
    search.hit().wrapped = true;
    search.walk(forward ? first : last, forward ? last : first, anywhere);
  }
  return search.hit();
}

QTextCursor wordAt(const QTextCursor& caret) {
  const QString line = caret.block().text();
  int start = caret.positionInBlock();
  int end = start;
  while (start > 0 && isWordCharacter(line[start - 1]))
    --start;
  while (end < line.size() && isWordCharacter(line[end]))
    ++end;
  return start == end ? QTextCursor() : selecting(caret.block(), {start, end - start});
}

} // namespace desktop
