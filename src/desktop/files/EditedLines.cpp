// SPDX-License-Identifier: MIT
#include "desktop/files/EditedLines.h"

#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace desktop {

EditedLines::EditedLines(const QTextDocument& document)
    : document_(document), settledRevision_(document.revision()), heardCharacters_(document.characterCount()) {
  connect(&document_, &QTextDocument::contentsChange, this, &EditedLines::noteChange);
  connect(&document_, &QTextDocument::contentsChanged, this, &EditedLines::settle);
}

std::optional<EditedLines::Kept> EditedLines::take() {
  return std::exchange(kept_, Kept());
}

// The range may reach beyond the text, since the document counts its very last line end at times.
void EditedLines::noteChange(int position, int removed, int added) {
  if (document_.revision() != settledRevision_ + 1)
    kept_.reset();
  reportedRevision_ = document_.revision();
  heardCharacters_ += added - removed;
  if (!kept_)
    return;
  const QTextBlock last = document_.findBlock(position + added);
  const int after = last.isValid() ? document_.blockCount() - 1 - last.blockNumber() : 0;
  kept_->first = std::clamp(document_.findBlock(position).blockNumber(), 0, kept_->first);
  kept_->last = std::min(after, kept_->last);
}

void EditedLines::settle() {
  const bool heard = isSettled() || document_.revision() == reportedRevision_;
  if (!heard || heardCharacters_ != document_.characterCount())
    kept_.reset();
  settledRevision_ = document_.revision();
  heardCharacters_ = document_.characterCount();
  Q_EMIT settled();
}

} // namespace desktop
