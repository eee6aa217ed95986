// SPDX-License-Identifier: MIT
// The check of one text: what is wrong in it and where, as people count.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

namespace quorvane {

struct TFinding {
  std::int32_t Line = 1; // of the token, as are column and length; both from 1, the column in characters
  std::int32_t Column = 1;
  std::int32_t Length = 0; // in characters, up to the end of the line; 0 at the end of a line or of the text
  std::string Message;     // as served: a byte is a character; no longer than ShortMessage makes it
  bool IsFatal = false;    // what follows it was not looked at
};

struct TFindings {
  std::vector<TFinding> Findings; // in the order of the source
  std::size_t LeftOut = 0;        // how many more there are: a text that is no Pascal at all has no end of them
};

// The findings in a served text, which must not be longer than a parse can take. Any thread with a stack of
// ParseStackSize. When `stop` is requested it comes back soon, with whatever it has.
TFindings FindingsIn(std::string served, const std::stop_token& stop = {});

} // namespace quorvane
