// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultWalk.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/StatusBar.h"
#include "desktop/ui/Workspace.h"

#include <QFileInfo>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace desktop {

namespace {

// Selects the place's text, or else puts the caret there, as far as the text has such a place.
void select(TEditControl& editor, const FoundPlace& place) {
  const QTextBlock wanted = editor.document()->findBlockByNumber(place.line - 1);
  const QTextBlock block = wanted.isValid() ? wanted : editor.document()->lastBlock();
  const int begin = std::clamp(place.unit, 0, block.length() - 1);
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + begin);
  cursor.setPosition(block.position() + std::min(begin + place.length, block.length() - 1), QTextCursor::KeepAnchor);
  editor.setTextCursor(cursor);
}

// What is out of sight comes to the middle, so that the lines around it are seen as well.
void bringIntoSight(TEditControl& editor) {
  const int row = editor.caretRow();
  const int lines = editor.viewSize().height();
  if (row < editor.topLine() || row >= editor.topLine() + lines)
    editor.setTopLine(std::max(row - lines / 2, 1));
  editor.showCaret();
}

} // namespace

ResultWalk::ResultWalk(Workspace& workspace, ResultList& list)
    : QObject(&workspace), workspace_(workspace), list_(list) {
  connect(&list, &ResultList::modelReset, this, [this] { setCurrentRow(-1); });
}

void ResultWalk::setCurrentRow(int row) {
  current_ = row;
  Q_EMIT currentRowChanged(row);
}

void ResultWalk::goToNext(TEditWindow* window) {
  const bool wraps = current_ + 1 >= list_.count();
  if (list_.count() > 0)
    go(wraps ? 0 : current_ + 1, window, wraps ? tr("Reached the end, went on from the top. ") : QString());
}

void ResultWalk::goToPrevious(TEditWindow* window) {
  const bool wraps = current_ == 0;
  if (list_.count() > 0)
    go(current_ <= 0 ? list_.count() - 1 : current_ - 1, window,
       wraps ? tr("Reached the top, went on from the end. ") : QString());
}

// Null, which `window` then says, if the file cannot be opened.
Page* ResultWalk::open(int row, TEditWindow* window) {
  if (Page* const page = list_.page(row))
    return page;
  const QString fileName = list_.place(row).fileName;
  if (workspace_.findPage(fileName) == nullptr && !QFileInfo(fileName).isFile()) {
    window->messageBar()->addMessage(MessageBar::Kind::Warning, tr("%1 is no longer there.").arg(fileName));
    return nullptr;
  }
  return workspace_.openFileIn(window, fileName);
}

bool ResultWalk::go(int row, TEditWindow* window, const QString& note) {
  setCurrentRow(row);
  Page* const page = open(row, window);
  if (page == nullptr)
    return false;
  workspace_.showPage(page);
  const FoundPlace place = list_.place(row);
  TEditControl& editor = *page->window()->editor();
  select(editor, place);
  bringIntoSight(editor);
  editor.setFocus(Qt::OtherFocusReason);
  page->window()->statusBar()->showNote(note +
                                        tr("%L1 of %L2: %3").arg(row + 1).arg(list_.count()).arg(place.text.trimmed()));
  return true;
}

} // namespace desktop
