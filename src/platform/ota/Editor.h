// SPDX-License-Identifier: MIT
// Source text as the host lets an add-in see and move in it: buffers, views, positions, readers.
//
// Text is served with each character (code point) as exactly one byte: ASCII as it is, Latin-1 as its code, anything
// beyond as 0xBF, and every line end as CR LF. So character indexes and linear positions count bytes of the served text
// whatever the file's encoding; the host keeps the real text, and nothing that was served is ever written back.
//
// A buffer is an open file, a view shows it on a page of an editor window. Both objects outlive their page: when it has
// been closed, every operation raises EViewClosed, apart from comparisons and the buffer's GetFileName. There is one
// view object per window and page while the page is open, so views are compared by identity. Main thread only.
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

  // Types `character`, a code point, as the keyboard does, but never sends WM_CHAR: 13 is Return and begins a line with
  // the indentation of the one before, 9 is Tab, a selection goes as it does for the key. It inserts also while the
  // user's typing overwrites. What cannot be typed (another control character, no code point) is ignored, as is
  // everything in a text that is only read. Scrolls to the caret; inside an undo group when that is closed.
  virtual void InsertCharacter(char32_t character) = 0;
  // Deletes as `count` presses of Backspace would that take exactly one character each, a line end being one: the first
  // takes the selection if there is one, and at the start of the text there is nothing more to take. Otherwise as
  // InsertCharacter.
  virtual void BackspaceDelete(int count) = 0;
};

// Hears of tracked lines that an edit has moved.
class VIRELLE_PLATFORM IOTAEditLineNotifier : public virtual IInterface {
public:
  ~IOTAEditLineNotifier() override;
  // The one line, from 1, of whose moves the notifier wants to hear; 0, unless it says otherwise, for every line. Asked
  // once an edit, before its moves are reported. Must not throw.
  virtual int GetLine() const { return 0; }
  // The line tracked as `oldLine` with `data` is `newLine` now; both from 1, and they differ. Must not edit the text.
  // What it throws goes to TApplication::HandleException.
  virtual void LineChanged(int oldLine, int newLine, int data) = 0;
};

// Follows lines of one buffer through insertions, deletions, undo and redo, whether or not its page is in front.
//
// An edit that puts whole lines in front of a tracked line moves it down with its text, as Return in its first column
// does; a line that is broken further right stays. A line that is joined to the one above it becomes that one, and one
// whose text is deleted the line where the deletion begins, until that edit is undone. Tracked lines that have become
// one line stay one.
//
// An edit is reported when it is complete; inside an undo group, after each call of InsertCharacter or BackspaceDelete.
// Each tracked line that has moved is reported once to every notifier that wants to hear of it: first those that moved
// down, the last line first, then those that moved up, the first line first. So a notifier that keeps a line's number
// never takes a line that has just been moved for one that is still to be moved. A line may be tracked more than once,
// also with several values; each value is reported once.
//
// Every operation raises EViewClosed when the page has been closed; notifiers hear of nothing then. Main thread only.
class VIRELLE_PLATFORM IOTAEditLineTracker : public virtual IInterface {
public:
  ~IOTAEditLineTracker() override;
  // Tracks line `line`, from 1, under a value of the caller's. A line outside the text is not tracked.
  virtual void AddLine(int line, int data) = 0;
  // The index (from 0) of the tracked line that was last reported, or added, as `line`; -1 when there is none. Of
  // several it is the one added last: one that was added before may have been elsewhere, and return there with undo.
  // The index holds until a line is added, deleted or moved.
  virtual int IndexOfLine(int line) const = 0;
  // Takes back one call of AddLine for the line at `index`, which must be in range.
  virtual void Delete(int index) = 0;
  // Reports to `notifier`, which is held weakly, until it is removed by the index returned. Indexes are not used again.
  virtual int AddNotifier(const std::shared_ptr<IOTAEditLineNotifier>& notifier) = 0;
  // Does nothing for an index that is not in use.
  virtual void RemoveNotifier(int index) = 0;
};

// While it lives, all edits of one buffer are a single step of undo and redo.
//
// Groups may be nested; the outermost counts. Its end lays the text out, colours it and scrolls to the caret, so close
// the group before moving the view. Asking for positions and for the text inside a group gives what is there at that
// moment; the window is painted after the group only. A page may be closed while a group is open.
class VIRELLE_PLATFORM IOTAUndoGroup : public virtual IInterface {
public:
  // Ends the group.
  ~IOTAUndoGroup() override;
};

class IOTAEditView;

// An open file, or a module's part, of any kind.
class VIRELLE_PLATFORM IOTAEditor : public virtual IInterface {
public:
  ~IOTAEditor() override;
  // The absolute name of the file; for a page that was never saved a name of the host's making, ending in ".pas", which
  // it gives to no other page. When the page has been closed, the last name that the file had.
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
  // Whether the text can only be read.
  virtual bool GetIsReadOnly() const = 0;
  // The one tracker of the buffer.
  virtual std::shared_ptr<IOTAEditLineTracker> GetEditLineTracker() = 0;
  // Opens a group of edits; let the handle go to close it.
  virtual std::shared_ptr<IOTAUndoGroup> BeginUndoGroup() = 0;
  // Brings the page to the front of its window and the window to the front of all, so that the buffer's view is the top
  // view when the call returns.
  virtual void Show() = 0;
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
