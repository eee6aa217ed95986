// SPDX-License-Identifier: MIT
#include "desktop/ide/PageUndoGroup.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ide/PageCaret.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"

namespace desktop {

PageUndoGroup::PageUndoGroup(Page& page, const QTextCursor& caret)
    : page_(&page), control_(page.window()->editor()), caret_(caret), block_(caret_),
      stepsBefore_(page.document()->availableUndoSteps()) {
  control_->holdPainting();
  block_.beginEditBlock();
}

PageUndoGroup::~PageUndoGroup() {
  if (page_)
    endBlock();
  if (control_)
    control_->releasePainting();
  if (page_ && hasCaret_)
    putCaret(*page_, caret_, scrolls_);
}

// What is typed next right behind the last insertion would be joined to it, and be undone with the group. A change that
// changes nothing stands in between.
void PageUndoGroup::endBlock() {
  block_.clearSelection();
  if (page_->document()->availableUndoSteps() != stepsBefore_)
    block_.setBlockFormat(block_.blockFormat());
  block_.endEditBlock();
}

void PageUndoGroup::setCaret(const QTextCursor& caret, bool scrolls) {
  caret_ = caret;
  column_.reset();
  hasCaret_ = true;
  scrolls_ = scrolls_ || scrolls;
}

void PageUndoGroup::forgetBreaksBehind(int position) {
  while (!breaks_.empty() && breaks_.back().position > position)
    breaks_.pop_back();
}

std::optional<int> PageUndoGroup::column() const {
  if (column_ && column_->position == caret_.position())
    return column_->column;
  if (!breaks_.empty() && breaks_.back().position == caret_.position())
    return breaks_.back().column;
  return std::nullopt;
}

} // namespace desktop
