// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"
#include "platform/Export.h"

namespace platform {

// Why a file can be neither read nor written. The message does not name the file; who knows what the file is for says
// so and passes the reason on in an exception of its own.
class VIRELLE_PLATFORM EFileError : public Exception {
public:
  using Exception::Exception;
  ~EFileError() override;
};

} // namespace platform
