// SPDX-License-Identifier: MIT
// A parser that counts what it does, so that a fuzz target can tell work that grows faster than the text from a text
// that is merely long. Time would depend on the machine; the steps do not.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "parser/zkSimplePasPar.h"
#include "Require.h"

namespace fuzz {

// Counts the productions entered, the tokens read and the questions about the current token, and requires that they
// stay below a multiple of the length of the text. The lexer is required to stay in the text.
template <typename TParser> class TCountingParser : public TParser {
public:
  // Parses a text to its end. Returns the message of what ended the parse early, or nothing.
  std::string ParseToEnd(std::string text) {
    FSize = static_cast<std::int64_t>(text.size());
    FSteps = 0;
    std::string fatal;
    text.reserve(text.size() + 1);
    try {
      this->Run({}, &text);
    } catch (const quorvane::ESyntaxError& error) {
      fatal = error.what();
      Require(!fatal.empty(), "what ends a parse has a message");
      Require(error.PosXY().Y >= 0, "what ends a parse has a place");
    }
    RequireInside();
    return fatal;
  }

  std::int64_t Steps() const { return FSteps; }

protected:
  void NextToken() override {
    TParser::NextToken();
    Step();
    RequireInside();
  }

  quorvane::TptTokenKind GetExID() const override {
    Step();
    return TParser::GetExID();
  }
  quorvane::TptTokenKind GetTokenID() const override {
    Step();
    return TParser::GetTokenID();
  }
  quorvane::TptTokenKind GetGenID() const override {
    Step();
    return TParser::GetGenID();
  }

#define ZK_PRODUCTION(name)                                                                                            \
  void name() override {                                                                                               \
    Step();                                                                                                            \
    TParser::name();                                                                                                   \
  }
#include "parser/Productions.def"

private:
  // What one character may cost: more than twice of what any text is known to take.
  static constexpr std::int64_t StepsPerCharacter = 50;

  void Step() const {
    ++FSteps;
    Require(FSteps <= StepsPerCharacter * (FSize + 1), "a parse takes steps in proportion to its text");
  }

  void RequireInside() {
    const auto& lexer = this->Lexer();
    Require(lexer.TokenPos() >= 0 && lexer.TokenPos() <= lexer.RunPos(), "a token ends behind its start");
    Require(lexer.RunPos() <= FSize, "the lexer stays in the text");
  }

  std::int64_t FSize = 0;
  mutable std::int64_t FSteps = 0;
};

} // namespace fuzz
