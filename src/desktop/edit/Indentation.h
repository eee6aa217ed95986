// SPDX-License-Identifier: MIT
// What Enter, Tab, Shift+Tab and Backspace do to indentation. Every function is one undo step. Widths are cells of the
// screen.
#pragma once

#include <QTextCursor>

#include <optional>

namespace desktop {

// What the Tab key puts in.
enum class TabInsertion {
  Blanks,   // blanks up to the next stop of the indent width
  Character // one tab character
};

struct IndentOptions {
  int indentWidth = 2; // at least 1
  int tabWidth = 8;    // at least 1; the distance of the stops to which tab characters reach
  TabInsertion insertion = TabInsertion::Blanks;

  // By how many cells one step of indentation moves a line.
  int step() const { return insertion == TabInsertion::Blanks ? indentWidth : tabWidth; }
};

// Breaks the line at the cursor, replacing the selection. The new line begins with the white space that the broken one
// has before the cursor, or with its first 500 characters: else a text typed by a program, each line indented deeper
// than the one before, would take memory with the square of its length.
void breakLine(QTextCursor& cursor);

// Replaces the selection by what the options say. `column` is the cursor's screen column (from 1) if it is known, which
// saves counting it; it must be none with a selection. Returns the column behind what was inserted.
int insertTab(QTextCursor& cursor, const IndentOptions& options, std::optional<int> column = std::nullopt);

// Brings what stands behind the cursor back to the indentation of the nearest line above that begins further left,
// blank lines left out. False, and nothing is changed, with a selection, when something else than white space stands
// before the cursor, or when no line near enough begins further left.
bool unindentToLineAbove(QTextCursor& cursor, const IndentOptions& options);

// Whether the selection reaches over a line end.
bool spansLines(const QTextCursor& cursor);

// Move every line that the selection touches by one step to the right, or to the left as far as there is white space. A
// line that the selection only reaches the start of stays, as do empty lines. The white space that stands there is kept
// as far as possible. The cursor keeps its text selected.
void indentLines(const QTextCursor& selection, const IndentOptions& options);
void unindentLines(const QTextCursor& selection, const IndentOptions& options);

} // namespace desktop
