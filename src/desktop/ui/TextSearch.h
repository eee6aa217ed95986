// SPDX-License-Identifier: MIT
// Finding a text in a document, round the end if need be. A match never reaches over a line end. Positions are those of
// the document, units are UTF-16 units of a line from 0.
#pragma once

#include "desktop/files/TextMatcher.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>

namespace desktop {

enum class SearchDirection { Forward, Backward };

// The part of a document that is searched. It follows edits: what is put in at its end belongs to it.
class SearchRange {
public:
  // All of any document.
  SearchRange() = default;
  // What `selection` selects now.
  explicit SearchRange(const QTextCursor& selection);

  bool isWhole() const { return isWhole_; }
  // Null for a whole one, and when the document is gone.
  const QTextDocument* document() const { return begin_.isNull() ? nullptr : begin_.document(); }
  // Positions in `document`, of which this is a range.
  int begin() const { return isWhole_ ? 0 : begin_.position(); }
  int end(const QTextDocument& document) const { return isWhole_ ? document.characterCount() - 1 : end_.position(); }
  bool covers(const QTextBlock& block, const LineMatch& match) const;

private:
  bool isWhole_ = true;
  QTextCursor begin_;
  QTextCursor end_;
};

// Whether long work goes on; called again and again with how much is done. It may process events: if it says no,
// nothing of the document is touched any more.
using GoOn = std::function<bool(int done)>;

// The first line of a walk for which a pattern was too complex; see TextMatcher.
struct GivenUp {
  int line = 0; // from 1; 0 for none
  void note(const QTextBlock& block) { line = line == 0 ? block.blockNumber() + 1 : line; }
};

struct SearchHit {
  QTextCursor match;    // selects what was found; null when nothing was
  bool wrapped = false; // it was found only after going on at the other end
  bool stopped = false; // `goOn` ended the search before anything was found
  GivenUp givenUp;      // what of that line lies behind the trouble has not been searched
};

// The next match within `range` behind or before the selection of `from`. An empty match at the caret is passed over,
// so that a search always goes on. `goOn` is called after each line with the number of lines searched, of which there
// are twice as many as the document has when all of it is searched for nothing.
SearchHit findMatch(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range,
                    const QTextCursor& from, SearchDirection direction, const GoOn& goOn);

// Selects the word (letters, digits, underscores) that the caret is in or right behind; null when there is none.
QTextCursor wordAt(const QTextCursor& caret);

} // namespace desktop
