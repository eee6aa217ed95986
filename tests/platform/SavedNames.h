// SPDX-License-Identifier: MIT
// What the program registry_writer saves.
#pragma once

#include <array>

namespace platform {

inline constexpr const char* savedKey = "Software\\Vantrel\\QVIDE";
inline constexpr std::array savedNames = {"First", "Second", "Third", "Last"};

} // namespace platform
