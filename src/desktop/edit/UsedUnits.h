// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace desktop {

// A stretch of a text, in bytes from 0; `end` is behind its last.
struct TextRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool isEmpty() const { return begin == end; }
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

// A unit that a uses clause names.
struct UsedUnit {
  TextRange place;  // of the name, with whatever stands between its parts
  std::string name; // its parts and the dots between them alone
  TextRange file;   // of what stands between the quotes behind "in"; empty without that
};

// The units in all uses clauses of a Pascal source, in their order. Of conditional parts every branch counts. A clause
// that breaks off, as while it is typed, gives the units up to there. Linear.
std::vector<UsedUnit> findUsedUnits(const std::string& text);

} // namespace desktop
