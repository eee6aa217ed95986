// SPDX-License-Identifier: MIT
#include "lexer/zkPasLexTypes.h"

namespace quorvane {
namespace {

constexpr std::array<std::string_view, TokenKindCount> KindNames = {
#define PT_KIND(kind, group) #kind,
#include "lexer/TokenKinds.def"
};

constexpr std::array<TTokenGroup, TokenKindCount> KindGroups = {
#define PT_KIND(kind, group) TTokenGroup::group,
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

TTokenGroup TokenGroup(TptTokenKind kind) {
  return KindGroups[kind];
}

} // namespace quorvane
