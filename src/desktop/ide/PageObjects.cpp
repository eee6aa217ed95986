// SPDX-License-Identifier: MIT
#include "desktop/ide/PageObjects.h"

#include "desktop/ide/PageBuffer.h"
#include "desktop/ide/PageView.h"
#include "platform/Errors.h"

#include <utility>

namespace desktop {

namespace {

// A unit of this host is its source file and nothing else.
class SourceModule : public platform::IOTAModule {
public:
  explicit SourceModule(std::shared_ptr<platform::IOTAEditor> source) : source_(std::move(source)) {}

  int GetModuleFileCount() const override { return 1; }
  std::shared_ptr<platform::IOTAEditor> GetModuleFileEditor(int index) override {
    platform::Require(index == 0, "SourceModule", "Index out of range");
    return source_;
  }

private:
  std::shared_ptr<platform::IOTAEditor> source_;
};

} // namespace

PageObjects makePageObjects(Workspace& workspace, Page& page, const std::shared_ptr<platform::INTAEditWindow>& window) {
  auto buffer = std::make_shared<PageBuffer>(workspace, page);
  auto view = std::make_shared<PageView>(page, buffer, window);
  buffer->setView(view);
  return {buffer, view, std::make_shared<SourceModule>(buffer)};
}

} // namespace desktop
