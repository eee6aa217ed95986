// SPDX-License-Identifier: MIT
// Reading token streams in tests: a text scanned whole, as records or as one compact line that a table row can hold.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "lexer/zkPasLex.h"

namespace support {

// One token as the lexer left it.
struct TToken {
  quorvane::TptTokenKind Kind = quorvane::ptNull;
  quorvane::TptTokenKind ExKind = quorvane::ptUnknown;
  int Pos = 0;
  int Len = 0;
  int X = 0;
  int Y = 0;
  quorvane::TCommentState State = quorvane::csNo; // after the token

  bool operator==(const TToken&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const TToken& token) {
  return out << quorvane::ptTokenName(token.Kind) << '/' << quorvane::ptTokenName(token.ExKind) << " at " << token.Pos
             << " len " << token.Len << " (" << token.X << ", " << token.Y << ") state " << int{token.State};
}

inline TToken Current(const quorvane::TzkBasePasLex& lexer) {
  const quorvane::TzkPoint point = lexer.GetPosXY();
  return {lexer.TokenID(), lexer.ExID(), lexer.TokenPos(),       lexer.GetTokenLen(),
          point.X,         point.Y,      lexer.GetCommentState()};
}

// From the current token to the end of the text, ptNull included.
inline std::vector<TToken> ScanOn(quorvane::TzkBasePasLex& lexer) {
  std::vector<TToken> tokens{Current(lexer)};
  while (lexer.TokenID() != quorvane::ptNull) {
    lexer.Next();
    tokens.push_back(Current(lexer));
  }
  return tokens;
}

inline std::vector<TToken> Scan(quorvane::TzkBasePasLex& lexer, const std::string& text) {
  lexer.SetOrigin(text.c_str());
  return ScanOn(lexer);
}

inline std::string Escape(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n')
      result += "\\n";
    else if (c == '\r')
      result += "\\r";
    else
      result += c;
  }
  return result;
}

// "Identifier[x] Assign[:=]": the tokens from the current one on, without the final Null; an extended kind stands after
// a slash, as in "Identifier/Integer[Integer]".
inline std::string CompactOn(quorvane::TzkBasePasLex& lexer) {
  std::string result;
  for (; lexer.TokenID() != quorvane::ptNull; lexer.Next()) {
    if (!result.empty())
      result += ' ';
    result += quorvane::TokenName(lexer.TokenID());
    if (lexer.ExID() != quorvane::ptUnknown)
      result.append("/").append(quorvane::TokenName(lexer.ExID()));
    result.append("[").append(Escape(lexer.GetToken())).append("]");
  }
  return result;
}

inline std::string Compact(const std::string& text) {
  quorvane::TzkBasePasLex lexer;
  lexer.SetOrigin(text.c_str());
  return CompactOn(lexer);
}

// The messages of a scan, as "Unterminated string at (3, 7)".
inline std::vector<std::string> Messages(const std::string& text) {
  std::vector<std::string> messages;
  quorvane::TzkBasePasLex lexer;
  lexer.SetOnMessage([&](quorvane::TzkBasePasLex&, std::string_view msg, int x, int y) {
    messages.push_back(std::string(msg) + " at (" + std::to_string(x) + ", " + std::to_string(y) + ")");
  });
  Scan(lexer, text);
  return messages;
}

} // namespace support
