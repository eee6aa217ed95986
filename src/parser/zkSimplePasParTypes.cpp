// SPDX-License-Identifier: MIT
#include "parser/zkSimplePasParTypes.h"

#include <array>

namespace quorvane {
namespace {

constexpr std::array<std::string_view, ParseErrorCount> Names = {
#define ZK_PARSE_ERROR(kind) #kind,
#include "parser/ParseErrors.def"
};

} // namespace

std::string_view ParserErrorName(TzkParseError error) {
  return Names[error];
}

} // namespace quorvane
