// SPDX-License-Identifier: MIT
// The caret of a page, in front or not.
#pragma once

#include <QTextCursor>

namespace desktop {

class Page;

// The caret, and the selection that goes with it.
QTextCursor caretOf(const Page& page);

// A place in a line, and its screen column, from 1.
struct LineColumn {
  QTextCursor cursor;
  int column;
};
// Where column `column` is in the line of `from`, clipped to the line and to the start of a tab that covers it. It must
// not be less than the column of `from`. Takes time in proportion to what lies between both.
LineColumn goOnTo(int column, const LineColumn& from, int tabWidth);

// Makes `caret` the page's; if `scrolls`, the page is scrolled as little as needed for it to be seen.
void putCaret(Page& page, const QTextCursor& caret, bool scrolls);

// Scrolls as little as needed for the caret to be seen.
void scrollToCaret(Page& page);

} // namespace desktop
