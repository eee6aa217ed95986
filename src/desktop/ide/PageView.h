// SPDX-License-Identifier: MIT
// A page as add-ins see and move in it.
#pragma once

#include "desktop/ide/PageBuffer.h"
#include "desktop/ide/PageCaret.h"
#include "platform/ota/Editor.h"

#include <QPointer>
#include <QTextCursor>

#include <memory>

namespace desktop {

class Page;
class TEditControl;

// The view of one page, and its caret as something that moves. While the page is not in front of its window the caret
// and the scroll position are those with which it will come back. When the page has been closed every operation raises
// EViewClosed.
class PageView : public platform::IOTAEditView,
                 public platform::IOTAEditPosition,
                 public std::enable_shared_from_this<PageView> {
public:
  PageView(Page& page, std::shared_ptr<PageBuffer> buffer, std::shared_ptr<platform::INTAEditWindow> window);
  ~PageView() override;

  std::shared_ptr<platform::IOTAEditBuffer> GetBuffer() override;
  std::shared_ptr<platform::INTAEditWindow> GetEditWindow() override;
  std::shared_ptr<platform::IOTAEditPosition> GetPosition() override;
  platform::TOTAEditPos GetCursorPos() override;
  void SetCursorPos(const platform::TOTAEditPos& position) override;
  platform::TOTAEditPos GetTopPos() override;
  int GetLeftColumn() override;
  QSize GetViewSize() override;
  void ConvertPos(bool editPosToCharPos, platform::TOTAEditPos& editPos, platform::TOTACharPos& charPos) override;
  std::int32_t CharPosToPos(const platform::TOTACharPos& position) override;
  platform::TOTACharPos PosToCharPos(std::int32_t position) override;
  void MoveViewToCursor() override;
  void SetTopLeft(int row, int column) override;
  void Paint() override;

  int GetRow() const override;
  int GetColumn() const override;
  void Move(int row, int column) override;
  void GotoLine(int row) override;
  void MoveEOF() override;
  void InsertCharacter(char32_t character) override;
  void BackspaceDelete(int count) override;

private:
  enum class Scrolling { None, ToCaret };

  Page& page() const;
  TEditControl& control() const;
  // The text of line `line` (from 1); empty outside the text.
  QString lineText(int line) const;
  // The caret with its selection; inside an undo group the one that the page will have.
  QTextCursor caret() const;
  void setCaret(const QTextCursor& caret, Scrolling scrolling);
  LineColumn placeAt(int row, int column) const;
  // Changes the text at the caret, unless it can only be read. `change` takes the caret, which it moves, and its column
  // if that is known, and returns the column afterwards if that is known then.
  template <class TChange> void edit(TChange&& change);

  QPointer<Page> page_;
  std::shared_ptr<PageBuffer> buffer_;
  std::shared_ptr<platform::INTAEditWindow> window_;
};

} // namespace desktop
