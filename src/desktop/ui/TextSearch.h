// SPDX-License-Identifier: MIT
// Finding a text in a document, round the end if need be.
#pragma once

#include <QTextCursor>
#include <QTextDocument>

namespace desktop {

enum class SearchDirection { Forward, Backward };

struct SearchHit {
  QTextCursor match;    // selects what was found; null when the document does not hold the text
  bool wrapped = false; // it was found only after going on at the other end
};

// The next occurrence of `text` in `document` before or after the selection of `from`. An empty text is not found.
SearchHit findText(const QTextDocument& document, const QTextCursor& from, const QString& text,
                   SearchDirection direction, bool matchCase);

} // namespace desktop
