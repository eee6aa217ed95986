// SPDX-License-Identifier: MIT
// The check of one file, with what of the source is shown with each finding.
#pragma once

#include "analysis/QVUnitCheck.h"
#include "tools/Excerpt.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quorvane {

struct TShownFinding : TFinding {
  TExcerpt Excerpt; // empty unless asked for
};

struct TCheckOptions {
  std::string EncodingName; // of files without a byte-order mark; empty: found by their bytes
  bool WantsExcerpts = false;
};

struct TCheckResult {
  std::vector<TShownFinding> Findings; // in the order of the source
  std::size_t LeftOut = 0;             // how many more there are
  std::string Trouble;                 // why the file could not be checked; empty if it was
};

// Checks a file, as the editor would serve it. Throws nothing; one thread at a time may check standard input.
TCheckResult CheckFile(const std::string& file, const TCheckOptions& options) noexcept;

} // namespace quorvane
