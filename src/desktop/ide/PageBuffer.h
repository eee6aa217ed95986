// SPDX-License-Identifier: MIT
// The text of a page as add-ins see it.
#pragma once

#include "platform/ota/Editor.h"

#include <QPointer>
#include <QString>

#include <memory>

namespace desktop {

class Page;

// The buffer of one page, and its options. When the page has been closed every operation raises EViewClosed; a reader
// made before then goes on to serve the text that it was made for.
class PageBuffer : public platform::IOTAEditBuffer,
                   public platform::IOTABufferOptions,
                   public std::enable_shared_from_this<PageBuffer> {
public:
  explicit PageBuffer(Page& page);
  ~PageBuffer() override;

  QString GetFileName() const override;
  std::shared_ptr<platform::IOTAEditReader> CreateReader() override;
  std::shared_ptr<platform::IOTABufferOptions> GetBufferOptions() override;
  bool GetIsModified() const override;
  std::shared_ptr<platform::IOTAEditView> GetTopView() override;
  int GetLeftGutterWidth() const override;

  // The view that shows this buffer; set once, when both have been made. The view owns the buffer.
  void setView(const std::shared_ptr<platform::IOTAEditView>& view) { view_ = view; }

private:
  Page& page() const;

  QPointer<Page> page_;
  std::weak_ptr<platform::IOTAEditView> view_;
};

} // namespace desktop
