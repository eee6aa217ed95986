// SPDX-License-Identifier: MIT
// Whether constructs are announced as they nest: inner ones first, each wholly inside or wholly outside of each other.
#pragma once

#include <cstdint>
#include <vector>

namespace support {

// Takes the constructs in the order of their announcement and keeps those that nothing has enclosed yet.
class TNestingCheck {
public:
  // A construct from the first character of its opener to just past its closer. False where it breaks the nesting.
  bool Add(std::int32_t start, std::int32_t end) {
    if (end <= start)
      return false;
    while (!FOpen.empty() && FOpen.back().Start >= start) {
      if (FOpen.back().End > end)
        return false;
      FOpen.pop_back();
    }
    if (!FOpen.empty() && FOpen.back().End > start)
      return false;
    FOpen.push_back({start, end});
    return true;
  }

private:
  struct TRange {
    std::int32_t Start;
    std::int32_t End;
  };

  std::vector<TRange> FOpen;
};

} // namespace support
