// SPDX-License-Identifier: MIT
// What holds for every text.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/PascalSoup.h"
#include "support/PascalTokens.h"

namespace quorvane {
namespace {

using support::AnySoup;
using support::Scan;
using support::TToken;

RC_GTEST_PROP(AnyText, IsCoveredByItsTokensWithoutGapOrOverlap, ()) {
  const std::string text = *AnySoup();
  TzkBasePasLex lexer;
  int end = 0;
  for (const TToken& token : Scan(lexer, text)) {
    RC_ASSERT(token.Pos == end);
    RC_ASSERT(token.Len > 0 || token.Kind == ptNull);
    end += token.Len;
  }
  RC_ASSERT(end == static_cast<int>(text.size()));
}

RC_GTEST_PROP(AnyText, IsScannedUpToItsFirstNul, ()) {
  const std::string before = *AnySoup();
  const std::string text = before + std::string(1, '\0') + *AnySoup();
  TzkBasePasLex lexer;
  TzkBasePasLex shorter;
  RC_ASSERT(Scan(lexer, text) == Scan(shorter, before));
}

RC_GTEST_PROP(AnyText, ScansAlikeWhateverWasScannedBefore, ()) {
  const std::string earlier = *AnySoup();
  const std::string text = *AnySoup();
  TzkPasLex used;
  TzkPasLex fresh;
  Scan(used, earlier);
  used.InitAhead();
  RC_ASSERT(Scan(used, text) == Scan(fresh, text));
}

RC_GTEST_PROP(AnyText, HasAsManyLinesAsLineEnds, ()) {
  const std::string text = *AnySoup();
  int lines = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
    lines += text[i] == '\n' || (text[i] == '\r' && text[i + 1] != '\n') ? 1 : 0;
  TzkBasePasLex lexer;
  Scan(lexer, text);
  RC_ASSERT(lexer.LineNumber() == lines);
}

RC_GTEST_PROP(AnyText, KeepsTokensWithinALine, ()) {
  const std::string text = *AnySoup();
  TzkBasePasLex lexer;
  for (const TToken& token : Scan(lexer, text)) {
    if (token.Kind == ptCRLF || token.Kind == ptCRLFCo)
      continue;
    const std::string_view part = std::string_view(text).substr(token.Pos, token.Len);
    RC_ASSERT(part.find_first_of("\r\n") == std::string_view::npos);
  }
}

RC_GTEST_PROP(AnyText, ResumesAtEverySavedToken, ()) {
  const std::string text = *AnySoup();
  TzkPasLex lexer;
  lexer.SetOrigin(text.c_str());
  const int steps = *rc::gen::inRange(0, 50);
  for (int step = 0; step < steps; ++step)
    lexer.Next();
  TzkPasLexStatus status;
  lexer.GetStatus(status);
  const std::vector<TToken> rest = support::ScanOn(lexer);
  const std::string other = *AnySoup();
  Scan(lexer, other);
  lexer.SetStatus(status);
  RC_ASSERT(support::ScanOn(lexer) == rest);
}

RC_GTEST_PROP(AnyText, ScansAlikeLineByLine, ()) {
  const std::string text = *AnySoup();
  TzkBasePasLex whole;
  TzkBasePasLex byLine;
  std::string line;
  whole.SetOrigin(text.c_str());
  while (whole.TokenID() != ptNull) {
    line.clear();
    std::vector<std::pair<TptTokenKind, std::string>> expected;
    for (; whole.TokenID() != ptNull && whole.TokenID() != ptCRLF && whole.TokenID() != ptCRLFCo; whole.Next()) {
      expected.emplace_back(whole.TokenID(), whole.GetToken());
      line += whole.GetToken();
    }
    std::vector<std::pair<TptTokenKind, std::string>> actual;
    for (byLine.SetLine(line); byLine.TokenID() != ptNull; byLine.Next())
      actual.emplace_back(byLine.TokenID(), byLine.GetToken());
    RC_ASSERT(actual == expected);
    RC_ASSERT(byLine.GetCommentState() == whole.GetCommentState());
    if (whole.TokenID() != ptNull)
      whole.Next();
  }
}

RC_GTEST_PROP(AnyText, LooksAheadToTheTokenThatFollows, ()) {
  const std::string text = *AnySoup();
  TzkPasLex lexer;
  lexer.SetOrigin(text.c_str());
  while (lexer.TokenID() != ptNull) {
    lexer.InitAhead();
    const TptTokenKind kind = lexer.GetAheadTokenID();
    const TptTokenKind exKind = lexer.GetAheadExID();
    const std::string token = lexer.GetAheadToken();
    lexer.NextNoJunk();
    RC_ASSERT(kind == lexer.TokenID());
    RC_ASSERT(exKind == lexer.ExID());
    RC_ASSERT(token == lexer.GetToken());
  }
}

RC_GTEST_PROP(AnyText, CanBeAskedAboutEveryToken, ()) {
  const std::string text = *AnySoup();
  TzkBasePasLex lexer;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull; lexer.Next()) {
    const auto length = static_cast<std::size_t>(lexer.GetTokenLen());
    RC_ASSERT(lexer.GetToken().size() == length);
    RC_ASSERT(lexer.GetStringContent().size() <= length);
    RC_ASSERT(lexer.GetDirectiveParam().size() <= length);
    RC_ASSERT(lexer.FirstInLine() || lexer.TokenPos() > 0);
    RC_ASSERT(lexer.CharAhead() == '\0' || static_cast<unsigned char>(lexer.CharAhead()) > ' ');
  }
}

} // namespace
} // namespace quorvane
