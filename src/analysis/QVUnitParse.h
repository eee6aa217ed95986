// SPDX-License-Identifier: MIT
// One parse of a whole file by the outline parser, as the editor does it in the background.
#pragma once

#include "analysis/QVPasInfo.h"
#include "analysis/QVPasParser.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace quorvane {

// What a thread needs for its stack, in bytes, so that a parse of any depth fits in: four times what the deepest takes.
// Only what is used becomes memory.
inline constexpr std::size_t ParseStackSize = std::size_t{32} * 1024 * 1024;

// What the parser says of one wrong token.
struct TSyntaxReport {
  std::string Msg;
  std::int32_t X = 0; // of the token: the column and the line, both from 0. A column is negative on a line break
  std::int32_t Y = 0;
  std::int32_t TokenLength = 0; // in characters of the text; 0 at its end
  bool IsFatal = false;         // the parse ended here; the last report
};

using TOnSyntaxReport = std::function<void(TSyntaxReport report)>;

// Parses a text to its end and tells `onReport` of each report as it comes. After each, the parser moves on to the next
// semicolon, as it does in the editor. The outline is filled with what the parse finds; `thread` (may be null) knows
// the caret. The text gets a NUL appended.
void ParseUnit(std::string& text, const std::shared_ptr<IQVPasInfo>& outline, IQVParseThread* thread,
               const TOnSyntaxReport& onReport);

} // namespace quorvane
