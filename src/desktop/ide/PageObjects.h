// SPDX-License-Identifier: MIT
// The buffer and the view of one open page, as add-ins see them.
#pragma once

#include "platform/ota/Editor.h"

#include <memory>

namespace desktop {

class Page;

struct PageObjects {
  std::shared_ptr<platform::IOTAEditBuffer> buffer;
  std::shared_ptr<platform::IOTAEditView> view;
};

} // namespace desktop
