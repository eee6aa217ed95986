// SPDX-License-Identifier: MIT
#include "desktop/edit/CellLayout.h"

#include <QTextBlock>
#include <QTextLayout>

namespace desktop {

CellLayout::CellLayout(QTextDocument* document) : QPlainTextDocumentLayout(document) {}

void CellLayout::setCell(int height, int ascent) {
  height_ = height;
  ascent_ = ascent;
}

QRectF CellLayout::blockBoundingRect(const QTextBlock& block) const {
  const QRectF natural = QPlainTextDocumentLayout::blockBoundingRect(block);
  if (!block.isValid() || !block.isVisible() || block.layout()->lineCount() == 0)
    return natural;
  QTextLine line = block.layout()->lineAt(0);
  const qreal shift = ascent_ - line.ascent();
  if (line.y() != shift)
    line.setPosition(QPointF(line.x(), shift));
  return {0, 0, natural.width(), static_cast<qreal>(height_)};
}

} // namespace desktop
