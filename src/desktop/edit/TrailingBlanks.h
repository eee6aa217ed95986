// SPDX-License-Identifier: MIT
#pragma once

class QTextDocument;

namespace desktop {

// Takes blanks and tabs from the ends of all lines, as one undo step; lines without any are not touched. Returns
// whether anything was changed.
bool trimTrailingBlanks(QTextDocument& document);

} // namespace desktop
