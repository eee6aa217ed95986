// SPDX-License-Identifier: MIT
#include "desktop/files/TextMatcher.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <limits>

namespace desktop {

namespace {

// The steps back that a match may take. The library counts them anew for each character at which a match may begin.
// Everyday patterns take some dozens. A single step can run over all of the line, though, so that in long lines there
// must be fewer of them, and they are counted for many beginnings together.
struct Bounds {
  qsizetype longestLine; // units
  int beginnings;        // characters
  int steps;             // for all of these
};
constexpr qsizetype shortLine = 1'000;
constexpr int stepsInShortLine = 100'000;
constexpr Bounds longLine{20'000, 1'000, 100'000};
constexpr Bounds hugeLine{std::numeric_limits<qsizetype>::max(), 100, 5'000};
constexpr int matchTime = 250; // milliseconds from one match in a long line to the next

bool standsAlone(const QString& line, qsizetype start, qsizetype end) {
  return (start == 0 || !isWordCharacter(line[start - 1])) && (end == line.size() || !isWordCharacter(line[end]));
}

QRegularExpression makePattern(const QString& text, const SearchTerms& terms) {
  QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
  options.setFlag(QRegularExpression::CaseInsensitiveOption, !terms.matchCase);
  return QRegularExpression(text, options);
}

// A pattern in two parts: settings for all of it, which can stand at its very beginning only, and the rest.
struct PatternParts {
  QString settings;
  QString rest;

  explicit PatternParts(const QString& text) {
    static const QRegularExpression settingsOf(QStringLiteral("\\A(?:\\(\\*[A-Z][A-Z0-9_=]*\\))*"));
    settings = settingsOf.match(text).captured();
    rest = text.mid(settings.size());
  }

  // `with` in place of the rest, which stands at its %1, within the bound.
  QString bounded(int steps, const QString& with) const {
    return QStringLiteral("(*LIMIT_MATCH=%1)").arg(steps) + settings +
           QString(with).replace(QStringLiteral("%1"), rest);
  }
};

LineMatch lineMatchOf(const QRegularExpressionMatch& match) {
  return {static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), &match};
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

} // namespace

QString firstLineOf(const QString& text) {
  const auto isBreak = [](QChar c) { return c == u'\n' || c == u'\r' || c == QChar::ParagraphSeparator; };
  return text.left(std::ranges::find_if(text, isBreak) - text.begin());
}

bool isWordCharacter(QChar c) {
  return c.isLetterOrNumber() || c == u'_';
}

TextMatcher::TextMatcher(const SearchTerms& terms)
    : isEmpty_(terms.text.isEmpty()), wholeWord_(terms.wholeWord), isPattern_(terms.regularExpression) {
  if (!isPattern_) {
    text_ = QStringMatcher(terms.text, terms.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
    return;
  }
  pattern_ = makePattern(terms.text, terms); // alone first, so that the place of an error is that in the user's text
  if (pattern_.isValid()) {
    const PatternParts parts(terms.text);
    const QString whole = wholeWord_ ? QStringLiteral("(?<!\\w)(?:%1)(?!\\w)") : QStringLiteral("%1");
    pattern_ = makePattern(parts.bounded(stepsInShortLine, whole), terms);
    // These go from one beginning to the next themselves, so that this is one match to the library.
    const auto striding = [&](const Bounds& bounds) {
      return makePattern(parts.bounded(bounds.steps, QStringLiteral("\\G(?s:.){0,") +
                                                         QString::number(bounds.beginnings - 1) +
                                                         QStringLiteral("}?\\K(?:") + whole + QStringLiteral(")")),
                         terms);
    };
    longLinePattern_ = striding(longLine);
    hugeLinePattern_ = striding(hugeLine);
  }
  if (pattern_.isValid())
    return;
  isEmpty_ = true;
  error_ = QCoreApplication::translate("desktop::TextMatcher", "Bad pattern at character %1: %2")
               .arg(pattern_.patternErrorOffset() + 1)
               .arg(pattern_.errorString());
}

bool TextMatcher::forEach(const QString& line, const Visit& visit) const {
  if (isEmpty_)
    return true;
  if (isPattern_)
    return forEachPattern(line, visit);
  forEachText(line, visit);
  return true;
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

bool TextMatcher::forEachPattern(const QString& line, const Visit& visit) const {
  const QString subject = QStringView(line).isValidUtf16() ? line : withoutLoneSurrogates(line);
  if (line.size() > shortLine)
    return forEachStriding(subject, visit);
  QRegularExpressionMatchIterator matches = pattern_.globalMatch(subject);
  bool isThrough = false;
  while (matches.hasNext()) {
    const QRegularExpressionMatch match = matches.next();
    if (!visit(lineMatchOf(match)))
      return true;
    isThrough = match.capturedLength() == 0 && match.capturedEnd() == line.size();
  }
  // The iterator becomes invalid when the bound has been reached, but also behind an empty match at the end.
  return matches.isValid() || isThrough;
}

bool TextMatcher::forEachStriding(const QString& line, const Visit& visit) const {
  const bool isHuge = line.size() > longLine.longestLine;
  const QRegularExpression& pattern = isHuge ? hugeLinePattern_ : longLinePattern_;
  if (!pattern.isValid()) // in parentheses it is another one, as with a comment at its end
    return false;
  QElapsedTimer time;
  time.start();
  for (qsizetype at = 0; at <= line.size();) {
    if (time.elapsed() > matchTime)
      return false;
    const QRegularExpressionMatch match =
        pattern.match(line, at, QRegularExpression::NormalMatch, QRegularExpression::DontCheckSubjectStringMatchOption);
    if (!match.isValid())
      return false;
    if (match.hasMatch() && !visit(lineMatchOf(match)))
      return true;
    if (match.hasMatch())
      time.start();
    if (!match.hasMatch())
      at += isHuge ? hugeLine.beginnings : longLine.beginnings;
    else
      at = match.capturedLength() > 0 ? match.capturedEnd() : match.capturedEnd() + 1;
    if (at < line.size() && line[at].isLowSurrogate())
      match.hasMatch() ? ++at : --at; // never within a character
  }
  return true;
}

} // namespace desktop
