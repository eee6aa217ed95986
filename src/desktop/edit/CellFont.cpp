// SPDX-License-Identifier: MIT
#include "desktop/edit/CellFont.h"

#include <QFontMetrics>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <optional>

namespace desktop {

namespace {

// The printable ASCII characters.
QString sample() {
  QString text;
  for (char16_t c = u' '; c < 0x7F; ++c)
    text += QChar(c);
  return text;
}

// The advance that all characters of the sample have where they are laid out in one run, or nothing when they differ.
// That may be another one than font metrics tell, which round.
std::optional<qreal> commonAdvance(const QFont& font, const QPaintDevice& device) {
  const QString text = sample();
  QTextLayout layout(text, font, &device);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  const qreal advance = line.cursorToX(1);
  for (int i = 2; i <= text.size(); ++i)
    if (line.cursorToX(i) != i * advance)
      return std::nullopt;
  return advance;
}

// Hinting may move the advances of single glyphs by fractions of a pixel, mostly in slanted faces; then the face is
// taken as it is designed.
CellFace makeFace(QFont font, bool bold, bool italic, int width, const QPaintDevice& device) {
  font.setBold(bold);
  font.setItalic(italic);
  for (const auto hinting : {QFont::PreferDefaultHinting, QFont::PreferNoHinting}) {
    font.setHintingPreference(hinting);
    if (const std::optional<qreal> advance = commonAdvance(font, device))
      return {true, width - *advance, hinting};
  }
  return {};
}

} // namespace

CellFont makeCellFont(const QString& family, int points, const QPaintDevice& device) {
  QFont font(family, std::max(points, 1));
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setKerning(false);

  const qreal advance = commonAdvance(font, device).value_or(QFontMetricsF(font, &device).averageCharWidth());
  const int width = std::max(static_cast<int>(std::lround(advance)), 1);
  CellFont result;
  result.bold = makeFace(font, true, false, width, device);
  result.italic = makeFace(font, false, true, width, device);
  result.boldItalic = makeFace(font, true, true, width, device);
  font.setLetterSpacing(QFont::AbsoluteSpacing, width - advance);

  const QFontMetrics metrics(font, &device);
  result.font = font;
  result.cell = QSize(width, std::max(metrics.lineSpacing(), 1));
  result.ascent = metrics.ascent();
  return result;
}

} // namespace desktop
