// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPlainTextDocumentLayout>
#include <QTextOption>

namespace desktop {

// What a document takes from the control that shows it.
struct DocumentLook {
  QFont font;
  QTextOption option; // tab stops, and whether blanks are shown
};

// Lays a document out in lines of one height.
//
// A line that holds a glyph of a fallback font (a character that the editor font lacks) would become taller than the
// others and move everything below it off its row. Here every line is as high as a cell and stands on the same base
// line.
class CellLayout : public QPlainTextDocumentLayout {
  Q_OBJECT

public:
  explicit CellLayout(QTextDocument* document);

  // Gives `document` that look and a layout of this class, measured on `device`, or on none as yet. Returns the layout,
  // which the document owns. Linear in the lines, so it can be done in the thread that a long document is made in.
  static CellLayout* install(QTextDocument& document, const DocumentLook& look, QPaintDevice* device = nullptr);

  // The height of every line and the distance from its top to the base line, in logical pixels.
  void setCell(int height, int ascent);

  // Whether the caret is put where it cannot be seen. A caret without width is not drawn, but for device pixel ratios
  // between whole numbers, where Qt makes a thin line of it. To be set only while the text is painted.
  void setCaretAway(bool away);

  QRectF blockBoundingRect(const QTextBlock& block) const override;
  QSizeF documentSize() const override;

private:
  int height_ = 1;
  int ascent_ = 0;
  bool caretAway_ = false;
};

} // namespace desktop
