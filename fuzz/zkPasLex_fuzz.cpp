// SPDX-License-Identifier: MIT
// Any bytes as a text for the lexer: its tokens cover it, its positions agree, and every question about a token is
// answered.
#include "lexer/zkPasLex.h"

#include <cstring>
#include <string>
#include <string_view>

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

// What the handlers of a lexer have heard during a walk, against what its tokens call for.
class TEventCheck {
public:
  void Walk(const char* text) {
    TzkBasePasLex lexer;
    lexer.SetOnMessage([this](TzkBasePasLex&, std::string_view, int, int) { ++FMessages; });
    for (const auto set :
         {&TzkBasePasLex::SetOnCompDirect, &TzkBasePasLex::SetOnDefineDirect, &TzkBasePasLex::SetOnElseDirect,
          &TzkBasePasLex::SetOnEndIfDirect, &TzkBasePasLex::SetOnIfDefDirect, &TzkBasePasLex::SetOnIfNDefDirect,
          &TzkBasePasLex::SetOnIfOptDirect, &TzkBasePasLex::SetOnIncludeDirect, &TzkBasePasLex::SetOnResourceDirect,
          &TzkBasePasLex::SetOnUnDefDirect})
      (lexer.*set)([this](TzkBasePasLex&) { ++FDirectives; });
    lexer.SetOrigin(text);
    RequireEventsOf(lexer);
    while (lexer.TokenID() != ptNull) {
      lexer.Next();
      RequireEventsOf(lexer);
    }
  }

private:
  // A token that is wrong, a string that is not closed, and the end of a text inside of a comment.
  static bool IsBad(const TzkBasePasLex& lexer) {
    switch (lexer.TokenID()) {
    case ptError:
    case ptUnknown:
      return true;
    case ptStringConst:
      return lexer.GetStringContent().size() + 1 == static_cast<std::size_t>(lexer.GetTokenLen());
    case ptNull:
      return lexer.GetCommentState() != csNo;
    default:
      return false;
    }
  }

  void RequireEventsOf(const TzkBasePasLex& lexer) {
    Require(FDirectives == (lexer.GetIsCompilerDirective() ? 1 : 0),
            "each directive is announced once, nothing else is");
    Require(FMessages == (IsBad(lexer) ? 1 : 0), "each bad token has one message, no other has any");
    FDirectives = 0;
    FMessages = 0;
  }

  int FMessages = 0;
  int FDirectives = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  TEventCheck().Walk(text.c_str());
  TzkPasLex lexer;
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
