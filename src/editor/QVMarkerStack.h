// SPDX-License-Identifier: MIT
// The stack of position markers as the editor proxy sees it.
#pragma once

#include "platform/ota/Editor.h"

#include <QString>

#include <functional>
#include <memory>

namespace quorvane {

// Receives one marker: its row and its column (a character column), both from 1, and the number to show for it.
using TQVMarkerStackCallback = std::function<void(int row, int col, int count)>;

// A last-in-first-out stack of source positions. One serves the whole process. Main thread only.
class IQVMarkerStack {
public:
  virtual ~IQVMarkerStack();

  // Drops a marker at the caret of `view`, which must not be null.
  virtual void Push(const std::shared_ptr<platform::IOTAEditView>& view) = 0;
  // Picks the top marker up: the caret moves to it, and it is gone. Does nothing on an empty stack.
  virtual void Pop() = 0;
  // Reports the markers of `fileName` whose row lies between `firstLine` and `lastLine`, both included, in the order in
  // which they were pushed.
  virtual void Enumerate(const QString& fileName, int firstLine, int lastLine,
                         const TQVMarkerStackCallback& callback) const = 0;
  virtual int Count() const = 0;
  // Turns the order of the top `count` markers round.
  virtual void ReverseTop(int count) = 0;
};

// The one stack; null while nobody offers one, and then there are no markers.
extern std::shared_ptr<IQVMarkerStack> QVMarkerStackManager;

} // namespace quorvane
