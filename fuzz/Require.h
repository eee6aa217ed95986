// SPDX-License-Identifier: MIT
// The assertion of the fuzz targets: on in every build, and a crash that the fuzzer keeps the input of.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace fuzz {

inline void Require(bool holds, const char* claim) {
  if (holds)
    return;
  std::fprintf(stderr, "does not hold: %s\n", claim);
  std::abort();
}

} // namespace fuzz
