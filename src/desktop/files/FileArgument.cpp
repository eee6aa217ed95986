// SPDX-License-Identifier: MIT
#include "desktop/files/FileArgument.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace desktop {

FileArgument readFileArgument(const QString& argument) {
  static const QRegularExpression form(QStringLiteral("\\A(.+?):([0-9]+)(?::([0-9]+))?:?\\z"),
                                       QRegularExpression::DotMatchesEverythingOption);
  if (QFileInfo::exists(argument))
    return {argument, {}};
  const QRegularExpressionMatch match = form.match(argument);
  if (!match.hasMatch() || !QFileInfo::exists(match.captured(1)))
    return {argument, {}};
  bool isNumber = true; // and not too large for one
  CaretPlace place;
  place.line = match.captured(2).toInt(&isNumber);
  if (isNumber && match.hasCaptured(3))
    place.column = match.captured(3).toInt(&isNumber);
  if (!isNumber || place.line < 1 || place.column < 1)
    return {argument, {}};
  return {match.captured(1), place};
}

} // namespace desktop
