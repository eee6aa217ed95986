// SPDX-License-Identifier: MIT
// The root of the host's service interfaces.
#pragma once

#include "platform/Export.h"

#include <memory>

namespace platform {

// Every interface derives virtually from this class, so that one object may offer several of them and any one can be
// reached from any other by std::dynamic_pointer_cast. References are counted by std::shared_ptr; the last reference to
// a host object is dropped in the main thread.
class VIRELLE_PLATFORM IInterface {
public:
  IInterface() = default;
  IInterface(const IInterface&) = delete;
  IInterface& operator=(const IInterface&) = delete;
  virtual ~IInterface();
};

} // namespace platform
