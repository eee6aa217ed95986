// SPDX-License-Identifier: MIT
#include "desktop/files/TextSnapshot.h"

#include "desktop/files/RawLines.h"

#include <cstddef>
#include <utility>

namespace desktop {

using quorvane::TLineEnd;

TextSnapshot::TextSnapshot(QString raw, TLineEnd usual, std::vector<TLineEnd> ends)
    : raw_(std::move(raw)), usual_(usual), ends_(std::move(ends)) {}

void TextSnapshot::forEachLine(const LineVisitor& visit) const {
  std::size_t number = 0;
  forEachRawLine(raw_, [&](std::u16string_view line, bool last) {
    if (last)
      visit(line, TLineEnd::None);
    else
      visit(line, ends_.empty() ? usual_ : ends_.at(number++));
  });
}

std::u16string TextSnapshot::text() const {
  std::u16string text;
  // A break is one character here and at most two there.
  text.reserve(static_cast<std::size_t>(raw_.size()) + static_cast<std::size_t>(raw_.size()) / 16);
  forEachLine([&text](std::u16string_view line, TLineEnd end) {
    text += line;
    text += quorvane::LineEndText(end);
  });
  return text;
}

} // namespace desktop
