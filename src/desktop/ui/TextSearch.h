// SPDX-License-Identifier: MIT
// Finding a text in a document, round the end if need be. A match never reaches over a line end. Positions are those of
// the document, units are UTF-16 units of a line from 0.
#pragma once

#include <QRegularExpression>
#include <QStringMatcher>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>

namespace desktop {

enum class SearchDirection { Forward, Backward };

// What to find.
struct SearchTerms {
  QString text;
  bool matchCase = false;
  bool wholeWord = false; // no letter, digit or underscore beside the match
  bool regularExpression = false;
};

// A match in one line.
struct LineMatch {
  int start = 0;                                     // unit
  int length = 0;                                    // units; 0 for a regular expression that matches nothing at all
  const QRegularExpressionMatch* captures = nullptr; // of a regular expression, for the time of the visit
};

// Finds the matches in a line.
class TextMatcher {
public:
  // Called with a match; false ends the walk.
  using Visit = std::function<bool(const LineMatch& match)>;

  // Finds nothing.
  TextMatcher() = default;
  explicit TextMatcher(const SearchTerms& terms);

  // Whether there is anything to be found: an empty text and a bad pattern are not.
  bool isEmpty() const { return isEmpty_; }
  // For the user: what is wrong with the pattern. Empty when nothing is.
  const QString& error() const { return error_; }

  // Visits the matches in `line` from left to right; they do not overlap. Of each place there is one match at most, so
  // the walk ends with empty matches, too.
  void forEach(const QString& line, const Visit& visit) const;

private:
  void forEachText(const QString& line, const Visit& visit) const;
  void forEachPattern(const QString& line, const Visit& visit) const;

  bool isEmpty_ = true;
  bool wholeWord_ = false;
  bool isPattern_ = false;
  QString error_;
  QStringMatcher text_;
  QRegularExpression pattern_;
};

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

struct SearchHit {
  QTextCursor match;    // selects what was found; null when nothing was
  bool wrapped = false; // it was found only after going on at the other end
};

// The next match within `range` behind or before the selection of `from`. An empty match at the caret is passed over,
// so that a search always goes on.
SearchHit findMatch(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range,
                    const QTextCursor& from, SearchDirection direction);

// Selects the word (letters, digits, underscores) that the caret is in or right behind; null when there is none.
QTextCursor wordAt(const QTextCursor& caret);

} // namespace desktop
