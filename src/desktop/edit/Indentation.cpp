// SPDX-License-Identifier: MIT
#include "desktop/edit/Indentation.h"

#include "desktop/edit/SelectedLines.h"
#include "desktop/edit/TextColumns.h"

#include <algorithm>

namespace desktop {

namespace {

// How much white space a new line takes over.
constexpr int mostCarriedOver = 500;

// Shortens the first `length` units of `line`, all white space, to `cells` cells. `cursor` is at the start of the line
// and ends behind what has been changed.
void shortenWhiteSpace(QTextCursor& cursor, QStringView line, qsizetype length, int cells, int tabWidth) {
  const qsizetype kept = unitOfColumn(line.left(length), cells + 1, tabWidth);
  const int keptCells = columnOfUnit(line, kept, tabWidth) - 1;
  cursor.setPosition(cursor.position() + static_cast<int>(kept));
  cursor.setPosition(cursor.position() + static_cast<int>(length - kept), QTextCursor::KeepAnchor);
  if (cursor.hasSelection())
    cursor.insertText(QString(cells - keptCells, u' '));
}

// The cells before the text of the nearest line above `block` that has fewer than `cells` of them; -1 when there is
// none.
int indentationAbove(const QTextBlock& block, int cells, int tabWidth) {
  constexpr int reach = 1000; // lines; a key must not take long in a text without any such line
  QTextBlock above = block.previous();
  for (int looked = 0; above.isValid() && looked < reach; above = above.previous(), ++looked) {
    const QString line = above.text();
    const qsizetype leading = leadingWhiteSpace(line);
    const int indentation = columnOfUnit(line, leading, tabWidth) - 1;
    if (leading < line.size() && indentation < cells)
      return indentation;
  }
  return -1;
}

} // namespace

void breakLine(QTextCursor& cursor) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  QTextCursor head(cursor.block()); // no more of a line of any length
  const int length = std::min(cursor.positionInBlock(), mostCarriedOver);
  head.setPosition(head.position() + length, QTextCursor::KeepAnchor);
  const QString before = head.selectedText();
  cursor.insertBlock();
  cursor.insertText(before.left(leadingWhiteSpace(before)));
  cursor.endEditBlock();
}

int insertTab(QTextCursor& cursor, const IndentOptions& options, std::optional<int> column) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  if (!column)
    column = columnOfUnit(cursor.block().text(), cursor.positionInBlock(), options.tabWidth);
  const int cell = *column - 1;
  const bool isCharacter = options.insertion == TabInsertion::Character;
  const int stops = isCharacter ? options.tabWidth : options.indentWidth;
  const int cells = stops - cell % stops;
  cursor.insertText(isCharacter ? QStringLiteral("\t") : QString(cells, u' '));
  cursor.endEditBlock();
  return *column + cells;
}

bool unindentToLineAbove(QTextCursor& cursor, const IndentOptions& options) {
  const QString line = cursor.block().text();
  const qsizetype before = cursor.positionInBlock();
  if (cursor.hasSelection() || leadingWhiteSpace(line) < before)
    return false;
  const int cells = columnOfUnit(line, before, options.tabWidth) - 1;
  const int wanted = indentationAbove(cursor.block(), cells, options.tabWidth);
  if (wanted < 0)
    return false;
  cursor.beginEditBlock();
  cursor.setPosition(cursor.block().position());
  shortenWhiteSpace(cursor, line, before, wanted, options.tabWidth);
  cursor.endEditBlock();
  return true;
}

bool spansLines(const QTextCursor& cursor) {
  const QTextDocument& document = *cursor.document();
  return document.findBlock(cursor.selectionStart()) != document.findBlock(cursor.selectionEnd());
}

void indentLines(const QTextCursor& selection, const IndentOptions& options) {
  const bool blanks = options.insertion == TabInsertion::Blanks;
  const QString indent = blanks ? QString(options.indentWidth, u' ') : QStringLiteral("\t");
  forEachLine(selection, [&](QTextCursor& cursor, const QString& line, qsizetype leading) {
    if (line.isEmpty())
      return;
    // Blanks go behind the white space that is there: before a tab they would have no effect, or too much.
    if (blanks)
      cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, static_cast<int>(leading));
    cursor.insertText(indent);
  });
}

void unindentLines(const QTextCursor& selection, const IndentOptions& options) {
  forEachLine(selection, [&](QTextCursor& cursor, const QString& line, qsizetype leading) {
    const int cells = columnOfUnit(line, leading, options.tabWidth) - 1;
    const int wanted = std::max(cells - options.step(), 0);
    shortenWhiteSpace(cursor, line, leading, wanted, options.tabWidth);
  });
}

} // namespace desktop
