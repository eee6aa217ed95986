// SPDX-License-Identifier: MIT
// A page as add-ins see and move in it.
#pragma once

#include "desktop/ide/PageBuffer.h"
#include "platform/ota/Editor.h"

#include <QPointer>

#include <memory>

namespace desktop {

class Page;
class TEditControl;
struct EditState;

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

private:
  Page& page() const;
  TEditControl& control() const;
  // The text of line `line` (from 1); empty outside the text.
  QString lineText(int line) const;
  void setCaret(int row, int column);
  void scrollHiddenToCaret();

  QPointer<Page> page_;
  std::shared_ptr<PageBuffer> buffer_;
  std::shared_ptr<platform::INTAEditWindow> window_;
};

} // namespace desktop
