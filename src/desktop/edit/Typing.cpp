// SPDX-License-Identifier: MIT
#include "desktop/edit/Typing.h"

#include <QChar>
#include <QString>

namespace desktop {

bool isTyped(char32_t character) {
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return !control && character <= QChar::LastValidCodePoint && !QChar::isSurrogate(character);
}

std::optional<int> typeCharacter(QTextCursor& cursor, char32_t character, const IndentOptions& options,
                                 std::optional<int> column) {
  if (character == U'\t' && !spansLines(cursor))
    return insertTab(cursor, options, column);
  if (isTyped(character)) {
    cursor.insertText(QString::fromUcs4(&character, 1));
    return column ? std::optional(*column + 1) : std::nullopt;
  }
  if (character == U'\r') {
    breakLine(cursor);
    return std::nullopt;
  }
  if (character == U'\t')
    indentLines(cursor, options);
  return column;
}

} // namespace desktop
