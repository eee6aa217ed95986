// SPDX-License-Identifier: MIT
#include "desktop/ui/ClosedPages.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

namespace desktop {

namespace {

constexpr std::size_t most = 50;

} // namespace

ClosedPages::ClosedPages(Workspace& workspace) : QObject(&workspace), workspace_(workspace) {
  for (const TEditWindow* window : workspace.windows())
    follow(window);
  connect(&workspace, &Workspace::windowOpened, this, &ClosedPages::follow);
}

void ClosedPages::follow(const TEditWindow* window) {
  connect(window, &TEditWindow::pageAboutToClose, this, &ClosedPages::remember);
}

void ClosedPages::remember(const Page* page) {
  const QString& path = page->document()->fileName();
  if (page->document()->isUntitled())
    return;
  std::erase_if(closed_, [&path](const Closed& closed) { return closed.path == path; });
  closed_.push_back({path, page->state()});
  if (closed_.size() > most)
    closed_.erase(closed_.begin());
  Q_EMIT changed();
}

Page* ClosedPages::reopen(TEditWindow* window) {
  std::erase_if(closed_, [this](const Closed& closed) { return workspace_.findPage(closed.path) != nullptr; });
  Page* page = nullptr;
  if (!closed_.empty()) {
    const Closed last = closed_.back();
    closed_.pop_back();
    page =
        workspace_.openings().open(window, last.path, [state = last.state](Page* opened) { opened->setState(state); });
  }
  Q_EMIT changed();
  return page;
}

} // namespace desktop
