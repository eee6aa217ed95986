// SPDX-License-Identifier: MIT
// What a typed character does to the text.
#pragma once

#include "desktop/edit/Indentation.h"

#include <QTextCursor>

#include <optional>

namespace desktop {

// Whether typing the code point `character` puts it into the text as it is; control characters do not.
bool isTyped(char32_t character);

// Types the code point `character` at the cursor, replacing the selection, as one undo step: 13 breaks the line, 9 is
// the Tab key, which indents the lines of a selection that spans several. What cannot be typed changes nothing.
// `column` is the cursor's screen column (from 1) if it is known; it must be none with a selection. Returns the column
// afterwards if it can be told without counting.
std::optional<int> typeCharacter(QTextCursor& cursor, char32_t character, const IndentOptions& options,
                                 std::optional<int> column = std::nullopt);

} // namespace desktop
