// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/TrackedLines.h"
#include "platform/ota/Editor.h"

#include <QPointer>

#include <map>
#include <memory>
#include <vector>

namespace desktop {

class Page;

// The tracked lines of one page, and who hears of them.
class PageLineTracker : public platform::IOTAEditLineTracker {
public:
  explicit PageLineTracker(Page& page);
  ~PageLineTracker() override;

  void AddLine(int line, int data) override;
  int IndexOfLine(int line) const override;
  void Delete(int index) override;
  int AddNotifier(const std::shared_ptr<platform::IOTAEditLineNotifier>& notifier) override;
  void RemoveNotifier(int index) override;

  // Reports what the edits of a group that is still open have moved.
  void settle();

private:
  void requirePage() const;
  void tell(const std::vector<LineMove>& moves);

  QPointer<Page> page_;
  std::unique_ptr<TrackedLines> lines_; // of a document that may be gone when the page is
  std::map<int, std::weak_ptr<platform::IOTAEditLineNotifier>> notifiers_;
  int nextNotifier_ = 0;
};

} // namespace desktop
