// SPDX-License-Identifier: MIT
#include "desktop/ui/TextSearch.h"

#include <QCoreApplication>
#include <QTextBlock>

#include <algorithm>
#include <optional>

namespace desktop {

namespace {

bool isWordCharacter(QChar c) {
  return c.isLetterOrNumber() || c == u'_';
}

bool standsAlone(const QString& line, qsizetype start, qsizetype end) {
  return (start == 0 || !isWordCharacter(line[start - 1])) && (end == line.size() || !isWordCharacter(line[end]));
}

QRegularExpression makePattern(const QString& text, const SearchTerms& terms) {
  QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
  options.setFlag(QRegularExpression::CaseInsensitiveOption, !terms.matchCase);
  return QRegularExpression(text, options);
}

// Halves of surrogate pairs, which a document can hold but no pattern is matched with, as what stands for them.
QString withoutLoneSurrogates(const QString& line) {
  QString valid = line;
  for (qsizetype i = 0; i < valid.size(); ++i) {
    if (valid[i].isHighSurrogate() && i + 1 < valid.size() && valid[i + 1].isLowSurrogate())
      ++i;
    else if (valid[i].isSurrogate())
      valid[i] = QChar::ReplacementCharacter;
  }
  return valid;
}

using Accept = std::function<bool(int start, int end)>;

QTextCursor selecting(const QTextBlock& block, const LineMatch& match) {
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + match.start);
  cursor.setPosition(block.position() + match.start + match.length, QTextCursor::KeepAnchor);
  return cursor;
}

// The first accepted match in the line, or the last one when the search goes backward; null when there is none.
QTextCursor findInLine(const QTextBlock& block, const TextMatcher& matcher, const SearchRange& range,
                       SearchDirection direction, const Accept& accept) {
  std::optional<LineMatch> found;
  matcher.forEach(block.text(), [&](const LineMatch& match) {
    const int start = block.position() + match.start;
    if (range.covers(block, match) && accept(start, start + match.length))
      found = match;
    return !found || direction == SearchDirection::Backward;
  });
  return found ? selecting(block, *found) : QTextCursor();
}

// Goes from the line of position `first` to that of `last`.
QTextCursor findBetween(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range,
                        SearchDirection direction, int first, int last, const Accept& accept) {
  const QTextBlock end = document.findBlock(last);
  for (QTextBlock block = document.findBlock(first); block.isValid();
       block = direction == SearchDirection::Forward ? block.next() : block.previous()) {
    const QTextCursor found = findInLine(block, matcher, range, direction, accept);
    if (!found.isNull() || block == end)
      return found;
  }
  return {};
}

} // namespace

TextMatcher::TextMatcher(const SearchTerms& terms)
    : isEmpty_(terms.text.isEmpty()), wholeWord_(terms.wholeWord), isPattern_(terms.regularExpression) {
  if (!isPattern_) {
    text_ = QStringMatcher(terms.text, terms.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
    return;
  }
  pattern_ = makePattern(terms.text, terms); // alone first, so that the place of an error is that in the user's text
  if (wholeWord_ && pattern_.isValid())
    pattern_ = makePattern(QStringLiteral("(?<!\\w)(?:%1)(?!\\w)").arg(terms.text), terms);
  if (pattern_.isValid())
    return;
  isEmpty_ = true;
  error_ = QCoreApplication::translate("desktop::TextMatcher", "Bad pattern at character %1: %2")
               .arg(pattern_.patternErrorOffset() + 1)
               .arg(pattern_.errorString());
}

void TextMatcher::forEach(const QString& line, const Visit& visit) const {
  if (isEmpty_)
    return;
  if (isPattern_)
    forEachPattern(line, visit);
  else
    forEachText(line, visit);
}

void TextMatcher::forEachText(const QString& line, const Visit& visit) const {
  const qsizetype length = text_.pattern().size();
  for (qsizetype at = text_.indexIn(line); at >= 0;) {
    const bool counts = !wholeWord_ || standsAlone(line, at, at + length);
    if (counts && !visit({static_cast<int>(at), static_cast<int>(length)}))
      return;
    at = text_.indexIn(line, at + (counts ? length : 1));
  }
}

void TextMatcher::forEachPattern(const QString& line, const Visit& visit) const {
  QRegularExpressionMatchIterator matches =
      pattern_.globalMatch(QStringView(line).isValidUtf16() ? line : withoutLoneSurrogates(line));
  while (matches.hasNext()) {
    const QRegularExpressionMatch match = matches.next();
    if (!visit({static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), &match}))
      return;
  }
}

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
                    const QTextCursor& from, SearchDirection direction) {
  if (matcher.isEmpty())
    return {};
  const int first = range.begin();
  const int last = range.end(document);
  const int caret = from.position();
  const auto isElsewhere = [caret](int start, int end) { return start != end || start != caret; };
  const auto anywhere = [](int, int) { return true; };
  QTextCursor found;
  if (direction == SearchDirection::Forward) {
    const int after = std::max(from.selectionEnd(), first);
    if (after <= last)
      found = findBetween(document, matcher, range, direction, after, last,
                          [&](int start, int end) { return start >= after && isElsewhere(start, end); });
    if (found.isNull())
      return {findBetween(document, matcher, range, direction, first, last, anywhere), true};
  } else {
    const int before = std::min(from.selectionStart(), last);
    if (before >= first)
      found = findBetween(document, matcher, range, direction, before, first,
                          [&](int start, int end) { return end <= before && isElsewhere(start, end); });
    if (found.isNull())
      return {findBetween(document, matcher, range, direction, last, first, anywhere), true};
  }
  return {found, false};
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
