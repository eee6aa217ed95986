// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace desktop {

// Lines [oldBegin, oldEnd) have become lines [newBegin, newEnd); all from 0, and either range may be empty.
struct LineChange {
  int oldBegin = 0;
  int oldEnd = 0;
  int newBegin = 0;
  int newEnd = 0;

  friend bool operator==(const LineChange&, const LineChange&) = default;
};

// What has to be changed in the lines `before` to get the lines `after`, in their order; what is between the changes is
// equal. Lines that occur once in both hold the others in place, so that a line is found again by its text rather than
// by its number. The time is near linear in the lines, whatever they are; the changes need not be the fewest.
std::vector<LineChange> lineChanges(const std::vector<std::u16string_view>& before,
                                    const std::vector<std::u16string_view>& after);

} // namespace desktop
