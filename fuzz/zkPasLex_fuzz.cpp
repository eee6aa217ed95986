// SPDX-License-Identifier: MIT
// Any bytes as a text for the lexer: its tokens cover it, its positions agree, and every question about a token is
// answered.
#include "lexer/zkPasLex.h"

#include <cstring>
#include <string>

#include "Require.h"

namespace {

using namespace quorvane;
using fuzz::Require;

bool EndsLine(const TzkBasePasLex& lexer) {
  return lexer.TokenID() == ptCRLF || lexer.TokenID() == ptCRLFCo;
}

void RequireSoundToken(TzkPasLex& lexer) {
  const auto length = static_cast<std::size_t>(lexer.GetTokenLen());
  Require(lexer.GetToken().size() == length, "the token is as long as it says");
  Require(lexer.GetStringContent().size() <= length, "the content of a string is a part of it");
  Require(lexer.GetDirectiveParam().size() <= length, "the parameter of a directive is a part of it");
  if (lexer.TokenID() != ptEndIfDirect)
    Require(lexer.GetCompilerDirective().size() <= length, "the text of a directive is a part of it");
  Require(EndsLine(lexer) == (lexer.GetPosXY().X < 0), "only line ends stand before their line");
  Require(TokenGroup(lexer.TokenID()) != TTokenGroup::Word, "directive words are identifiers");
  lexer.FirstInLine();
  lexer.CharAhead();
}

// Whether looking ahead finds the token that the lexer then comes to.
void RequireTrueLookAhead(TzkPasLex& lexer) {
  TzkPasLexStatus status;
  lexer.GetStatus(status);
  lexer.InitAhead();
  const TptTokenKind kind = lexer.GetAheadGenID();
  const std::string token = lexer.GetAheadToken();
  lexer.NextNoJunk();
  Require(lexer.GetGenID() == kind && lexer.GetToken() == token, "the token ahead is the next one");
  lexer.SetStatus(status);
  Require(lexer.RunPos() == status.RunPos && lexer.TokenID() == status.TokenID, "a saved state comes back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  TzkPasLex lexer;
  int messages = 0;
  int directives = 0;
  lexer.SetOnMessage([&](TzkBasePasLex&, std::string_view, int, int) { ++messages; });
  lexer.SetOnIfDefDirect([&](TzkBasePasLex& sender) { directives += sender.TokenID() == ptIfDefDirect ? 1 : 0; });
  std::int32_t end = 0;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull; lexer.Next()) {
    Require(lexer.TokenPos() == end, "a token starts where the one before it ends");
    Require(lexer.RunPos() > end, "a token has at least one character");
    end = lexer.RunPos();
    RequireSoundToken(lexer);
    // Scanning to the next token that is no junk may take long in a text of nothing else, so only short texts are
    // asked.
    if (size <= 512)
      RequireTrueLookAhead(lexer);
  }
  Require(static_cast<std::size_t>(end) == std::strlen(text.c_str()), "the text ends at its first NUL");
  lexer.NextID(ptBegin);
  Require(lexer.RunPos() == end, "nothing moves past the end");
  return 0;
}
