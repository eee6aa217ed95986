// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QSize>

class QPaintDevice;

namespace desktop {

// How the bold, the italic or the bold italic face of a font gets its characters into the cells of the upright face.
struct CellFace {
  bool fits = false; // false: its characters differ in width, so that no spacing does
  qreal letterSpacing = 0;
  QFont::HintingPreference hinting = QFont::PreferDefaultHinting;
};

// A font whose characters fill cells of one integer size, at any size in points.
//
// The advance of a monospaced font is rarely a whole number of pixels, and its bold and italic faces may differ from it
// by a fraction; letter spacing makes up the difference for each face, so that column c starts at exactly c cell
// widths.
struct CellFont {
  QFont font;     // upright, with its letter spacing
  QSize cell;     // logical pixels, at least 1 x 1; the height is the font's line spacing
  int ascent = 0; // from the top of the cell to the base line
  CellFace bold;
  CellFace italic;
  CellFace boldItalic;

  const CellFace& face(bool isBold, bool isItalic) const { return !isItalic ? bold : isBold ? boldItalic : italic; }
};

// `family` at `points` (at least 1) as it is laid out for `device`.
CellFont makeCellFont(const QString& family, int points, const QPaintDevice& device);

} // namespace desktop
