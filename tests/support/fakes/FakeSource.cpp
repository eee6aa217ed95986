// SPDX-License-Identifier: MIT
#include "support/fakes/FakeSource.h"

#include <algorithm>
#include <utility>

namespace fakes {

namespace {

class FakeReader : public platform::IOTAEditReader {
public:
  explicit FakeReader(std::shared_ptr<FakeBuffer> buffer) : buffer_(std::move(buffer)), text_(buffer_->Text) {}

  int GetText(int position, char* buffer, int count) override {
    if (buffer_->ReadError)
      std::rethrow_exception(buffer_->ReadError);
    const auto size = static_cast<int>(text_.size());
    const int given = std::clamp(size - position, 0, count);
    std::copy_n(text_.data() + std::min(position, size), given, buffer);
    buffer_->Requests.push_back({position, count, given});
    return given;
  }

private:
  std::shared_ptr<FakeBuffer> buffer_;
  std::string text_;
};

class FakeBufferOptions : public platform::IOTABufferOptions {
public:
  explicit FakeBufferOptions(int width) : width_(width) {}
  int GetLeftGutterWidth() const override { return width_; }

private:
  int width_;
};

class FakePosition : public platform::IOTAEditPosition {
public:
  explicit FakePosition(std::shared_ptr<FakeView> view) : view_(std::move(view)) {}
  int GetRow() const override { return view_->Cursor.Line; }
  int GetColumn() const override { return view_->Cursor.Col; }
  void Move(int row, int column) override {
    view_->Cursor = {static_cast<std::int16_t>(column), row};
    view_->MoveViewToCursor();
  }
  void GotoLine(int row) override { Move(row, 1); }
  void MoveEOF() override {
    const platform::TOTACharPos end = view_->PosToCharPos(static_cast<std::int32_t>(view_->Buffer->Text.size()));
    platform::TOTACharPos character = end;
    platform::TOTAEditPos cell;
    view_->ConvertPos(false, cell, character);
    Move(cell.Line, cell.Col);
  }
  void InsertCharacter(char32_t character) override {
    if (view_->Buffer->ReadOnly)
      return;
    const std::string_view line = view_->Buffer->Line(view_->Cursor.Line);
    const std::size_t indentation = std::min(line.find_first_not_of(" \t"), line.size());
    const std::string typed = character == U'\r' ? "\r\n" + std::string(line.substr(0, std::min(indentation, Index())))
                                                 : std::string(1, static_cast<char>(character));
    const std::size_t place = Place();
    view_->Buffer->Text.insert(place, typed);
    MoveTo(place + typed.size());
  }
  void BackspaceDelete(int count) override {
    if (view_->Buffer->ReadOnly)
      return;
    std::string& text = view_->Buffer->Text;
    std::size_t place = Place();
    for (; count > 0 && place > 0; --count) {
      const std::size_t length = std::string_view(text).substr(0, place).ends_with("\r\n") ? 2 : 1;
      text.erase(place -= length, length);
    }
    MoveTo(place);
  }

private:
  // The caret as an index into its line, and into the text.
  std::size_t Index() const {
    platform::TOTAEditPos cell = view_->Cursor;
    platform::TOTACharPos character;
    view_->ConvertPos(true, cell, character);
    return std::min(static_cast<std::size_t>(character.CharIndex), view_->Buffer->Line(cell.Line).size());
  }
  std::size_t Place() const { return view_->Buffer->LineStart(view_->Cursor.Line) + Index(); }
  void MoveTo(std::size_t place) {
    platform::TOTACharPos character = view_->PosToCharPos(static_cast<std::int32_t>(place));
    view_->ConvertPos(false, view_->Cursor, character);
  }

