// SPDX-License-Identifier: MIT
// A file and its view in memory.
#pragma once

#include "platform/ota/Editor.h"

#include <QPointer>

#include <string>
#include <string_view>
#include <vector>

namespace fakes {

// One request to a reader, and how many bytes it gave.
struct ReadRequest {
  int Position = 0;
  int Count = 0;
  int Given = 0;

  friend bool operator==(const ReadRequest&, const ReadRequest&) = default;
};

// The tracked lines and the notifiers of a buffer. Only MoveLine moves a line; edits of the text do not.
class FakeLineTracker : public platform::IOTAEditLineTracker {
public:
  struct TrackedLine {
    int Line = 0;
    int Data = 0;

    friend bool operator==(const TrackedLine&, const TrackedLine&) = default;
  };
  std::vector<TrackedLine> Lines;
  // By index; null where one has been removed.
  std::vector<std::weak_ptr<platform::IOTAEditLineNotifier>> Notifiers;

  // How many notifiers are registered and alive.
  int LiveNotifiers() const;
  // Each line tracked as `oldLine` becomes `newLine`, and the notifiers are told.
  void MoveLine(int oldLine, int newLine);

  void AddLine(int line, int data) override { Lines.push_back({line, data}); }
  int IndexOfLine(int line) const override;
  void Delete(int index) override { Lines.erase(Lines.begin() + index); }
  int AddNotifier(const std::shared_ptr<platform::IOTAEditLineNotifier>& notifier) override;
  void RemoveNotifier(int index) override { Notifiers.at(static_cast<std::size_t>(index)).reset(); }
};

// A file that is open with `Text` as its served text; a line ends with CR LF or LF.
class FakeBuffer : public platform::IOTAEditBuffer, public std::enable_shared_from_this<FakeBuffer> {
public:
  explicit FakeBuffer(QString fileName, std::string text = {});

  QString FileName;
  std::string Text;
  int LeftGutterWidth = 0;
  bool Modified = false;
  bool ReadOnly = false;
  std::shared_ptr<FakeLineTracker> Tracker = std::make_shared<FakeLineTracker>();
  int OpenGroups = 0;   // undo groups open at present
  int GroupsOpened = 0; // and ever opened
  int Shown = 0;        // how often it was brought to the front
  // What its readers were asked.
  std::vector<ReadRequest> Requests;
  // When set, a read throws this instead.
  std::exception_ptr ReadError;
  std::weak_ptr<platform::IOTAEditView> View;

  // Line `line` from 1, without its line end; empty beyond the text.
  std::string_view Line(int line) const;
  // The linear position of the start of that line, or the end of the text beyond it.
  std::size_t LineStart(int line) const;

  QString GetFileName() const override { return FileName; }
  std::shared_ptr<platform::IOTAEditReader> CreateReader() override;
  std::shared_ptr<platform::IOTABufferOptions> GetBufferOptions() override;
  bool GetIsModified() const override { return Modified; }
  bool GetIsReadOnly() const override { return ReadOnly; }
  std::shared_ptr<platform::IOTAEditLineTracker> GetEditLineTracker() override { return Tracker; }
  std::shared_ptr<platform::IOTAUndoGroup> BeginUndoGroup() override;
  void Show() override { ++Shown; }
  std::shared_ptr<platform::IOTAEditView> GetTopView() override { return View.lock(); }
};

// The window of a view. Form may be null.
class FakeWindow : public platform::INTAEditWindow {
public:
  explicit FakeWindow(QWidget* form) : Form(form) {}
  QPointer<QWidget> Form;
  QWidget* GetForm() const override { return Form; }
};

// A view of a buffer with a caret; tabs reach to multiples of TabWidth. What is typed goes into the buffer's text: a
// line end with the indentation of the line before, any other character (up to 0xFF) as it is.
class FakeView : public platform::IOTAEditView, public std::enable_shared_from_this<FakeView> {
public:
  FakeView(std::shared_ptr<FakeBuffer> buffer, QWidget* form);

  std::shared_ptr<FakeBuffer> Buffer;
  std::shared_ptr<FakeWindow> Window; // may be set to null
  platform::TOTAEditPos Cursor{1, 1};
  platform::TOTAEditPos TopPos{1, 1};
  QSize ViewSize{80, 30};
  int TabWidth = 8;
  int Moves = 0;  // how often the view was moved to the caret
  int Paints = 0; // how often it was asked to paint

  std::shared_ptr<platform::IOTAEditBuffer> GetBuffer() override { return Buffer; }
  std::shared_ptr<platform::INTAEditWindow> GetEditWindow() override { return Window; }
  std::shared_ptr<platform::IOTAEditPosition> GetPosition() override;
  platform::TOTAEditPos GetCursorPos() override { return Cursor; }
  void SetCursorPos(const platform::TOTAEditPos& position) override { Cursor = position; }
  platform::TOTAEditPos GetTopPos() override { return TopPos; }
  int GetLeftColumn() override { return TopPos.Col; }
  QSize GetViewSize() override { return ViewSize; }
  void ConvertPos(bool editPosToCharPos, platform::TOTAEditPos& editPos, platform::TOTACharPos& charPos) override;
  std::int32_t CharPosToPos(const platform::TOTACharPos& position) override;
  platform::TOTACharPos PosToCharPos(std::int32_t position) override;
  void MoveViewToCursor() override { ++Moves; }
  // Sets TopPos as it is asked to.
  void SetTopLeft(int row, int column) override { TopPos = {static_cast<std::int16_t>(column), row}; }
  void Paint() override { ++Paints; }

private:
  int NextCell(std::string_view line, int character, int cell) const;
};

} // namespace fakes
