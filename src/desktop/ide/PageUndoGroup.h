// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ota/Editor.h"

#include <QPointer>
#include <QTextCursor>

#include <optional>
#include <vector>

namespace desktop {

class Page;
class TEditControl;

// An edit block of a page's document, open for as long as the group lives.
//
// Inside an edit block the document's layout is out of date. So the window's control is neither painted nor moved, and
// the group has the caret with which the page goes on afterwards.
class PageUndoGroup : public platform::IOTAUndoGroup {
public:
  // Begins with `caret` as the caret of `page`.
  PageUndoGroup(Page& page, const QTextCursor& caret);
  ~PageUndoGroup() override;

  const QTextCursor& caret() const { return caret_; }
  // Where the page's caret will be; `scrolls` if it is to be in sight then.
  void setCaret(const QTextCursor& caret, bool scrolls);

  // The caret's screen column (from 1) if it is known. Counting the cells of a line takes time in proportion to its
  // length; who types a long line and looks at the column after each character remembers it here.
  std::optional<int> column() const;
  void rememberColumn(int column) const { column_ = {caret_.position(), column}; }
  // Remembers the caret's column, which is known, also for when the line that is about to be broken there is whole
  // again.
  void rememberBreak(int column) { breaks_.push_back({caret_.position(), column}); }
  // Forgets what an edit from `position` on may have changed.
  void forgetBreaksBehind(int position);

private:
  void endBlock();

  QPointer<Page> page_;
  QPointer<TEditControl> control_;
  QTextCursor caret_;
  QTextCursor block_; // the edit block
  int stepsBefore_;   // the document's undo steps when it began
  struct Column {
    int position; // of the caret for which it holds
    int column;
  };
  mutable std::optional<Column> column_;
  std::vector<Column> breaks_; // where lines have been broken, in the order of the text
  bool hasCaret_ = false;
  bool scrolls_ = false;
};

} // namespace desktop
