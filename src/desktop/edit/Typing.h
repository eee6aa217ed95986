// SPDX-License-Identifier: MIT
// What a typed character does to the text.
#pragma once

#include "desktop/edit/Indentation.h"

#include <QTextCursor>

namespace desktop {

// Whether typing the code point `character` puts it into the text as it is; control characters do not.
bool isTyped(char32_t character);

// Types the code point `character` at the cursor, replacing the selection, as one undo step: 13 breaks the line, 9 is
// the Tab key, which indents the lines of a selection that spans several. What cannot be typed changes nothing.
void typeCharacter(QTextCursor& cursor, char32_t character, const IndentOptions& options);

} // namespace desktop
