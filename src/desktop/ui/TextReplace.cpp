// SPDX-License-Identifier: MIT
#include "desktop/ui/TextReplace.h"

#include <QTextBlock>

namespace desktop {

namespace {

// What a backslash and `c` stand for; none when they stand for themselves.
std::optional<QString> escaped(QChar c, const QRegularExpressionMatch& captures) {
  if (c >= u'0' && c <= u'9')
    return captures.captured(c.unicode() - u'0');
  if (c == u'n')
    return QStringLiteral("\n");
  if (c == u't')
    return QStringLiteral("\t");
  return c == u'\\' ? std::optional(QString(c)) : std::nullopt;
}

Replacement makeReplacement(const QTextBlock& block, const LineMatch& match, const QString& with) {
  return {block.position() + match.start, match.length, replacementOf(match, with)};
}

} // namespace

QString replacementOf(const LineMatch& match, const QString& with) {
  if (match.captures == nullptr || !with.contains(u'\\'))
    return with;
  QString text;
  for (qsizetype i = 0; i < with.size(); ++i) {
    const bool isEscape = with[i] == u'\\' && i + 1 < with.size();
    const std::optional<QString> meant = isEscape ? escaped(with[i + 1], *match.captures) : std::nullopt;
    text += meant.value_or(with[i]);
    if (meant)
      ++i;
  }
  return text;
}

std::optional<Replacement> replacementAt(const QTextCursor& selection, const TextMatcher& matcher,
                                         const SearchRange& range, const QString& with) {
  const QTextBlock block = selection.document()->findBlock(selection.selectionStart());
  const int start = selection.selectionStart() - block.position();
  const int length = selection.selectionEnd() - selection.selectionStart();
  std::optional<Replacement> found;
  matcher.forEach(block.text(), [&](const LineMatch& match) {
    if (match.start == start && match.length == length && range.covers(block, match))
      found = makeReplacement(block, match, with);
    return match.start < start;
  });
  return found;
}

std::optional<std::vector<Replacement>> collectReplacements(const QTextDocument& document, const TextMatcher& matcher,
                                                            const SearchRange& range, const QString& with,
                                                            const GoOn& goOn) {
  constexpr int linesBetweenCalls = 64; // few, since a pattern can take long for a line
  std::vector<Replacement> replacements;
  const QTextBlock last = document.findBlock(range.end(document));
  int lines = 0;
  for (QTextBlock block = document.findBlock(range.begin()); block.isValid(); block = block.next()) {
    matcher.forEach(block.text(), [&](const LineMatch& match) {
      if (range.covers(block, match))
        replacements.push_back(makeReplacement(block, match, with));
      return true;
    });
    if (++lines % linesBetweenCalls == 0 && !goOn(lines))
      return std::nullopt;
    if (block == last)
      break;
  }
  return replacements;
}

// From the end, so that the positions before stay what they are.
void applyReplacements(QTextDocument& document, const std::vector<Replacement>& replacements) {
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (auto each = replacements.rbegin(); each != replacements.rend(); ++each) {
    cursor.setPosition(each->position);
    cursor.setPosition(each->position + each->length, QTextCursor::KeepAnchor);
    cursor.insertText(each->text, cursor.charFormat()); // the format carries the line end of a break within the text
  }
  cursor.endEditBlock();
}

} // namespace desktop
