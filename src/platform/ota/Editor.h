// SPDX-License-Identifier: MIT
// Source text as the host lets an add-in see and move in it: buffers, views, positions, readers.
//
// Text is served with each character (code point) as exactly one byte: ASCII as it is, Latin-1 as its code, anything
// beyond as 0xBF, and every line end as CR LF. So character indexes and linear positions count bytes of the served text
// whatever the file's encoding; the host keeps the real text, and nothing that was served is ever written back.
//
// A buffer is an open file, a view shows it on a page of an editor window. Both objects outlive their page: when it has
// been closed, every operation but a comparison raises EViewClosed. There is one view object per window and page while
// the page is open, so views are compared by identity. Main thread only.
#pragma once

#include "platform/Export.h"
#include "platform/ota/Interface.h"

#include <QSize>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <memory>

namespace platform {

// An edit position: a cell of the screen, tabs expanded. Columns beyond 32,767 are narrowed by a cast.
struct TOTAEditPos {
  std::int16_t Col = 0;  // from 1
  std::int32_t Line = 0; // from 1

  friend bool operator==(const TOTAEditPos&, const TOTAEditPos&) = default;
};

// A character position: a character of a line, a tab being one. Indexes beyond 32,767 are narrowed by a cast.
struct TOTACharPos {
  std::int16_t CharIndex = 0; // from 0
  std::int32_t Line = 0;      // from 1

  friend bool operator==(const TOTACharPos&, const TOTACharPos&) = default;
};

// Reads the served text of a buffer as it was when the reader was created.
class VIRELLE_PLATFORM IOTAEditReader : public virtual IInterface {
public:
  ~IOTAEditReader() override;
  // Copies up to `count` bytes from linear position `position` (from 0) to `buffer`. Returns the number copied, which
  // is less than `count` only at the end of the text, and 0 beyond it.
  virtual int GetText(int position, char* buffer, int count) = 0;
};

// How a buffer is shown.
class VIRELLE_PLATFORM IOTABufferOptions : public virtual IInterface {
public:
  ~IOTABufferOptions() override;
  // Width of the host's own gutter left of the text, in logical pixels; 0 when it is hidden.
  virtual int GetLeftGutterWidth() const = 0;
};

// How the host's editor looks.
class VIRELLE_PLATFORM IOTAEditOptions : public virtual IInterface {
public:
  ~IOTAEditOptions() override;
  virtual QString GetFontName() const = 0;
  // In points.
  virtual int GetFontSize() const = 0;
};

// The caret of a view as something that moves.
class VIRELLE_PLATFORM IOTAEditPosition : public virtual IInterface {
public:
  ~IOTAEditPosition() override;
  // Row from 1; column as a screen column from 1, tabs expanded.
  virtual int GetRow() const = 0;
  virtual int GetColumn() const = 0;
  // Moves the caret, clipped to the text, and scrolls so that it can be seen.
  virtual void Move(int row, int column) = 0;
  // Moves as Move does, to the start of row `row`.
  virtual void GotoLine(int row) = 0;
  // Moves as Move does, behind the last character of the text.
  virtual void MoveEOF() = 0;
};

class IOTAEditView;

// An open file, or a module's part, of any kind.
class VIRELLE_PLATFORM IOTAEditor : public virtual IInterface {
public:
  ~IOTAEditor() override;
  // The absolute name of the file; for a page that was never saved a name of the host's making, ending in ".pas".
  virtual QString GetFileName() const = 0;
};

// An open source file.
class VIRELLE_PLATFORM IOTAEditBuffer : public virtual IOTAEditor {
public:
  ~IOTAEditBuffer() override;
  // A reader over the text as it is now. Cheap: the served text is kept per revision of the document.
  virtual std::shared_ptr<IOTAEditReader> CreateReader() = 0;
  virtual std::shared_ptr<IOTABufferOptions> GetBufferOptions() = 0;
  virtual bool GetIsModified() const = 0;
  // The view that shows this buffer, or null.
  virtual std::shared_ptr<IOTAEditView> GetTopView() = 0;
};

// An editor window.
class VIRELLE_PLATFORM INTAEditWindow : public virtual IInterface {
public:
  ~INTAEditWindow() override;
  // The window's form, or null when it has been destroyed. Owned by the host.
  virtual QWidget* GetForm() const = 0;
};

// A page of an editor window that shows a buffer.
class VIRELLE_PLATFORM IOTAEditView : public virtual IInterface {
public:
  ~IOTAEditView() override;
  virtual std::shared_ptr<IOTAEditBuffer> GetBuffer() = 0;
  virtual std::shared_ptr<INTAEditWindow> GetEditWindow() = 0;
  virtual std::shared_ptr<IOTAEditPosition> GetPosition() = 0;

  virtual TOTAEditPos GetCursorPos() = 0;
  // Moves the caret, clipped to the text, without scrolling.
  virtual void SetCursorPos(const TOTAEditPos& position) = 0;
  // The first visible cell. LeftColumn is 1 when the view is scrolled fully left.
  virtual TOTAEditPos GetTopPos() = 0;
  virtual int GetLeftColumn() = 0;
  // Visible columns (width) and lines (height), at least 1 each.
  virtual QSize GetViewSize() = 0;

  // Converts between the two kinds of position on the same line, expanding tabs: from `editPos` to `charPos` when
  // `editPosToCharPos`, else the other way. Beyond the end of the line each cell is one character. A cell inside an
  // expanded tab belongs to the tab.
  virtual void ConvertPos(bool editPosToCharPos, TOTAEditPos& editPos, TOTACharPos& charPos) = 0;
  // The linear position (from 0) of a character position, clipped to the text; and back.
  virtual std::int32_t CharPosToPos(const TOTACharPos& position) = 0;
  virtual TOTACharPos PosToCharPos(std::int32_t position) = 0;

  // Scrolls as little as needed for the caret to be seen.
  virtual void MoveViewToCursor() = 0;
  // Scrolls so that the cell `column` of row `row`, both from 1, is the first visible one, or as near to that as the
  // text allows. The caret stays.
  virtual void SetTopLeft(int row, int column) = 0;
  // Repaints the view at once.
  virtual void Paint() = 0;
};

} // namespace platform
