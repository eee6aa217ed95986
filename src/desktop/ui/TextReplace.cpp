// SPDX-License-Identifier: MIT
#include "desktop/ui/TextReplace.h"

#include <QTextBlock>

#include <algorithm>
#include <cstddef>

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
  const bool whole = matcher.forEach(block.text(), [&](const LineMatch& match) {
    if (match.start == start && match.length == length && range.covers(block, match))
      found = makeReplacement(block, match, with);
    return match.start < start;
  });
  return whole ? found : std::nullopt;
}

Replacements collectReplacements(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range,
                                 const QString& with, const GoOn& goOn) {
  Replacements found;
  const QTextBlock last = document.findBlock(range.end(document));
  int lines = 0;
  for (QTextBlock block = document.findBlock(range.begin()); block.isValid(); block = block.next()) {
    const bool whole = matcher.forEach(block.text(), [&](const LineMatch& match) {
      if (range.covers(block, match))
        found.all.push_back(makeReplacement(block, match, with));
      return true;
    });
    if (!whole)
      found.givenUp.note(block);
    else
      found.stopped = !goOn(++lines);
    if (!whole || found.stopped || block == last)
      break;
  }
  return found;
}

// The steps of the document are joined to one. It is between them that others may look at the document: within one its
// layout is not up to date.
int applyReplacements(QTextDocument& document, const std::vector<Replacement>& replacements, const GoOn& goOn) {
  constexpr int atATime = 1'000; // some milliseconds
  QTextCursor cursor(&document);
  const int count = static_cast<int>(replacements.size());
  int shift = 0; // of what comes behind those that are done
  for (int done = 0; done < count;) {
    done == 0 ? cursor.beginEditBlock() : cursor.joinPreviousEditBlock();
    for (const int end = std::min(done + atATime, count); done < end; ++done) {
      const Replacement& each = replacements[static_cast<std::size_t>(done)];
      cursor.setPosition(each.position + shift);
      cursor.setPosition(each.position + shift + each.length, QTextCursor::KeepAnchor);
      cursor.insertText(each.text, cursor.charFormat()); // the format carries the line end of a break within the text
      shift += static_cast<int>(each.text.size()) - each.length;
    }
    cursor.endEditBlock();
    if (done < count && !goOn(done))
      return done;
  }
  return count;
}

void applyReplacements(QTextDocument& document, const std::vector<Replacement>& replacements) {
  applyReplacements(document, replacements, [](int) { return true; });
}

} // namespace desktop
