// SPDX-License-Identifier: MIT
#include "desktop/ide/PageCaret.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"

#include <QTextBlock>

#include <algorithm>

namespace desktop {

namespace {

// The first visible one of `visible` lines or cells, after scrolling as little as needed for `wanted` to be seen.
int scrolledTo(int wanted, int first, int visible) {
  return std::clamp(first, wanted - visible + 1, wanted);
}

} // namespace

QTextCursor caretOf(const Page& page) {
  if (page.isCurrent())
    return page.window()->editor()->textCursor();
  const EditState state = page.state();
  const int last = page.document()->characterCount() - 1;
  QTextCursor caret(page.document());
  caret.setPosition(std::clamp(state.anchor, 0, last));
  caret.setPosition(std::clamp(state.caret, 0, last), QTextCursor::KeepAnchor);
  return caret;
}

// What is passed begins at the stop of tabs before `from`, so that the tabs in it have their widths.
LineColumn goOnTo(int column, const LineColumn& from, int tabWidth) {
  const QTextBlock block = from.cursor.block();
  const int start = from.cursor.position();
  const int blanks = (from.column - 1) % std::max(tabWidth, 1);
  const int stop = from.column - 1 - blanks;
  const int most = 2 * (std::min(column - from.column, block.length()) + 1); // units: a character has a cell at least
  QTextCursor passed = from.cursor;
  passed.setPosition(start);
  passed.setPosition(std::min(start + most, block.position() + block.length() - 1), QTextCursor::KeepAnchor);
  const QString text = QString(blanks, u' ') + passed.selectedText();
  const qsizetype unit = unitOfColumn(text, column - stop, tabWidth);
  passed.setPosition(start + static_cast<int>(unit) - blanks);
  return {passed, stop + columnOfUnit(text, unit, tabWidth)};
}

void putCaret(Page& page, const QTextCursor& caret, bool scrolls) {
  if (scrolls && page.isCurrent()) { // scrolling back to where the page was would only cost time
    page.window()->editor()->setTextCursor(caret);
    return scrollToCaret(page);
  }
  EditState state = page.state();
  state.caret = caret.position();
  state.anchor = caret.anchor();
  page.setState(state);
  if (scrolls)
    scrollToCaret(page);
}

void scrollToCaret(Page& page) {
  TEditControl& control = *page.window()->editor();
  if (page.isCurrent())
    return control.showCaret();
  const QTextCursor caret = caretOf(page);
  const int column = columnOfUnit(caret.block().text(), caret.positionInBlock(), control.tabWidth());
  const QSize visible = control.viewSize();
  EditState state = page.state();
  state.topLine = scrolledTo(caret.blockNumber(), state.topLine, visible.height());
  state.leftCell = scrolledTo(column - 1, state.leftCell, visible.width());
  page.setState(state);
}

} // namespace desktop
