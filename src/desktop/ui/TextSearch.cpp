// SPDX-License-Identifier: MIT
#include "desktop/ui/TextSearch.h"

namespace desktop {

SearchHit findText(const QTextDocument& document, const QTextCursor& from, const QString& text,
                   SearchDirection direction, bool matchCase) {
  if (text.isEmpty())
    return {};
  QTextDocument::FindFlags flags;
  flags.setFlag(QTextDocument::FindCaseSensitively, matchCase);
  flags.setFlag(QTextDocument::FindBackward, direction == SearchDirection::Backward);
  const QTextCursor near = document.find(text, from, flags);
  if (!near.isNull())
    return {near, false};
  // A cursor at the very end is where a backward search starts; position 0 is where a forward one does.
  const int farEnd = direction == SearchDirection::Forward ? 0 : document.characterCount() - 1;
  return {document.find(text, farEnd, flags), true};
}

} // namespace desktop