  std::shared_ptr<FakeView> view_;
};

class FakeUndoGroup : public platform::IOTAUndoGroup {
public:
  explicit FakeUndoGroup(std::shared_ptr<FakeBuffer> buffer) : buffer_(std::move(buffer)) {
    ++buffer_->OpenGroups;
    ++buffer_->GroupsOpened;
  }
  ~FakeUndoGroup() override { --buffer_->OpenGroups; }

private:
  std::shared_ptr<FakeBuffer> buffer_;
};

} // namespace

int FakeLineTracker::LiveNotifiers() const {
  return static_cast<int>(std::ranges::count_if(Notifiers, [](const auto& notifier) { return !notifier.expired(); }));
}

void FakeLineTracker::MoveLine(int oldLine, int newLine) {
  for (TrackedLine& tracked : Lines) {
    if (tracked.Line != oldLine)
      continue;
    tracked.Line = newLine;
    for (const auto& notifier : std::vector(Notifiers)) {
      if (const auto listening = notifier.lock())
        listening->LineChanged(oldLine, newLine, tracked.Data);
    }
  }
}

int FakeLineTracker::IndexOfLine(int line) const {
  const auto found = std::ranges::find(Lines, line, &TrackedLine::Line);
  return found == Lines.end() ? -1 : static_cast<int>(found - Lines.begin());
}

int FakeLineTracker::AddNotifier(const std::shared_ptr<platform::IOTAEditLineNotifier>& notifier) {
  Notifiers.push_back(notifier);
  return static_cast<int>(Notifiers.size()) - 1;
}

FakeBuffer::FakeBuffer(QString fileName, std::string text) : FileName(std::move(fileName)), Text(std::move(text)) {}

std::size_t FakeBuffer::LineStart(int line) const {
  std::size_t start = 0;
  for (int current = 1; current < line; ++current) {
    const std::size_t end = Text.find('\n', start);
    if (end == std::string::npos)
      return Text.size();
    start = end + 1;
  }
  return start;
}

std::string_view FakeBuffer::Line(int line) const {
  const std::string_view rest = std::string_view(Text).substr(LineStart(line));
  const std::string_view whole = rest.substr(0, rest.find('\n'));
  return whole.ends_with('\r') ? whole.substr(0, whole.size() - 1) : whole;
}

std::shared_ptr<platform::IOTAEditReader> FakeBuffer::CreateReader() {
  return std::make_shared<FakeReader>(shared_from_this());
}

std::shared_ptr<platform::IOTABufferOptions> FakeBuffer::GetBufferOptions() {
  return std::make_shared<FakeBufferOptions>(LeftGutterWidth);
}

std::shared_ptr<platform::IOTAUndoGroup> FakeBuffer::BeginUndoGroup() {
  return std::make_shared<FakeUndoGroup>(shared_from_this());
}

FakeView::FakeView(std::shared_ptr<FakeBuffer> buffer, QWidget* form)
    : Buffer(std::move(buffer)), Window(std::make_shared<FakeWindow>(form)) {}

std::shared_ptr<platform::IOTAEditPosition> FakeView::GetPosition() {
  return std::make_shared<FakePosition>(shared_from_this());
}

// The cell (from 0) after the one that `character` starts at.
int FakeView::NextCell(std::string_view line, int character, int cell) const {
  const bool tab =
      static_cast<std::size_t>(character) < line.size() && line[static_cast<std::size_t>(character)] == '\t';
  return tab ? (cell / TabWidth + 1) * TabWidth : cell + 1;
}

void FakeView::ConvertPos(bool editPosToCharPos, platform::TOTAEditPos& editPos, platform::TOTACharPos& charPos) {
  const std::string_view line = Buffer->Line(editPosToCharPos ? editPos.Line : charPos.Line);
  int cell = 0;
  int character = 0;
  if (editPosToCharPos) {
    while (NextCell(line, character, cell) < editPos.Col)
      cell = NextCell(line, character++, cell);
    charPos = {static_cast<std::int16_t>(character), editPos.Line};
  } else {
    while (character < charPos.CharIndex)
      cell = NextCell(line, character++, cell);
    editPos = {static_cast<std::int16_t>(cell + 1 + std::min<int>(charPos.CharIndex, 0)), charPos.Line};
  }
}

std::int32_t FakeView::CharPosToPos(const platform::TOTACharPos& position) {
  const std::size_t index = static_cast<std::size_t>(std::max<int>(position.CharIndex, 0));
  return static_cast<std::int32_t>(Buffer->LineStart(position.Line) +
                                   std::min(index, Buffer->Line(position.Line).size()));
}

platform::TOTACharPos FakeView::PosToCharPos(std::int32_t position) {
  const std::string_view before = std::string_view(Buffer->Text).substr(0, static_cast<std::size_t>(position));
  const auto line = static_cast<std::int32_t>(std::ranges::count(before, '\n')) + 1;
  return {static_cast<std::int16_t>(before.size() - Buffer->LineStart(line)), line};
}

} // namespace fakes
