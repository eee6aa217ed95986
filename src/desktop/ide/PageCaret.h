// SPDX-License-Identifier: MIT
// The caret of a page, in front or not.
#pragma once

#include <QTextCursor>

namespace desktop {

class Page;

// The caret, and the selection that goes with it.
QTextCursor caretOf(const Page& page);

// Makes `caret` the page's; if `scrolls`, the page is scrolled as little as needed for it to be seen.
void putCaret(Page& page, const QTextCursor& caret, bool scrolls);

// Scrolls as little as needed for the caret to be seen.
void scrollToCaret(Page& page);

} // namespace desktop
