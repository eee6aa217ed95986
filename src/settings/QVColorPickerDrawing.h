// SPDX-License-Identifier: MIT
// What the colour picker draws itself: glyphs, the drop-down arrow, swatches and the marks on them. All of it takes its
// inks from the widget's palette and puts straight edges on whole device pixels, so it is sharp on every screen.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace quorvane {

// The picture on a colour button: what the colour is for.
enum TGlyphType {
  gtForeground, // a letter: "FRCOLOR"
  gtBackground, // a filled frame: "BKCOLOR"
  gtLines,      // lines of growing width: "LNCOLOR"
  gtCustom,     // the button's own Glyph, if it has one
};

// The part of `area` that begins and ends on whole device pixels of `painter`.
QRectF Snapped(const QPainter& painter, const QRectF& area);

// The picture of a type in the middle of `area`; nothing for gtCustom.
void DrawGlyph(QPainter& painter, const QRectF& area, TGlyphType type, const QColor& ink);
// A triangle pointing down in the middle of `area`: "DROPDOWN".
void DrawDropDown(QPainter& painter, const QRectF& area, const QColor& ink);
// A framed area of `color`. An invalid colour is none: the ground shows, crossed by a diagonal line.
void DrawSwatch(QPainter& painter, const QRectF& area, const QColor& color, const QPalette& palette);
// A tick in the middle of `area`, in black or white, whichever reads better on `ground`.
void DrawTick(QPainter& painter, const QRectF& area, const QColor& ground);
// The frame of a cell that has the focus: two rings, one of which stands out from any ground.
void DrawFocus(QPainter& painter, const QRectF& area, const QPalette& palette);

} // namespace quorvane
