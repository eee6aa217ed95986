// SPDX-License-Identifier: MIT
#include "desktop/edit/TrailingBlanks.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace desktop {

namespace {

int lengthWithoutTrailingBlanks(const QString& line) {
  const auto last = std::find_if(line.crbegin(), line.crend(), [](QChar c) { return c != u' ' && c != u'\t'; });
  return static_cast<int>(line.crend() - last);
}

} // namespace

bool trimTrailingBlanks(QTextDocument& document) {
  QTextCursor cursor(&document);
  bool isChanged = false;
  for (QTextBlock line = document.begin(); line.isValid(); line = line.next()) {
    const int kept = lengthWithoutTrailingBlanks(line.text());
    if (kept == line.length() - 1)
      continue;
    if (!isChanged)
      cursor.beginEditBlock();
    isChanged = true;
    cursor.setPosition(line.position() + kept);
    cursor.setPosition(line.position() + line.length() - 1, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
  }
  if (isChanged)
    cursor.endEditBlock();
  return isChanged;
}

} // namespace desktop
