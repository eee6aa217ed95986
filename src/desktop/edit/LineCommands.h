// SPDX-License-Identifier: MIT
// Commands for whole lines: those that a selection touches, or the caret's line. A line that the selection only reaches
// the start of is not one of them. Every function is one undo step, and the line ends of a file that mixes them go with
// their lines.
#pragma once

#include <QTextCursor>

namespace desktop {

// Puts "// " in front of the lines, all at the column of the text that begins furthest left. Blank lines stay.
void commentLines(const QTextCursor& selection, int tabWidth);

// Takes the first "//" and one blank behind it from the lines that begin with it.
void uncommentLines(const QTextCursor& selection);

// Puts a copy below the lines; the cursor then stands in the copy as it did in the lines.
void duplicateLines(QTextCursor& cursor);

// Change places with the line above or below; the cursor goes with its lines. Nothing happens at the top and at the end
// of the text, where the empty line behind the last line end counts as the end. It is the other line that is taken out
// and put in again, so that what is known about places in the lines stays.
void moveLinesUp(QTextCursor& cursor);
void moveLinesDown(QTextCursor& cursor);

} // namespace desktop
