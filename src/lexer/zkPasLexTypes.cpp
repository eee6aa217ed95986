// SPDX-License-Identifier: MIT
#include "lexer/zkPasLexTypes.h"

namespace quorvane {
namespace {

constexpr std::array<std::string_view, TokenKindCount> KindNames = {
#define PT_KIND(kind, group) #kind,
#include "lexer/TokenKinds.def"
};

constexpr std::string_view Prefix = "pt";

} // namespace

std::string_view TokenName(TptTokenKind kind) {
  return ptTokenName(kind).substr(Prefix.size());
}

std::string_view ptTokenName(TptTokenKind kind) {
  return KindNames[kind];
}

} // namespace quorvane
