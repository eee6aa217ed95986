// SPDX-License-Identifier: MIT
#include "desktop/ide/PageView.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/edit/Typing.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/files/TextView.h"
#include "desktop/ide/PageCaret.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "platform/Errors.h"
#include "text/ServedText.h"

#include <QTextBlock>

#include <algorithm>
#include <optional>
#include <utility>

namespace desktop {

using platform::TOTACharPos;
using platform::TOTAEditPos;

PageView::PageView(Page& page, std::shared_ptr<PageBuffer> buffer, std::shared_ptr<platform::INTAEditWindow> window)
    : page_(&page), buffer_(std::move(buffer)), window_(std::move(window)) {}
PageView::~PageView() = default;

Page& PageView::page() const {
  if (!page_)
    throw platform::EViewClosed();
  return *page_;
}

TEditControl& PageView::control() const {
  return *page().window()->editor();
}

QString PageView::lineText(int line) const {
  return page().document()->findBlockByNumber(line - 1).text();
}

std::shared_ptr<platform::IOTAEditBuffer> PageView::GetBuffer() {
  (void)page();
  return buffer_;
}

std::shared_ptr<platform::INTAEditWindow> PageView::GetEditWindow() {
  (void)page();
  return window_;
}

std::shared_ptr<platform::IOTAEditPosition> PageView::GetPosition() {
  (void)page();
  return shared_from_this();
}

QTextCursor PageView::caret() const {
  const auto group = buffer_->undoGroup();
  return group != nullptr ? group->caret() : caretOf(page());
}

void PageView::setCaret(const QTextCursor& caret, Scrolling scrolling) {
  const bool scrolls = scrolling == Scrolling::ToCaret;
  if (const auto group = buffer_->undoGroup())
    group->setCaret(caret, scrolls);
  else
    putCaret(page(), caret, scrolls);
}

int PageView::GetRow() const {
  (void)page();
  return caret().blockNumber() + 1;
}

int PageView::GetColumn() const {
  (void)page();
  const auto group = buffer_->undoGroup();
  if (group != nullptr && group->column())
    return *group->column();
  const QTextCursor cursor = caret();
  const int column = columnOfUnit(cursor.block().text(), cursor.positionInBlock(), control().tabWidth());
  if (group != nullptr)
    group->rememberColumn(column);
  return column;
}

TOTAEditPos PageView::GetCursorPos() {
  return {static_cast<std::int16_t>(GetColumn()), GetRow()};
}

// Clipped to the text. Who goes along a line inside a group passes over it only once.
LineColumn PageView::placeAt(int row, int column) const {
  const SourceDocument& document = *page().document();
  const QTextBlock block = document.findBlockByNumber(std::clamp(row, 1, document.blockCount()) - 1);
  const int clipped = std::max(column, 1);
  const auto group = buffer_->undoGroup();
  const std::optional<int> known = group != nullptr ? group->column() : std::nullopt;
  if (known && *known <= clipped && group->caret().block() == block)
    return goOnTo(clipped, {group->caret(), *known}, control().tabWidth());
  return goOnTo(clipped, {QTextCursor(block), 1}, control().tabWidth());
}

void PageView::SetCursorPos(const TOTAEditPos& position) {
  setCaret(placeAt(position.Line, position.Col).cursor, Scrolling::None);
}

void PageView::Move(int row, int column) {
  const LineColumn place = placeAt(row, column);
  setCaret(place.cursor, Scrolling::ToCaret);
  if (const auto group = buffer_->undoGroup())
    group->rememberColumn(place.column);
}

void PageView::GotoLine(int row) {
  Move(row, 1);
}

void PageView::MoveEOF() {
  QTextCursor cursor(page().document());
  cursor.movePosition(QTextCursor::End);
  setCaret(cursor, Scrolling::ToCaret);
}

void PageView::MoveViewToCursor() {
  if (const auto group = buffer_->undoGroup())
    group->setCaret(group->caret(), true);
  else
    scrollToCaret(page());
}

template <class TChange> void PageView::edit(TChange&& change) {
  if (page().document()->isReadOnlyText())
    return;
  QTextCursor cursor = caret();
  const auto group = buffer_->undoGroup();
  const auto before = group != nullptr && !cursor.hasSelection() ? group->column() : std::nullopt;
  const int start = cursor.selectionStart();
  const std::optional<int> column = change(cursor, before);
  if (group != nullptr)
    group->forgetBreaksBehind(std::min(start, cursor.position()));
  setCaret(cursor, Scrolling::ToCaret);
  if (group != nullptr && column)
    group->rememberColumn(*column);
  buffer_->settleLines();
}

void PageView::InsertCharacter(char32_t character) {
  edit([&](QTextCursor& cursor, std::optional<int> column) {
    if (character == U'\r' && column)
      buffer_->undoGroup()->rememberBreak(*column);
    return typeCharacter(cursor, character, control().indentOptions(), column);
  });
}

void PageView::BackspaceDelete(int count) {
  edit([&](QTextCursor& cursor, std::optional<int> column) {
    cursor.beginEditBlock();
    for (int deleted = 0; deleted < count && (cursor.hasSelection() || !cursor.atStart()); ++deleted) {
      const bool isOneCell = !cursor.atBlockStart() && cursor.document()->characterAt(cursor.position() - 1) != u'\t';
      column = column && isOneCell ? std::optional(*column - 1) : std::nullopt;
      cursor.deletePreviousChar();
    }
    cursor.endEditBlock();
    return column;
  });
}

void PageView::SetTopLeft(int row, int column) {
  if (page().isCurrent()) {
    control().setTopLine(row);
    control().setLeftColumn(column);
    return;
  }
  EditState state = page().state();
  state.topLine = std::clamp(row, 1, page().document()->blockCount()) - 1;
  state.leftCell = std::max(column, 1) - 1;
  page().setState(state);
}

TOTAEditPos PageView::GetTopPos() {
  return {static_cast<std::int16_t>(GetLeftColumn()), page().state().topLine + 1};
}

int PageView::GetLeftColumn() {
  return page().state().leftCell + 1;
}

QSize PageView::GetViewSize() {
  return control().viewSize();
}

void PageView::ConvertPos(bool editPosToCharPos, TOTAEditPos& editPos, TOTACharPos& charPos) {
  const int tabWidth = control().tabWidth();
  if (editPosToCharPos) {
    charPos.CharIndex = static_cast<std::int16_t>(charIndexOfColumn(lineText(editPos.Line), editPos.Col, tabWidth));
    charPos.Line = editPos.Line;
  } else {
    editPos.Col = static_cast<std::int16_t>(columnOfCharIndex(lineText(charPos.Line), charPos.CharIndex, tabWidth));
    editPos.Line = charPos.Line;
  }
}

std::int32_t PageView::CharPosToPos(const TOTACharPos& position) {
  const SourceDocument& document = *page().document();
  if (position.Line < 1)
    return 0;
  if (position.Line > document.blockCount())
    return static_cast<std::int32_t>(document.servedText()->size());
  const auto length = static_cast<int>(quorvane::ServedLength(textView(lineText(position.Line))));
  return static_cast<std::int32_t>(document.servedLineStart(position.Line - 1)) +
         std::clamp<int>(position.CharIndex, 0, length);
}

TOTACharPos PageView::PosToCharPos(std::int32_t position) {
  const SourceDocument& document = *page().document();
  const auto clipped = std::min(static_cast<std::size_t>(std::max(position, 0)), document.servedText()->size());
  const int line = document.lineOfServedPosition(clipped);
  // Both bytes of a line end are the end of their line.
  const std::size_t index =
      std::min(clipped - document.servedLineStart(line), quorvane::ServedLength(textView(lineText(line + 1))));
  return {static_cast<std::int16_t>(index), line + 1};
}

void PageView::Paint() {
  if (page().isCurrent())
    control().Repaint();
}

} // namespace desktop
