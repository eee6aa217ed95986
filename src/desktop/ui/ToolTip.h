// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextDocument>

namespace desktop {

// A tool tip that says `plain` as it is. Qt takes for markup what looks like it, and wraps only markup.
inline QString toolTipOf(const QString& plain) {
  constexpr int longestLine = 100;
  return plain.size() > longestLine || Qt::mightBeRichText(plain)
             ? QStringLiteral("<qt>%1</qt>").arg(plain.toHtmlEscaped())
             : plain;
}

} // namespace desktop
