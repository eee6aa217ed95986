// SPDX-License-Identifier: MIT
// Finding a text or a pattern in one line. Units are UTF-16 units of the line, from 0.
#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringMatcher>

#include <functional>

namespace desktop {

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

// Finds the matches in a line. Any thread, several at a time.
//
// A pattern can ask for more steps than anybody would wait for. So the steps for a line are bounded, and a line that
// needs more is given up; how many those are, nobody notices who has not written such a pattern.
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
  // the walk ends with empty matches, too. False when the pattern was too complex for the line, of which the matches
  // from there on have not been visited.
  [[nodiscard]] bool forEach(const QString& line, const Visit& visit) const;

private:
  void forEachText(const QString& line, const Visit& visit) const;
  bool forEachPattern(const QString& line, const Visit& visit) const;
  bool forEachStriding(const QString& line, const Visit& visit) const;

  bool isEmpty_ = true;
  bool wholeWord_ = false;
  bool isPattern_ = false;
  QString error_;
  QStringMatcher text_;
  QRegularExpression pattern_;
  QRegularExpression longLinePattern_;
  QRegularExpression hugeLinePattern_;
};

// `text` up to its first line break: all of it that can be found, since there are no matches over line ends.
QString firstLineOf(const QString& text);

// Whether `c` belongs to a word: a letter, a digit or an underscore.
bool isWordCharacter(QChar c);

} // namespace desktop
