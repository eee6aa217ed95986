// SPDX-License-Identifier: MIT
// The paint pass of the proxy: what is drawn over the host's picture, and when.
#include "editor/QVEditorDraw.h"
#include "editor/QVEditorProxy.h"
#include "editor/QVMarkerStack.h"
#include "host/QVLog.h"
#include "host/QVOTAServices.h"
#include "host/QVSourceUtils.h"
#include "platform/Errors.h"
#include "settings/model/QVOptions.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace quorvane {

namespace {

// The message number of a pass that the host knows nothing of.
constexpr unsigned kOnDemand = platform::WM_USER;

// Line numbers are written this much smaller than the text.
constexpr int kLineNumberPointsLess = 2;

// Columns beyond either edge of the view from which a number may reach into it: it is drawn over what is right of it,
// and at the start of a tab if its marker stands in one.
constexpr int kColumnsBeyondView = 64;

platform::TOTACharPos CharPosOf(const TQVLitePasElement& element) {
  return {static_cast<std::int16_t>(element.Column), element.Line};
}

// Whether the caret is just before the opening bracket or just after the closing one. Its screen column is compared
// with the bracket's character index, so behind tabs the test looks at another place than the mark goes to. Intended.
bool Touches(const platform::TOTAEditPos& caret, const TQVLitePasElement& open, const TQVLitePasElement& close) {
  return (caret.Line == open.Line && caret.Col - 1 == CharPosOf(open).CharIndex) ||
         (caret.Line == close.Line && caret.Col - 2 == CharPosOf(close).CharIndex);
}

} // namespace

void TQVEditorProxy::DrawActionExecute() {
  if (Painted)
    return;
  platform::TMessage message;
  message.Msg = kOnDemand;
  PaintEditor(message);
  Painted = true;
}

void TQVEditorProxy::PaintEditor(platform::TMessage& message) {
  const auto view = GetOTAEditView();
  const auto buffer = view ? view->GetBuffer() : nullptr;
  const bool ours = buffer && IsPascalFile(buffer->GetFileName());
  if (message.Msg != kOnDemand && !Forward(message))
    return;
  // Drawing on demand lets the host bring its picture up to date first, which arrives here as a paint inside the pass:
  // that one is the host's alone, and the pass under way draws the additions.
  if (!ours || painting_)
    return;
  const QScopedValueRollback painting(painting_, true);
  BlockColorIndex = 0;
  PaintStructure(*buffer);
  PaintMarkers(*view);
  if (OptShowLineNumbers && OptLinesInGutter)
    PaintLineNumbers(DrawingCanvas());
}

void TQVEditorProxy::PaintStructure(platform::IOTAEditBuffer& buffer) {
  GetSourceFromReader(buffer.CreateReader(), source_);
  try {
    caret_ = {EdGetCaretX(), EdGetCaretY()};
    LiteParser->ParseFull(source_.c_str());
  } catch (...) {
    // A drawing that fails ends the marks of this pass, nothing else: the host has painted, and the pass goes on.
  }
}

void TQVEditorProxy::PaintMarkers(platform::IOTAEditView& view) {
  if (!QVMarkerStackManager)
    return;
  const int top = EdGetTopLine();
  const int lineCount = EdGetLineCount();
  const int left = view.GetLeftColumn() - kColumnsBeyondView;
  const int right = view.GetLeftColumn() + view.GetViewSize().width() + kColumnsBeyondView;
  const auto paint = [&](int row, int col, int count) {
    platform::TOTAEditPos cell{static_cast<std::int16_t>(col), row};
    // A file that has become shorter since may lack the line, and what is further right is no position for the host.
    if (row > lineCount || cell.Col != col || col < left || col > right)
      return;
    platform::TOTACharPos character;
    view.ConvertPos(true, cell, character);
    PaintSubInteger(cell.Line, character.CharIndex + 1, count);
  };
  QVMarkerStackManager->Enumerate(view.GetBuffer()->GetFileName(), top, top + EdGetLinesInWindow(), paint);
}

void TQVEditorProxy::PaintBlock(std::span<const TQVLitePasElement>) {
  // Blocks are reported but not painted. Intended: the block options are stored and edited, and have no effect here.
}

void TQVEditorProxy::ProcessRounds(std::span<const TQVLitePasElement> elements) {
  if (!OptMarkParens)
    return;
  const TQVLitePasElement& open = elements[0];
  const TQVLitePasElement& close = elements[1];
  if (!Touches(caret_, open, close))
    return;
  Log(QStringLiteral("Drawing Parens"));
  DrawCursorBlockAt(CharPosOf(open), 1, TQVCellColor::Paren);
  DrawCursorBlockAt(CharPosOf(close), 1, TQVCellColor::Paren);
}

void TQVEditorProxy::DrawCursorBlockAt(const platform::TOTAEditPos& position, int cells, TQVCellColor color) {
  platform::TWinControl& control = Control();
  platform::TCanvas& canvas = DrawingCanvas();
  const auto level = static_cast<unsigned>(BlockColorIndex) % OptBlockHiliteColors.size();
  const platform::TColor fill = color == TQVCellColor::Paren ? OptParenMatchColor : OptBlockHiliteColors[level];
  DrawCells(canvas, control.Canvas(), CursorToPixel(position, TQVCellEdge::Top), cells, fill, control.Color());
}

void TQVEditorProxy::DrawCursorBlockAt(const platform::TOTACharPos& position, int cells, TQVCellColor color) {
  DrawCursorBlockAt(ToEditPos(position), cells, color);
}

void TQVEditorProxy::PaintSubInteger(int line, int column, int value) {
  const platform::TOTACharPos marked{static_cast<std::int16_t>(column - 1), line};
  const QPoint corner = CursorToPixel(marked, TQVCellEdge::Bottom) - QPoint(EdGetColWidth() / 2, EdGetLineHeight() / 2);
  DrawSubInteger(DrawingCanvas(), corner, value);
}

void TQVEditorProxy::UnderlineErr(std::int32_t column, std::int32_t line, std::int32_t length) {
  (void)Control();
  platform::TCanvas& canvas = DrawingCanvas();
  const QPoint start =
      CursorToPixel(platform::TOTACharPos{static_cast<std::int16_t>(column), line}, TQVCellEdge::Bottom);
  // What is right of the canvas cannot be seen; a token may be as long as its file.
  const std::int64_t endX = start.x() + std::int64_t{EdGetColWidth()} * length;
  DrawZigzag(canvas, start, static_cast<int>(std::min<std::int64_t>(endX, canvas.Width())));
}

void TQVEditorProxy::PaintLineNumbers(platform::TCanvas& canvas) {
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  const auto options = OTAEditorServices()->GetEditOptions();
  DrawLineNumbers(canvas, {.Width = view->GetBuffer()->GetBufferOptions()->GetLeftGutterWidth(),
                           .LineHeight = EdGetLineHeight(),
                           .TopLine = EdGetTopLine(),
                           .LinesInWindow = EdGetLinesInWindow(),
                           .LineCount = EdGetLineCount(),
                           .CaretLine = EdGetCaretY(),
                           .FontName = options->GetFontName(),
                           .FontSize = options->GetFontSize() - kLineNumberPointsLess,
                           .Color = OptLineNumberColor});
}

} // namespace quorvane
