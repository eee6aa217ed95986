// SPDX-License-Identifier: MIT
#include "support/fakes/FakeServices.h"

#include <utility>

namespace fakes {

InstalledServices::InstalledServices(std::shared_ptr<platform::IInterface> services) {
  platform::SetBorlandIDEServices(std::move(services));
}

InstalledServices::~InstalledServices() {
  platform::SetBorlandIDEServices(nullptr);
}

} // namespace fakes
