// SPDX-License-Identifier: MIT
// What the lexer or the parser says of a place, as one line of JSON.
#pragma once

#include "tools/Output.h"

#include <cstdint>
#include <string_view>

namespace quorvane {

// Writes {"msg":MSG,"x":X,"y":Y}, with "fatal":true behind them if the message ended the work. Each byte of `msg` is a
// character; the column and the line count from 0.
void WriteJsonMessage(std::string_view msg, std::int32_t x, std::int32_t y, bool isFatal, TOutput& output);

} // namespace quorvane
