// SPDX-License-Identifier: MIT
// The lexer against the least that a table-driven scanner must do, over ordinary, long and bad texts.
#include "lexer/zkPasLex.h"

#include <array>
#include <cctype>

#include "PascalTexts.h"

namespace {

using namespace quorvane;

enum TClass : unsigned char { End, Letter, Digit, Blank, Other };

constexpr bool IsRun(TClass c) {
  return c >= Letter && c <= Blank;
}

constexpr std::array<TClass, 256> Classes = [] {
  std::array<TClass, 256> classes{};
  for (unsigned c = 1; c < classes.size(); ++c)
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_')
      classes[c] = Letter;
    else if (c >= '0' && c <= '9')
      classes[c] = Digit;
    else if (c <= ' ' && c != '\n' && c != '\r')
      classes[c] = Blank;
    else
      classes[c] = Other;
  return classes;
}();

// The floor: looks each character up, and runs to the end of letters, digits and blanks.
std::int64_t CountByMaxMunch(const std::string& text) {
  const auto* run = reinterpret_cast<const unsigned char*>(text.c_str());
  std::int64_t count = 0;
  for (TClass c = Classes[*run]; c != End; c = Classes[*run]) {
    ++run;
    if (IsRun(c))
      while (Classes[*run] == c)
        ++run;
    ++count;
  }
  return count;
}

std::int64_t CountTokens(const std::string& text) {
  static TzkPasLex lexer;
  std::int64_t count = 0;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull; lexer.Next())
    ++count;
  return count;
}

void SetUpLexer(benchmark::State& state) {
  for (auto _ : state) {
    TzkPasLex lexer;
    benchmark::DoNotOptimize(lexer);
  }
}
BENCHMARK(SetUpLexer);

const bool Registered = [] {
  bench::Register("MaxMunch", bench::OrdinaryTexts(), CountByMaxMunch);
  bench::Register("Lexer", bench::OrdinaryTexts(), CountTokens);
  bench::Register("Lexer", bench::LengthTexts(), CountTokens);
  bench::Register("Lexer", bench::WorstTexts(), CountTokens);
  return true;
}();

} // namespace
