// SPDX-License-Identifier: MIT
#include "desktop/edit/BracketPairs.h"

#include "desktop/edit/Indentation.h"

#include <QTextDocument>

#include <utility>

namespace desktop {

namespace {

constexpr QChar quote = u'\'';

// The partner of an opening bracket or quote; null of anything else.
QChar partnerOf(QChar opening) {
  switch (opening.unicode()) {
  case u'(':
    return u')';
  case u'[':
    return u']';
  case u'{':
    return u'}';
  case u'\'':
    return quote;
  default:
    return {};
  }
}

bool mayFollow(QChar next) {
  constexpr QStringView allowed = u" \t)]}";
  return next == QChar::ParagraphSeparator || allowed.contains(next);
}

QChar characterAt(const QTextCursor& cursor, int offset = 0) {
  return cursor.document()->characterAt(cursor.position() + offset);
}

} // namespace

BracketPairs::BracketPairs(IsCode isCode) : isCode_(std::move(isCode)) {}

bool BracketPairs::type(QTextCursor& cursor, char32_t character) {
  if (character > 0x7F)
    return false;
  const QChar typed(static_cast<char16_t>(character));
  if (!cursor.hasSelection() && stepOver(cursor, typed))
    return true;
  const QChar partner = partnerOf(typed);
  if (partner.isNull())
    return false;
  return cursor.hasSelection() ? surround(cursor, typed, partner) : open(cursor, typed, partner);
}

bool BracketPairs::stepOver(QTextCursor& cursor, QChar character) {
  if (pairs_.empty() || pairs_.back().closing != cursor || characterAt(cursor) != character)
    return false;
  pairs_.pop_back();
  cursor.movePosition(QTextCursor::NextCharacter);
  return true;
}

bool BracketPairs::surround(QTextCursor& cursor, QChar opening, QChar closing) const {
  QTextCursor start = cursor;
  start.setPosition(cursor.selectionStart());
  if (!isCodeAt(start) || (opening == quote && spansLines(cursor)))
    return false;
  const int anchor = cursor.anchor();
  const int position = cursor.position();
  QTextCursor end = cursor;
  end.setPosition(cursor.selectionEnd());
  end.beginEditBlock();
  end.insertText(closing);
  start.insertText(opening);
  end.endEditBlock();
  cursor.setPosition(anchor + 1);
  cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
  return true;
}

bool BracketPairs::open(QTextCursor& cursor, QChar opening, QChar closing) {
  // A quote right behind a string goes on with that string.
  const bool goesOn = opening == quote && !cursor.atBlockStart() && characterAt(cursor, -1) == quote;
  if (goesOn || !mayFollow(characterAt(cursor)) || !isCodeAt(cursor))
    return false;
  cursor.beginEditBlock();
  cursor.insertText(QString(opening) + closing);
  cursor.endEditBlock();
  cursor.movePosition(QTextCursor::PreviousCharacter);
  Pair pair{cursor, cursor};
  pair.opening.movePosition(QTextCursor::PreviousCharacter);
  pairs_.push_back(std::move(pair));
  return true;
}

bool BracketPairs::takeBack(QTextCursor& cursor) const {
  if (cursor.hasSelection() || cursor.atBlockStart())
    return false;
  QTextCursor opening = cursor;
  opening.movePosition(QTextCursor::PreviousCharacter);
  const QChar partner = partnerOf(characterAt(opening));
  if (partner.isNull() || characterAt(cursor) != partner || !isCodeAt(opening))
    return false;
  // Two quotes among others stand for one within a string.
  const bool hasQuoteBefore = !opening.atBlockStart() && characterAt(opening, -1) == quote;
  if (partner == quote && (hasQuoteBefore || characterAt(cursor, 1) == quote))
    return false;
  cursor.setPosition(opening.position());
  cursor.setPosition(opening.position() + 2, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
  return true;
}

void BracketPairs::follow(const QTextCursor& caret) {
  std::erase_if(pairs_, [&caret](const Pair& pair) {
    const QChar partner = partnerOf(characterAt(pair.opening));
    const bool isWhole = !partner.isNull() && characterAt(pair.closing) == partner;
    return !isWhole || caret <= pair.opening || pair.closing < caret;
  });
}

} // namespace desktop
