// SPDX-License-Identifier: MIT
#include "tools/TokensCommand.h"

#include "lexer/zkPasLex.h"
#include "tools/Json.h"
#include "tools/JsonLinesCommand.h"
#include "tools/JsonMessage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {
namespace {

constexpr const char* Objects =
    "Each token is one object: kind, extended kind, position, length, line and column, all counted from 0.\n"
    "A message of the lexer stands on a line of its own before its token. Each file ends with a ptNull.\n";

void WriteToken(const TzkBasePasLex& lex, TOutput& output) {
  {
    const TzkPoint place = lex.GetPosXY();
    TJsonObject object(output.Line());
    object.Add("kind", ptTokenName(lex.TokenID()));
    object.Add("ex", ptTokenName(lex.ExID()));
    object.Add("pos", lex.TokenPos());
    object.Add("len", lex.GetTokenLen());
    object.Add("line", place.Y);
    object.Add("col", place.X);
  }
  output.EndLine();
}

// Messages are written as they come, during the scan of their token, and so stand before it.
void WriteTokens(std::string& text, TOutput& output) {
  TzkPasLex lex;
  lex.SetOnMessage([&output](TzkBasePasLex&, std::string_view msg, std::int32_t x, std::int32_t y) {
    WriteJsonMessage(msg, x, y, false, output);
  });
  lex.SetOrigin(text.c_str());
  while (lex.TokenID() != ptNull) {
    WriteToken(lex, output);
    lex.Next();
  }
  WriteToken(lex, output);
}

} // namespace

void AddTokensCommand(CLI::App& program, TSession& session) {
  AddJsonLinesCommand(program, session,
                      {"tokens", "List the tokens of Pascal files as JSON Lines", Objects, WriteTokens});
}

} // namespace quorvane
