// SPDX-License-Identifier: MIT
// The three ways to count along one line of text.
//
// A unit is a UTF-16 unit, as Qt's positions count, from 0. A character index counts code points from 0, a tab being
// one. A column is a cell of the screen from 1, in which a tab reaches to the next stop (stops are `tabWidth` cells
// apart, at least 1). Beyond the end of the line every cell is one character. Negative indexes and columns below 1 are
// taken as the first. All functions take time linear in the part of the line that they pass.
#pragma once

#include <QStringView>

namespace desktop {

// The character that unit `unit` belongs to; both halves of a surrogate pair are one character, a lone half is one,
// too.
int charIndexOfUnit(QStringView line, qsizetype unit);
// The first unit of a character. At most line.size().
qsizetype unitOfCharIndex(QStringView line, int charIndex);

// The column at which a character starts. Before and beyond the line each character is one cell, so -1 gives 0.
int columnOfCharIndex(QStringView line, int charIndex, int tabWidth);
// The character that covers a column. A column inside an expanded tab belongs to the tab.
int charIndexOfColumn(QStringView line, int column, int tabWidth);

// The column at which the character of a unit starts, and the first unit of the character that covers a column.
int columnOfUnit(QStringView line, qsizetype unit, int tabWidth);
qsizetype unitOfColumn(QStringView line, int column, int tabWidth);

// A character of a line by its first unit and its column.
struct LinePlace {
  qsizetype unit = 0;
  int column = 1;
};

// The character of unit `unit`, which must not stand before `from`, a place of the same line. Whoever asks for one
// character of a line after the other passes over the line only once.
LinePlace walkOn(QStringView line, LinePlace from, qsizetype unit, int tabWidth);

} // namespace desktop
