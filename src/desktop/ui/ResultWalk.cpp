// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultWalk.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/StatusBar.h"
#include "desktop/ui/Workspace.h"

#include <QFileInfo>
#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace desktop {

namespace {

// Selects the place's text, or else puts the caret there, as far as the text has such a place. What was out of sight
// comes to the middle, so that the lines around it are seen as well.
void selectPlace(TEditControl& editor, const FoundPlace& place) {
  const QTextBlock wanted = editor.document()->findBlockByNumber(place.line - 1);
  const QTextBlock block = wanted.isValid() ? wanted : editor.document()->lastBlock();
  const int begin = std::clamp(place.unit, 0, block.length() - 1);
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + begin);
  cursor.setPosition(block.position() + std::min(begin + place.length, block.length() - 1), QTextCursor::KeepAnchor);
  const int top = editor.topLine();
  const int lines = editor.viewSize().height();
  editor.setTextCursor(cursor); // which scrolls as little as needed
  const int row = editor.caretRow();
  if (row < top || row >= top + lines)
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

void ResultWalk::go(int row, TEditWindow* window, const QString& note) {
  setCurrentRow(row);
  const FoundPlace place = list_.place(row);
  if (Page* const page = list_.page(row)) {
    workspace_.showPage(page);
    show(page, place, note);
    return;
  }
  const QFileInfo file(place.fileName);
  if (workspace_.findPage(place.fileName) == nullptr && !file.isFile()) {
    const QString reason = file.isDir() ? tr("%1 is a folder and has no text.") : tr("%1 is no longer there.");
    window->messageBar()->addMessage(MessageBar::Kind::Warning, reason.arg(place.fileName));
    return;
  }
  // A large file is there later, when the user may have gone on to another place.
  workspace_.openings().open(window, place.fileName, [self = QPointer(this), row, place, note](Page* page) {
    if (self && self->current_ == row)
      self->show(page, place, note);
  });
}

void ResultWalk::show(Page* page, const FoundPlace& place, const QString& note) {
  TEditControl& editor = *page->window()->editor();
  if (!page->isCurrent())
    return;
  selectPlace(editor, place);
  editor.setFocus(Qt::OtherFocusReason);
  const QString which = tr("%L1 of %L2: %3").arg(current_ + 1).arg(list_.count()).arg(place.text.trimmed());
  page->window()->statusBar()->showNote(note + which);
}

} // namespace desktop
