// SPDX-License-Identifier: MIT
#include "desktop/ide/PageLineTracker.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Page.h"
#include "platform/Application.h"
#include "platform/Errors.h"

namespace desktop {

PageLineTracker::PageLineTracker(Page& page)
    : page_(&page), lines_(std::make_unique<TrackedLines>(*page.document(), [this](int oldLine, int newLine, int data) {
        tell(oldLine + 1, newLine + 1, data);
      })) {}
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

// A notifier may add and remove others.
void PageLineTracker::tell(int oldLine, int newLine, int data) {
  for (const auto& [index, notifier] : std::map(notifiers_)) {
    const auto listening = notifier.lock();
    if (listening != nullptr && notifiers_.contains(index))
      platform::Guarded(
          [&listening = *listening, oldLine, newLine, data] { listening.LineChanged(oldLine, newLine, data); });
  }
}

} // namespace desktop
