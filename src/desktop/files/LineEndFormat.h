// SPDX-License-Identifier: MIT
// Where a line break keeps the line end it stands for.
//
// It is a property of the break's own character format, not of the block's format: a text document that joins two lines
// keeps now the one, now the other block's format, and pasting replaces it, but the format of a character goes and
// comes back with that character. A line whose end is not the document's usual one carries the property on its
// characters as well, so that a break typed among them inherits it.
#pragma once

#include "text/LineEnds.h"

#include <QTextFormat>

namespace desktop {

inline constexpr int lineEndProperty = QTextFormat::UserProperty + 1;

// The format of the characters and the break of a line that ends in `end`.
inline QTextCharFormat lineEndFormat(quorvane::TLineEnd end, quorvane::TLineEnd usual) {
  QTextCharFormat format;
  if (end != usual)
    format.setProperty(lineEndProperty, static_cast<int>(end));
  return format;
}

// The line end of a break of format `format`.
inline quorvane::TLineEnd lineEndOfBreak(const QTextCharFormat& format, quorvane::TLineEnd usual) {
  const int end = format.intProperty(lineEndProperty); // 0, which is None, where it is not set
  return end == 0 ? usual : static_cast<quorvane::TLineEnd>(end);
}

static_assert(static_cast<int>(quorvane::TLineEnd::None) == 0);

} // namespace desktop
