// SPDX-License-Identifier: MIT
#include "desktop/ide/PageUndoGroup.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ide/PageCaret.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"

#include <utility>

namespace desktop {

PageUndoGroup::PageUndoGroup(Page& page, QTextCursor caret)
    : page_(&page), control_(page.window()->editor()), caret_(std::move(caret)), block_(caret_) {
  control_->holdPainting();
  block_.beginEditBlock();
}

PageUndoGroup::~PageUndoGroup() {
  block_.endEditBlock(); // does nothing when the document is gone
  if (control_)
    control_->releasePainting();
  if (page_ && hasCaret_)
    putCaret(*page_, caret_, scrolls_);
}

void PageUndoGroup::setCaret(const QTextCursor& caret, bool scrolls) {
  caret_ = caret;
  hasCaret_ = true;
  scrolls_ = scrolls_ || scrolls;
}

} // namespace desktop
