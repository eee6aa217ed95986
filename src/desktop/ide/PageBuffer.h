// SPDX-License-Identifier: MIT
// The text of a page as add-ins see it.
#pragma once

#include "desktop/ide/PageUndoGroup.h"
#include "platform/ota/Editor.h"

#include <QPointer>
#include <QString>

#include <memory>

namespace desktop {

class Page;
class PageLineTracker;
class Workspace;

// The buffer of one page, and its options. When the page has been closed it still knows the last name of its file;
// every other operation raises EViewClosed, and a reader made before then goes on to serve the text that it was made
// for.
class PageBuffer : public platform::IOTAEditBuffer,
                   public platform::IOTABufferOptions,
                   public std::enable_shared_from_this<PageBuffer> {
public:
  // The buffer of `page`, which is open in `workspace`.
  PageBuffer(Workspace& workspace, Page& page);
  ~PageBuffer() override;

  QString GetFileName() const override;
  std::shared_ptr<platform::IOTAEditReader> CreateReader() override;
  std::shared_ptr<platform::IOTABufferOptions> GetBufferOptions() override;
  bool GetIsModified() const override;
  bool GetIsReadOnly() const override;
  std::shared_ptr<platform::IOTAEditLineTracker> GetEditLineTracker() override;
  std::shared_ptr<platform::IOTAUndoGroup> BeginUndoGroup() override;
  void Show() override;
  std::shared_ptr<platform::IOTAEditView> GetTopView() override;
  int GetLeftGutterWidth() const override;

  // The view that shows this buffer; set once, when both have been made. The view owns the buffer.
  void setView(const std::shared_ptr<platform::IOTAEditView>& view) { view_ = view; }

  // The undo group that is open, or null.
  std::shared_ptr<PageUndoGroup> undoGroup() const { return undoGroup_.lock(); }
  // Reports lines that have moved although an undo group is open.
  void settleLines();

private:
  Page& page() const;

  QPointer<Workspace> workspace_;
  QPointer<Page> page_;
  std::shared_ptr<QString> fileName_; // kept up to date by the document
  std::weak_ptr<platform::IOTAEditView> view_;
  std::weak_ptr<PageUndoGroup> undoGroup_;   // groups within it are it
  std::shared_ptr<PageLineTracker> tracker_; // null until it is asked for
};

} // namespace desktop
