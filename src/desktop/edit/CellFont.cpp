// SPDX-License-Identifier: MIT
#include "desktop/edit/CellFont.h"

#include <QFontMetrics>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

// The advance of one character in a run of text, which may differ from the one that font metrics round.
qreal laidOutAdvance(const QFont& font, const QPaintDevice& device) {
  constexpr int count = 64;
  QTextLayout layout(QString(count, u'M'), font, &device);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  return line.naturalTextWidth() / count;
}

// What must be added to each character of a face of `font` for it to be `width` wide.
qreal missing(QFont font, bool bold, bool italic, int width, const QPaintDevice& device) {
  font.setBold(bold);
  font.setItalic(italic);
  return width - laidOutAdvance(font, device);
}

} // namespace

CellFont makeCellFont(const QString& family, int points, const QPaintDevice& device) {
  QFont font(family, std::max(points, 1));
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setKerning(false);

  const int width = std::max(static_cast<int>(std::lround(laidOutAdvance(font, device))), 1);
  CellFont result;
  result.boldSpacing = missing(font, true, false, width, device);
  result.italicSpacing = missing(font, false, true, width, device);
  result.boldItalicSpacing = missing(font, true, true, width, device);
  font.setLetterSpacing(QFont::AbsoluteSpacing, missing(font, false, false, width, device));

  const QFontMetrics metrics(font, &device);
  result.font = font;
  result.cell = QSize(width, std::max(metrics.lineSpacing(), 1));
  result.ascent = metrics.ascent();
  return result;
}

} // namespace desktop
