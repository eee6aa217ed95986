// SPDX-License-Identifier: MIT
// Between Qt's strings and the text library's.
#pragma once

#include <QString>

#include <cstddef>
#include <string_view>

namespace desktop {

// The units of `text` itself, which must outlive the view.
inline std::u16string_view textView(const QString& text) {
  return {reinterpret_cast<const char16_t*>(text.constData()), static_cast<std::size_t>(text.size())};
}

// A string over the units of `text` itself, which must outlive the string and its copies.
inline QString borrowedText(std::u16string_view text) {
  return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

} // namespace desktop
