// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/TextView.h"

#include <QChar>
#include <QString>

#include <cstddef>
#include <string_view>

namespace desktop {

// Calls `visit(line, last)` for every line of a document's raw text, which has all characters as they are and a
// paragraph separator for each break; no line can hold one.
template <class TVisit> void forEachRawLine(const QString& raw, const TVisit& visit) {
  const std::u16string_view text = textView(raw);
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(QChar::ParagraphSeparator, start);
    const bool last = end == std::u16string_view::npos;
    visit(text.substr(start, end - start), last);
    if (last)
      return;
    start = end + 1;
  }
}

} // namespace desktop
