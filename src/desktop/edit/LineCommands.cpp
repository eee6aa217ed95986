// SPDX-License-Identifier: MIT
#include "desktop/edit/LineCommands.h"

#include "desktop/edit/SelectedLines.h"
#include "desktop/edit/TextColumns.h"

#include <limits>
#include <vector>

namespace desktop {

namespace {

constexpr QStringView commentMark = u"//";

// A line with the formats of its characters and of the line end behind it, which may say which line end that is. The
// last line of the text has none and takes that of the line end before it.
struct LineCopy {
  QString text;
  QTextCharFormat characters;
  QTextCharFormat lineEnd;

  explicit LineCopy(const QTextBlock& block)
      : text(block.text()),
        characters(block.begin().atEnd() ? block.charFormat() : block.begin().fragment().charFormat()),
        lineEnd(block.next().isValid() ? block.next().charFormat() : block.charFormat()) {}
};

// `cursor` is at the start of a line.
void insertBefore(QTextCursor& cursor, const LineCopy& line) {
  cursor.insertText(line.text, line.characters);
  cursor.insertBlock(QTextBlockFormat(), line.lineEnd);
}

// `cursor` is at the end of the text; the line end that was behind `line` goes in front of it.
void append(QTextCursor& cursor, const LineCopy& line) {
  cursor.insertBlock(QTextBlockFormat(), line.lineEnd);
  cursor.insertText(line.text, line.characters);
}

// Below `block`.
void insertBelow(QTextCursor& cursor, const QTextBlock& block, const std::vector<LineCopy>& lines) {
  const bool isLast = !block.next().isValid();
  cursor.setPosition(isLast ? block.position() + block.length() - 1 : block.next().position());
  for (const LineCopy& line : lines)
    isLast ? append(cursor, line) : insertBefore(cursor, line);
}

void removeBetween(QTextCursor& cursor, int from, int to) {
  cursor.setPosition(from);
  cursor.setPosition(to, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
}

// A selection of whole lines ends behind their last line end, which the end of the text may have no more.
void placeSelection(QTextCursor& cursor, int anchor, int position) {
  const int end = cursor.document()->characterCount() - 1;
  cursor.setPosition(std::min(anchor, end));
  cursor.setPosition(std::min(position, end), QTextCursor::KeepAnchor);
}

bool isEmptyEnd(const QTextBlock& block) {
  return block.length() == 1 && !block.next().isValid();
}

int leastIndentation(const QTextCursor& selection, int tabWidth) {
  int least = std::numeric_limits<int>::max();
  const SelectedLines lines(selection);
  for (QTextBlock block = lines.first; block.isValid(); block = block.next()) {
    const QString line = block.text();
    const qsizetype leading = leadingWhiteSpace(line);
    if (leading < line.size())
      least = std::min(least, columnOfUnit(line, leading, tabWidth) - 1);
    if (block == lines.last)
      break;
  }
  return least;
}

} // namespace

void commentLines(const QTextCursor& selection, int tabWidth) {
  const int cells = leastIndentation(selection, tabWidth);
  forEachLine(selection, [&](QTextCursor& cursor, const QString& line, qsizetype leading) {
    if (leading == line.size())
      return;
    cursor.setPosition(cursor.position() + static_cast<int>(unitOfColumn(line, cells + 1, tabWidth)));
    cursor.insertText(commentMark.toString() + u' ');
  });
}

void uncommentLines(const QTextCursor& selection) {
  forEachLine(selection, [](QTextCursor& cursor, const QString& line, qsizetype leading) {
    const QStringView text = QStringView(line).mid(leading);
    if (!text.startsWith(commentMark))
      return;
    const bool hasBlank = text.mid(commentMark.size()).startsWith(u' ');
    const int start = cursor.position() + static_cast<int>(leading);
    removeBetween(cursor, start, start + static_cast<int>(commentMark.size()) + (hasBlank ? 1 : 0));
  });
}

void duplicateLines(QTextCursor& cursor) {
  const SelectedLines lines(cursor);
  const int anchor = cursor.anchor();
  const int position = cursor.position();
  std::vector<LineCopy> copies;
  for (QTextBlock block = lines.first; block != lines.last.next(); block = block.next())
    copies.emplace_back(block);
  const int length = lines.last.position() + lines.last.length() - lines.first.position();
  QTextCursor edit(cursor.document());
  edit.beginEditBlock();
  insertBelow(edit, lines.last, copies);
  edit.endEditBlock();
  placeSelection(cursor, anchor + length, position + length);
}

void moveLinesUp(QTextCursor& cursor) {
  const SelectedLines lines(cursor);
  const QTextBlock above = lines.first.previous();
  if (!above.isValid() || isEmptyEnd(lines.last))
    return;
  const LineCopy copy(above);
  const int anchor = cursor.anchor() - above.length();
  const int position = cursor.position() - above.length();
  QTextCursor edit(cursor.document());
  edit.beginEditBlock();
  removeBetween(edit, above.position(), lines.first.position());
  insertBelow(edit, lines.last, {copy});
  edit.endEditBlock();
  placeSelection(cursor, anchor, position);
}

void moveLinesDown(QTextCursor& cursor) {
  const SelectedLines lines(cursor);
  const QTextBlock below = lines.last.next();
  if (!below.isValid() || isEmptyEnd(below))
    return;
  const LineCopy copy(below);
  const int anchor = cursor.anchor() + below.length();
  const int position = cursor.position() + below.length();
  const int start = lines.first.position();
  QTextCursor edit(cursor.document());
  edit.beginEditBlock();
  if (below.next().isValid())
    removeBetween(edit, below.position(), below.next().position());
  else
    removeBetween(edit, below.position() - 1, below.position() + below.length() - 1);
  edit.setPosition(start);
  insertBefore(edit, copy);
  edit.endEditBlock();
  placeSelection(cursor, anchor, position);
}

} // namespace desktop
