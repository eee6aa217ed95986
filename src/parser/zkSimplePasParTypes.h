// SPDX-License-Identifier: MIT
// The kinds of syntax error that the productions of the parser tell apart.
#pragma once

#include <string_view>

namespace quorvane {

enum TzkParseError : unsigned char {
#define ZK_PARSE_ERROR(kind) kind,
#include "parser/ParseErrors.def"
};

inline constexpr int ParseErrorCount = vchInvalidIncludeFile + 1;

// The identifier of a kind as it is written in the enumeration: "InvalidForStatement".
std::string_view ParserErrorName(TzkParseError error);

} // namespace quorvane
