// SPDX-License-Identifier: MIT
// The stack of position markers: places in source files that are gone back to one after the other.
#pragma once

#include "platform/Errors.h"
#include "platform/ota/Editor.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace quorvane {

// A place in a source file. Main thread only.
class IQVMarker {
public:
  virtual ~IQVMarker();

  // The file in which the marker was dropped, under the name that it has now.
  virtual QString GetFileName() const = 0;
  // The line, from 1. It follows the text while the file is open.
  virtual std::int32_t GetRow() const = 0;
  // The screen column at which the marker was dropped, from 1.
  virtual std::int32_t GetCol() const = 0;
  // Ends following the text and lets go of the view. Does nothing without a view.
  virtual void Detach() = 0;
  // The view that shows the marker, or null when its page has been closed.
  virtual std::shared_ptr<platform::IOTAEditView> GetEditView() const = 0;
};

// A marker that lets the line tracker of its buffer tell it where its line goes. Views are held weakly: a marker
// outlives the page on which it was dropped, and is followed again from its row once the file is open again. Until then
// it holds the buffer, which knows the last name of its file: a page may get one while it is being closed.
class TQVMarker final : public IQVMarker,
                        public platform::IOTAEditLineNotifier,
                        public std::enable_shared_from_this<TQVMarker> {
public:
  // A marker at the caret of `view`, which must be open.
  static std::shared_ptr<TQVMarker> Create(const std::shared_ptr<platform::IOTAEditView>& view);
  ~TQVMarker() override;

  QString GetFileName() const override;
  std::int32_t GetRow() const override { return Row; }
  std::int32_t GetCol() const override { return Col; }
  void Detach() override;
  std::shared_ptr<platform::IOTAEditView> GetEditView() const override;

  // Follows the text of `view` from the marker's row on.
  void Attach(const std::shared_ptr<platform::IOTAEditView>& view);
  int GetLine() const override { return Row; }
  void LineChanged(int oldLine, int newLine, int data) override;

private:
  explicit TQVMarker(platform::IOTAEditView& view);

  QString FileName; // as it was when the marker was detached
  std::int32_t Row;
  std::int32_t Col;
  std::shared_ptr<platform::IOTAEditBuffer> Buffer;   // null once the marker is detached
  mutable std::weak_ptr<platform::IOTAEditView> View; // forgotten when it is found to be closed
  std::int32_t NotifierIndex = -1;                    // of the tracker of the view's buffer
};

// Receives one marker: its row, its screen column, both from 1, and the number to show for it, which is its place in
// the stack from 1: the highest is the next to be picked up.
using TQVMarkerStackCallback = std::function<void(std::int32_t row, std::int32_t col, std::int32_t count)>;

// For the case that there is no marker. No operation raises it: picking up from an empty stack does nothing.
class ENoBookmarkException final : public platform::Exception {
public:
  using Exception::Exception;
};

// A last-in-first-out stack of markers. One serves the whole process. Main thread only.
class IQVMarkerStack {
public:
  virtual ~IQVMarkerStack();

  // Drops a marker at the caret of `view`, which must be open.
  virtual void Push(const std::shared_ptr<platform::IOTAEditView>& view) = 0;
  // Picks the top marker up: its page comes to the front, opened if need be, the caret moves to the marker, clipped to
  // the text, and the marker is gone. When the file cannot be shown any more, or only as plain text, the user is told,
  // the caret stays where it is, and the marker is gone all the same; so it is when the host fails. Does nothing on an
  // empty stack.
  virtual void Pop() = 0;
  // Reports the markers of `fileName` whose row lies between `firstLine` and `lastLine`, both included, in the order in
  // which they were pushed.
  virtual void Enumerate(const QString& fileName, std::int32_t firstLine, std::int32_t lastLine,
                         const TQVMarkerStackCallback& callback) const = 0;
  virtual std::int32_t Count() const = 0;
  // Turns the order of the top `count` markers round.
  virtual void ReverseTop(std::int32_t count) = 0;
  // Lets the markers of the file in `view` whose own view has been closed follow its text; the file may have been
  // opened by another of its names. To be called before the text of a newly opened view is edited; cheap enough for
  // every key and paint, since a view that was the last to be resumed is done.
  virtual void Resume(const std::shared_ptr<platform::IOTAEditView>& view) = 0;
};

class TQVMarkerStack final : public IQVMarkerStack {
public:
  TQVMarkerStack();
  // Detaches the markers, the first first.
  ~TQVMarkerStack() override;

  void Push(const std::shared_ptr<platform::IOTAEditView>& view) override;
  void Pop() override;
  void Enumerate(const QString& fileName, std::int32_t firstLine, std::int32_t lastLine,
                 const TQVMarkerStackCallback& callback) const override;
  std::int32_t Count() const override;
  void ReverseTop(std::int32_t count) override;
  void Resume(const std::shared_ptr<platform::IOTAEditView>& view) override;

private:
  std::vector<std::shared_ptr<TQVMarker>> Markers; // the last is the top
  std::weak_ptr<platform::IOTAEditView> Resumed;   // the view resumed last
  QString ResumedName;                             // and the name of its file then
};

// The one stack; null while the unit is not started, and then there are no markers.
extern std::shared_ptr<IQVMarkerStack> QVMarkerStackManager;

// Start and stop of the unit.
void StartQVMarkerStack();
void StopQVMarkerStack();

} // namespace quorvane
