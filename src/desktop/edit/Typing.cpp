// SPDX-License-Identifier: MIT
#include "desktop/edit/Typing.h"

#include <QChar>
#include <QString>

namespace desktop {

bool isTyped(char32_t character) {
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return !control && character <= QChar::LastValidCodePoint && !QChar::isSurrogate(character);
}

void typeCharacter(QTextCursor& cursor, char32_t character, const IndentOptions& options) {
  if (character == U'\r')
    breakLine(cursor);
  else if (character == U'\t' && spansLines(cursor))
    indentLines(cursor, options);
  else if (character == U'\t')
    insertTab(cursor, options);
  else if (isTyped(character))
    cursor.insertText(QString::fromUcs4(&character, 1));
}

} // namespace desktop
