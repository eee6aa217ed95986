// SPDX-License-Identifier: MIT
// The light parser against its lexer alone, over ordinary, long and bad texts.
#include "analysis/QVLiteParse.h"

#include "PascalTexts.h"

namespace {

using namespace quorvane;

// Walks as the parser does, with a lexer of the same kind, and does nothing else.
std::int64_t CountTokens(const std::string& text) {
  static TzkPasLex lexer;
  std::int64_t count = 0;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull; lexer.Next())
    ++count;
  return count;
}

// Parses with both events set, as in an editor.
std::int64_t SumUpElements(const std::string& text) {
  static std::int64_t sum = 0;
  static TQVLitePasParser parser;
  static const bool ready = [] {
    const auto add = [](std::span<const TQVLitePasElement> elements) { sum += elements.back().Position; };
    parser.SetOnBlock(add);
    parser.SetOnRound(add);
    return true;
  }();
  benchmark::DoNotOptimize(ready);
  sum = 0;
  parser.ParseFull(text.c_str());
  return sum;
}

const bool Registered = [] {
  bench::Register("Lexer", bench::OrdinaryTexts(), CountTokens);
  bench::Register("LightParser", bench::OrdinaryTexts(), SumUpElements);
  bench::Register("LightParser", bench::LengthTexts(), SumUpElements);
  bench::Register("LightParser", bench::WorstTexts(), SumUpElements);
  return true;
}();

} // namespace
