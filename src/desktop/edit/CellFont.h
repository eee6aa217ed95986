// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QSize>

class QPaintDevice;

namespace desktop {

// A font whose characters fill cells of one integer size, at any size in points.
//
// The advance of a monospaced font is rarely a whole number of pixels; letter spacing makes up the difference, so that
// column c starts at exactly c cell widths. Weight and slant are offered only where the bold or italic face has the
// same advance, since letter spacing is one value for all faces.
struct CellFont {
  QFont font;
  QSize cell;            // logical pixels, at least 1 x 1; the height is the font's line spacing
  int ascent = 0;        // from the top of the cell to the base line
  bool boldFits = false; // a bold character is as wide as a cell
  bool italicFits = false;
};

// `family` at `points` (at least 1) as it is laid out for `device`.
CellFont makeCellFont(const QString& family, int points, const QPaintDevice& device);

} // namespace desktop
