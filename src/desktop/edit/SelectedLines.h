// SPDX-License-Identifier: MIT
// The lines that a command for whole lines works on.
#pragma once

#include <QString>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace desktop {

// How many units of white space `line` begins with.
inline qsizetype leadingWhiteSpace(QStringView line) {
  const auto* const end = std::find_if(line.begin(), line.end(), [](QChar c) { return c != u' ' && c != u'\t'; });
  return end - line.begin();
}

// The lines that a selection touches (the caret's line without one). A line that it only reaches the start of is not
// one of them.
struct SelectedLines {
  QTextBlock first;
  QTextBlock last;

  explicit SelectedLines(const QTextCursor& selection)
      : first(selection.document()->findBlock(selection.selectionStart())),
        last(selection.document()->findBlock(selection.selectionEnd())) {
    if (last != first && selection.selectionEnd() == last.position())
      last = last.previous();
  }
};

// Calls `change(cursor, line text, length of its leading white space)` for each line of the selection, with a cursor at
// the start of the line, as one undo step. The change keeps the number of lines.
template <class TChange> void forEachLine(const QTextCursor& selection, TChange&& change) {
  const SelectedLines lines(selection);
  const int last = lines.last.blockNumber();
  QTextCursor cursor(lines.first);
  cursor.beginEditBlock();
  for (int number = lines.first.blockNumber(); number <= last; ++number) {
    const QTextBlock block = selection.document()->findBlockByNumber(number);
    const QString text = block.text();
    cursor.setPosition(block.position());
    change(cursor, text, leadingWhiteSpace(text));
  }
  cursor.endEditBlock();
}

} // namespace desktop
