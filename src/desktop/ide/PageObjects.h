// SPDX-License-Identifier: MIT
// All that add-ins see of one open page.
#pragma once

#include "platform/ota/Editor.h"
#include "platform/ota/Module.h"

#include <memory>

namespace desktop {

class Page;
class Workspace;

struct PageObjects {
  std::shared_ptr<platform::IOTAEditBuffer> buffer;
  std::shared_ptr<platform::IOTAEditView> view; // of that buffer
  std::shared_ptr<platform::IOTAModule> module; // whose one file is that buffer
};

// The objects for `page` of `workspace`, which is shown in `window`.
PageObjects makePageObjects(Workspace& workspace, Page& page, const std::shared_ptr<platform::INTAEditWindow>& window);

} // namespace desktop
