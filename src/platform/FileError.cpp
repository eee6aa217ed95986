// SPDX-License-Identifier: MIT
#include "platform/FileError.h"

namespace platform {

EFileError::~EFileError() = default;

} // namespace platform
