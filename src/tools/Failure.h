// SPDX-License-Identifier: MIT
// What is told of work that ended in an exception.
#pragma once

#include <string>

namespace quorvane {

// The reason that the exception being handled gives, in words for people. To be called in a handler only. With no
// memory left the reason is that.
std::string FailureReason() noexcept;

} // namespace quorvane
