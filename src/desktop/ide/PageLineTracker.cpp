// SPDX-License-Identifier: MIT
#include "desktop/ide/PageLineTracker.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Page.h"
#include "platform/Application.h"
#include "platform/Errors.h"

#include <unordered_map>

namespace desktop {

PageLineTracker::PageLineTracker(Page& page)
    : page_(&page), lines_(std::make_unique<TrackedLines>(
                        *page.document(), [this](const std::vector<LineMove>& moves) { tell(moves); })) {}
PageLineTracker::~PageLineTracker() = default;

void PageLineTracker::requirePage() const {
  if (!page_)
    throw platform::EViewClosed();
}

void PageLineTracker::AddLine(int line, int data) {
  requirePage();
  lines_->add(line - 1, data);
}

int PageLineTracker::IndexOfLine(int line) const {
  requirePage();
  return lines_->indexOf(line - 1);
}

void PageLineTracker::Delete(int index) {
  requirePage();
  platform::Require(index >= 0 && index < lines_->size(), "PageLineTracker", "Index out of range");
  lines_->remove(index);
}

int PageLineTracker::AddNotifier(const std::shared_ptr<platform::IOTAEditLineNotifier>& notifier) {
  requirePage();
  notifiers_.emplace(nextNotifier_, notifier);
  return nextNotifier_++;
}

void PageLineTracker::RemoveNotifier(int index) {
  requirePage();
  notifiers_.erase(index);
}

void PageLineTracker::settle() {
  requirePage();
  lines_->settle();
}

// Each notifier that waits for one line is called for that line only, so that many of them take no longer than the
// lines that have moved. A notifier may add and remove others.
void PageLineTracker::tell(const std::vector<LineMove>& moves) {
  constexpr int everyLine = 0;
  struct Listener {
    int index;
    std::weak_ptr<platform::IOTAEditLineNotifier> notifier;
  };
  std::unordered_map<int, std::vector<Listener>> listeners; // by the line that they wait for
  for (const auto& [index, notifier] : notifiers_) {
    if (const auto listening = notifier.lock())
      listeners[listening->GetLine()].push_back({index, notifier});
  }
  for (const LineMove& move : moves) {
    for (const int line : {everyLine, move.oldLine + 1}) {
      const auto found = listeners.find(line);
      if (found == listeners.end())
        continue;
      for (const auto& [index, notifier] : found->second) {
        const auto listening = notifier.lock();
        if (listening != nullptr && notifiers_.contains(index))
          platform::Guarded([&] { listening->LineChanged(move.oldLine + 1, move.newLine + 1, move.data); });
      }
    }
  }
}

} // namespace desktop
