// SPDX-License-Identifier: MIT
#include "desktop/ui/MonospacedFonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>

namespace desktop {

namespace {

// The system does not know it of every font. Measuring all of them would take too long, but their names tell.
bool isMonospaced(const QString& family) {
  if (QFontDatabase::isFixedPitch(family))
    return true;
  if (!family.contains(QStringLiteral("Mono"), Qt::CaseInsensitive))
    return false;
  const QFontMetricsF metrics{QFont(family)};
  const QString others = QStringLiteral("iMw.@0");
  return std::ranges::all_of(others, [&metrics, width = metrics.horizontalAdvance(u'm')](QChar character) {
    return metrics.horizontalAdvance(character) == width;
  });
}

} // namespace

QStringList monospacedFamilies() {
  QStringList families;
  for (const QString& family : QFontDatabase::families(QFontDatabase::Latin)) {
    if (!QFontDatabase::isPrivateFamily(family) && isMonospaced(family))
      families.append(family);
  }
  return families;
}

} // namespace desktop
