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

bool sameAdvance(QFont face, bool bold, bool italic, qreal advance, const QPaintDevice& device) {
  face.setBold(bold);
  face.setItalic(italic);
  return std::abs(laidOutAdvance(face, device) - advance) < 1.0 / 128;
}

} // namespace

CellFont makeCellFont(const QString& family, int points, const QPaintDevice& device) {
  QFont font(family, std::max(points, 1));
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setKerning(false);

  const qreal advance = laidOutAdvance(font, device);
  CellFont result;
  result.boldFits = sameAdvance(font, true, false, advance, device);
  result.italicFits = sameAdvance(font, false, true, advance, device);
  const int width = std::max(static_cast<int>(std::lround(advance)), 1);
  font.setLetterSpacing(QFont::AbsoluteSpacing, width - advance);

  const QFontMetrics metrics(font, &device);
  result.font = font;
  result.cell = QSize(width, std::max(metrics.lineSpacing(), 1));
  result.ascent = metrics.ascent();
  return result;
}

} // namespace desktop
