// SPDX-License-Identifier: MIT
#include "desktop/files/FileArgument.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace desktop {

namespace {

// The longer name first, since that one may have a number at its end.
const QRegularExpression& form(bool withColumn) {
  static const QRegularExpression line(QStringLiteral("\\A(.+):([0-9]+):?\\z"),
                                       QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression lineAndColumn(QStringLiteral("\\A(.+):([0-9]+):([0-9]+):?\\z"),
                                                QRegularExpression::DotMatchesEverythingOption);
  return withColumn ? lineAndColumn : line;
}

} // namespace

FileArgument readFileArgument(const QString& argument) {
  if (QFileInfo::exists(argument))
    return {argument, {}};
  for (const bool withColumn : {false, true}) {
    const QRegularExpressionMatch match = form(withColumn).match(argument);
    if (!match.hasMatch() || !QFileInfo::exists(match.captured(1)))
      continue;
    // A number that is too large is none, and becomes 0.
    const CaretPlace place{match.captured(2).toInt(), withColumn ? match.captured(3).toInt() : 1};
    if (place.line >= 1 && place.column >= 1)
      return {match.captured(1), place};
  }
  return {argument, {}};
}

} // namespace desktop
