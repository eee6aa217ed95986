// SPDX-License-Identifier: MIT
// The edit control's commands for whole lines.
#include "desktop/edit/EditControl.h"
#include "desktop/edit/LineCommands.h"

namespace desktop {

template <class TEdit> void TEditControl::editLines(TEdit&& edit) {
  if (isReadOnly())
    return;
  QTextCursor cursor = textCursor();
  edit(cursor);
  setTextCursor(cursor);
  showCaret();
}

void TEditControl::indentBlock() {
  editLines([this](QTextCursor& cursor) { indentLines(cursor, indentOptions()); });
}

void TEditControl::unindentBlock() {
  editLines([this](QTextCursor& cursor) { unindentLines(cursor, indentOptions()); });
}

void TEditControl::commentBlock() {
  editLines([this](QTextCursor& cursor) { commentLines(cursor, tabWidth_); });
}

void TEditControl::uncommentBlock() {
  editLines([](QTextCursor& cursor) { uncommentLines(cursor); });
}

void TEditControl::duplicateBlock() {
  editLines([](QTextCursor& cursor) { duplicateLines(cursor); });
}

void TEditControl::moveBlockUp() {
  editLines([](QTextCursor& cursor) { moveLinesUp(cursor); });
}

void TEditControl::moveBlockDown() {
  editLines([](QTextCursor& cursor) { moveLinesDown(cursor); });
}

} // namespace desktop
