// SPDX-License-Identifier: MIT
// The check of one file: what is wrong in it and where, as people count.
#pragma once

#include "tools/Excerpt.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

struct TFinding {
  std::int32_t Line = 1; // of the token, as are column and length; both from 1, the column in characters
  std::int32_t Column = 1;
  std::int32_t Length = 0; // in characters, up to the end of the line; 0 at the end of a line or of the text
  std::string Message;     // as served: a byte is a character; no longer than ShortMessage makes it
  bool IsFatal = false;    // what follows it was not looked at
  TExcerpt Excerpt;        // empty unless asked for
};

struct TCheckOptions {
  std::string EncodingName; // of files without a byte-order mark; empty: found by their bytes
  bool WantsExcerpts = false;
};

struct TCheckResult {
  std::vector<TFinding> Findings; // in the order of the source
  std::size_t LeftOut = 0;        // how many more there are: a file that is no Pascal at all has no end of them
  std::string Trouble;            // why the file could not be checked; empty if it was
};

// Checks a file, as the editor would serve it. Throws nothing; one thread at a time may check standard input.
TCheckResult CheckFile(const std::string& file, const TCheckOptions& options) noexcept;

} // namespace quorvane
