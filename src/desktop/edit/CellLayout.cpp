// SPDX-License-Identifier: MIT
#include "desktop/edit/CellLayout.h"

#include <QTextBlock>
#include <QTextLayout>

namespace desktop {

namespace {

// How far left of its place a caret lies that is put away, in logical pixels.
constexpr int awayBy = 1'000'000;

} // namespace

CellLayout::CellLayout(QTextDocument* document) : QPlainTextDocumentLayout(document) {}

// Each of the settings walks over all lines to bring an existing layout up to date, so the layout is put in last.
CellLayout* CellLayout::install(QTextDocument& document, const DocumentLook& look, QPaintDevice* device) {
  document.setDocumentLayout(nullptr);
  document.setDocumentMargin(0);
  document.setDefaultFont(look.font);
  document.setDefaultTextOption(look.option);
  auto* const layout = new CellLayout(&document);
  layout->setPaintDevice(device);
  document.setDocumentLayout(layout);
  return layout;
}

void CellLayout::setCell(int height, int ascent) {
  height_ = height;
  ascent_ = ascent;
}

// The thin line is drawn in the middle of the caret's width.
void CellLayout::setCaretAway(bool away) {
  caretAway_ = away;
  setCursorWidth(away ? -2 * awayBy : 0);
}

// The text widget paints as far as the document and the caret together are wide.
QSizeF CellLayout::documentSize() const {
  QSizeF size = QPlainTextDocumentLayout::documentSize();
  if (caretAway_)
    size.rwidth() += 3 * awayBy;
  return size;
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
