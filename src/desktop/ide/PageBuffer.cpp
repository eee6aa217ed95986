// SPDX-License-Identifier: MIT
#include "desktop/ide/PageBuffer.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ide/PageCaret.h"
#include "desktop/ide/PageLineTracker.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"
#include "platform/Errors.h"

#include <string>
#include <utility>

namespace desktop {

namespace {

class ServedTextReader : public platform::IOTAEditReader {
public:
  explicit ServedTextReader(std::shared_ptr<const std::string> text) : text_(std::move(text)) {}

  int GetText(int position, char* buffer, int count) override {
    const auto start = static_cast<std::size_t>(position);
    if (position < 0 || count <= 0 || start >= text_->size())
      return 0;
    return static_cast<int>(text_->copy(buffer, static_cast<std::size_t>(count), start));
  }

private:
  std::shared_ptr<const std::string> text_;
};

} // namespace

PageBuffer::PageBuffer(Workspace& workspace, Page& page)
    : workspace_(&workspace), page_(&page), fileName_(std::make_shared<QString>(page.document()->fileName())) {
  const SourceDocument* const document = page.document();
  QObject::connect(document, &SourceDocument::fileNameChanged, document,
                   [document, name = fileName_] { *name = document->fileName(); });
}
PageBuffer::~PageBuffer() = default;

Page& PageBuffer::page() const {
  if (!page_)
    throw platform::EViewClosed();
  return *page_;
}

QString PageBuffer::GetFileName() const {
  return *fileName_;
}

std::shared_ptr<platform::IOTAEditReader> PageBuffer::CreateReader() {
  return std::make_shared<ServedTextReader>(page().document()->servedText());
}

std::shared_ptr<platform::IOTABufferOptions> PageBuffer::GetBufferOptions() {
  (void)page();
  return shared_from_this();
}

bool PageBuffer::GetIsModified() const {
  return page().document()->isModified();
}

bool PageBuffer::GetIsReadOnly() const {
  return page().document()->isReadOnlyText();
}

std::shared_ptr<platform::IOTAEditLineTracker> PageBuffer::GetEditLineTracker() {
  if (tracker_ == nullptr)
    tracker_ = std::make_shared<PageLineTracker>(page());
  (void)page();
  return tracker_;
}

void PageBuffer::settleLines() {
  if (tracker_ != nullptr)
    tracker_->settle();
}

std::shared_ptr<platform::IOTAUndoGroup> PageBuffer::BeginUndoGroup() {
  Page& grouped = page();
  std::shared_ptr<PageUndoGroup> group = undoGroup();
  if (group == nullptr)
    undoGroup_ = group = std::make_shared<PageUndoGroup>(grouped, caretOf(grouped));
  return group;
}

void PageBuffer::Show() {
  Page& shown = page();
  if (workspace_)
    workspace_->showPage(&shown);
}

std::shared_ptr<platform::IOTAEditView> PageBuffer::GetTopView() {
  (void)page();
  return view_.lock();
}

int PageBuffer::GetLeftGutterWidth() const {
  return page().window()->editor()->gutterWidth();
}

} // namespace desktop
