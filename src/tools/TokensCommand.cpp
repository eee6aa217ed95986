// SPDX-License-Identifier: MIT
#include "tools/TokensCommand.h"

#include "lexer/zkPasLex.h"
#include "tools/Input.h"
#include "tools/Json.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quorvane {
namespace {

void WriteMessage(std::string_view msg, std::int32_t x, std::int32_t y, TOutput& output) {
  {
    TJsonObject object(output.Line());
    object.Add("msg", msg);
    object.Add("x", x);
    object.Add("y", y);
  }
  output.EndLine();
}

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
void WriteTokens(const std::string& text, TOutput& output) {
  TzkPasLex lex;
  lex.SetOnMessage([&output](TzkBasePasLex&, std::string_view msg, std::int32_t x, std::int32_t y) {
    WriteMessage(msg, x, y, output);
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
  CLI::App* command = program.add_subcommand("tokens", "List the tokens of Pascal files as JSON Lines");
  command->footer(
      "Each token is one object: kind, extended kind, position, length, line and column, all counted from 0.\n"
      "A message of the lexer stands on a line of its own before its token. Each file ends with a ptNull;\n"
      "several files follow each other.");
  const auto options = std::make_shared<TInputOptions>();
  AddInputOptions(*command, *options);
  command->callback([options, &session] {
    ForEachText(*options, session,
                [&session](const std::string&, std::string& text) { WriteTokens(text, session.Output()); });
  });
}

} // namespace quorvane
