// SPDX-License-Identifier: MIT
// What the proxy reads of its edit control, and where text stands in it. Nothing here measures text: a column is the
// text area spread over the visible columns, a line the client height spread over the visible lines but one.
#include "editor/QVEditorProxy.h"

#include "platform/Errors.h"

#include <QVariant>

namespace quorvane {

namespace {

int LeftGutterWidth(platform::IOTAEditView& view) {
  return view.GetBuffer()->GetBufferOptions()->GetLeftGutterWidth();
}

} // namespace

platform::TWinControl* TQVEditorProxy::FindControl() const {
  return dynamic_cast<platform::TWinControl*>(EditControl.data());
}

platform::TWinControl& TQVEditorProxy::Control() const {
  platform::TWinControl* control = FindControl();
  platform::Require(control != nullptr, kUnit);
  return *control;
}

QVariant TQVEditorProxy::Published(const char* name) const {
  platform::Require(!EditControl.isNull(), kUnit);
  QVariant value = EditControl->property(name);
  platform::Require(value.isValid(), kUnit);
  return value;
}

template <class TOrdinal> TOrdinal TQVEditorProxy::PublishedOrdinal(const char* name) const {
  return static_cast<TOrdinal>(Published(name).toLongLong());
}

QString TQVEditorProxy::PublishedText(const char* name) const {
  return Published(name).toString();
}

std::int16_t TQVEditorProxy::EdGetCaretX() const {
  return PublishedOrdinal<std::int16_t>("CaretX");
}
std::int16_t TQVEditorProxy::EdGetCaretY() const {
  return PublishedOrdinal<std::int16_t>("CaretY");
}
int TQVEditorProxy::EdGetTopLine() const {
  return PublishedOrdinal<int>("TopLine");
}
int TQVEditorProxy::EdGetLinesInWindow() const {
  return PublishedOrdinal<int>("LinesInWindow");
}
int TQVEditorProxy::EdGetLineCount() const {
  return PublishedOrdinal<int>("LineCount");
}
int TQVEditorProxy::EdGetCharXIndex() const {
  return PublishedOrdinal<int>("CharXIndex");
}
int TQVEditorProxy::EdGetCursorAttribute() const {
  return PublishedOrdinal<int>("CursorAttribute");
}
std::int64_t TQVEditorProxy::EdGetBlockBegin() const {
  return PublishedOrdinal<std::int64_t>("BlockBegin");
}
std::int64_t TQVEditorProxy::EdGetBlockAfter() const {
  return PublishedOrdinal<std::int64_t>("BlockAfter");
}
std::int64_t TQVEditorProxy::EdGetSearchBegin() const {
  return PublishedOrdinal<std::int64_t>("SearchBegin");
}
std::int64_t TQVEditorProxy::EdGetSearchAfter() const {
  return PublishedOrdinal<std::int64_t>("SearchAfter");
}
int TQVEditorProxy::EdGetBorderStyle() const {
  return PublishedOrdinal<int>("BorderStyle");
}
QString TQVEditorProxy::EdGetLineText() const {
  return PublishedText("LineText");
}
QString TQVEditorProxy::EdGetHotlinkText() const {
  return PublishedText("HotlinkText");
}
int TQVEditorProxy::EdGetLeft() const {
  return PublishedOrdinal<int>("Left");
}
int TQVEditorProxy::EdGetTop() const {
  return PublishedOrdinal<int>("Top");
}
int TQVEditorProxy::EdGetWidth() const {
  return PublishedOrdinal<int>("Width");
}
int TQVEditorProxy::EdGetHeight() const {
  return PublishedOrdinal<int>("Height");
}
int TQVEditorProxy::EdGetTag() const {
  return PublishedOrdinal<int>("Tag");
}
int TQVEditorProxy::EdGetHelpContext() const {
  return PublishedOrdinal<int>("HelpContext");
}
int TQVEditorProxy::EdGetCursor() const {
  return PublishedOrdinal<int>("Cursor");
}
QString TQVEditorProxy::EdGetName() const {
  return PublishedText("Name");
}
QString TQVEditorProxy::EdGetHint() const {
  return PublishedText("Hint");
}
QString TQVEditorProxy::EdGetHelpKeyword() const {
  return PublishedText("HelpKeyword");
}

platform::TCanvas* TQVEditorProxy::EdGetCanvas() const {
  if (CanvasOverride)
    return CanvasOverride;
  platform::TWinControl* control = FindControl();
  return control ? &control->Canvas() : nullptr;
}

platform::TCanvas& TQVEditorProxy::DrawingCanvas() const {
  platform::TCanvas* canvas = EdGetCanvas();
  platform::Require(canvas != nullptr, kUnit);
  return *canvas;
}

int TQVEditorProxy::EdGetLineHeight() const {
  // The last line, partly visible, does not count. Intended.
  return platform::Divide(Control().ClientHeight(), EdGetLinesInWindow() - 1);
}

int TQVEditorProxy::EdGetColWidth() const {
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  return platform::Divide(EdGetWidth() - LeftGutterWidth(*view), view->GetViewSize().width());
}

QPoint TQVEditorProxy::CursorToPixel(const platform::TOTAEditPos& position, TQVCellEdge edge) const {
  platform::Require(!EditControl.isNull(), kUnit);
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  const int width = EdGetColWidth();
  const int height = EdGetLineHeight();
  const int x = position.Col * width + LeftGutterWidth(*view) - view->GetLeftColumn() * width;
  const int y = (position.Line - EdGetTopLine()) * height;
  return {x, edge == TQVCellEdge::Top ? y : y + height};
}

QPoint TQVEditorProxy::CursorToPixel(const platform::TOTACharPos& position, TQVCellEdge edge) const {
  return CursorToPixel(ToEditPos(position), edge);
}

platform::TOTAEditPos TQVEditorProxy::ToEditPos(platform::TOTACharPos position) const {
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  platform::TOTAEditPos cell;
  view->ConvertPos(false, cell, position);
  return cell;
}

std::int32_t TQVEditorProxy::LinearPos() const {
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  platform::TOTAEditPos caret = view->GetCursorPos();
  platform::TOTACharPos character;
  view->ConvertPos(true, caret, character);
  return view->CharPosToPos(character);
}

} // namespace quorvane
