// SPDX-License-Identifier: MIT
// The outline parser against its lexer alone, over ordinary, long and bad texts.
#include "Outlines.h"

#include "lexer/zkPasLex.h"

namespace {

// Walks as the parser does, with a lexer of the same kind, and does nothing else.
std::int64_t CountTokens(const std::string& text) {
  static quorvane::TzkPasLex lexer;
  std::int64_t count = 0;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != quorvane::ptNull; lexer.Next())
    ++count;
  return count;
}

const bool Registered = [] {
  bench::Register("Lexer", bench::OutlineTexts(), CountTokens);
  bench::Register("OutlineParser", bench::OutlineTexts(), bench::FillOutline);
  bench::Register("OutlineParser", bench::LengthTexts(), bench::FillOutline);
  bench::Register("OutlineParser", bench::WorstOutlineTexts(), bench::FillOutline);
  return true;
}();

} // namespace
