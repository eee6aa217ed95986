// SPDX-License-Identifier: MIT
#include "desktop/edit/Indentation.h"

#include "desktop/edit/TextColumns.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace desktop {

namespace {

qsizetype leadingWhiteSpace(QStringView line) {
  const auto* const end = std::find_if(line.begin(), line.end(), [](QChar c) { return c != u' ' && c != u'\t'; });
  return end - line.begin();
}

// Calls `change(cursor, line text, length of its leading white space)` for each line of the selection, with a cursor at
// the start of the line, as one undo step.
template <class TChange> void forEachLine(const QTextCursor& selection, TChange&& change) {
  const QTextDocument& document = *selection.document();
  const QTextBlock first = document.findBlock(selection.selectionStart());
  QTextBlock last = document.findBlock(selection.selectionEnd());
  if (last != first && selection.selectionEnd() == last.position())
    last = last.previous();
  QTextCursor cursor(first);
  cursor.beginEditBlock();
  for (int number = first.blockNumber(); number <= last.blockNumber(); ++number) {
    const QTextBlock block = document.findBlockByNumber(number);
    const QString text = block.text();
    cursor.setPosition(block.position());
    change(cursor, text, leadingWhiteSpace(text));
  }
  cursor.endEditBlock();
}

} // namespace

void breakLine(QTextCursor& cursor) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const QString before = cursor.block().text().left(cursor.positionInBlock());
  cursor.insertBlock();
  cursor.insertText(before.left(leadingWhiteSpace(before)));
  cursor.endEditBlock();
}

void insertTab(QTextCursor& cursor, const IndentOptions& options) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const int cell = columnOfUnit(cursor.block().text(), cursor.positionInBlock(), options.tabWidth) - 1;
  const int blanks = options.indentWidth - cell % options.indentWidth;
  cursor.insertText(options.insertion == TabInsertion::Character ? QStringLiteral("\t") : QString(blanks, u' '));
  cursor.endEditBlock();
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
    const qsizetype kept = unitOfColumn(QStringView(line).left(leading), wanted + 1, options.tabWidth);
    const int keptCells = columnOfUnit(line, kept, options.tabWidth) - 1;
    cursor.setPosition(cursor.position() + static_cast<int>(kept));
    cursor.setPosition(cursor.position() + static_cast<int>(leading - kept), QTextCursor::KeepAnchor);
    if (cursor.hasSelection())
      cursor.insertText(QString(wanted - keptCells, u' '));
  });
}

} // namespace desktop
