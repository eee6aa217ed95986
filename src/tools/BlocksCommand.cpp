// SPDX-License-Identifier: MIT
#include "tools/BlocksCommand.h"

#include "analysis/QVLiteParse.h"
#include "tools/Json.h"
#include "tools/JsonLinesCommand.h"

#include <span>
#include <string>
#include <string_view>

namespace quorvane {
namespace {

constexpr const char* Objects =
    "Each construct is one object, written where it closes: \"round\" for a pair of parentheses, \"block\" for\n"
    "the words of begin, case, if, repeat and try. An element has the position just past its word and the\n"
    "column of its first character, both counted from 0, and the line counted from 1. A file without blocks\n"
    "gives nothing.\n";

void AppendElement(const TQVLitePasElement& element, std::string& line) {
  TJsonObject object(line);
  object.Add("pos", element.Position);
  object.Add("line", element.Line);
  object.Add("col", element.Column);
  object.Add("kind", ptTokenName(element.Kind));
  object.Add("text", element.Text);
}

void WriteEvent(std::string_view name, std::span<const TQVLitePasElement> elements, TOutput& output) {
  std::string& line = output.Line();
  {
    TJsonObject object(line);
    object.Add("event", name);
    object.AddKey("elements");
    line += '[';
    for (const TQVLitePasElement& element : elements) {
      if (&element != &elements.front())
        line += ',';
      AppendElement(element, line);
    }
    line += ']';
  }
  output.EndLine();
}

void WriteBlocks(std::string& text, TOutput& output) {
  const auto writer = [&output](std::string_view name) {
    return [name, &output](std::span<const TQVLitePasElement> elements) { WriteEvent(name, elements, output); };
  };
  TQVLitePasParser parser;
  parser.SetOnBlock(writer("block"));
  parser.SetOnRound(writer("round"));
  parser.ParseFull(text.c_str());
}

} // namespace

void AddBlocksCommand(CLI::App& program, TSession& session) {
  AddJsonLinesCommand(
      program, session,
      {"blocks", "List the blocks and parentheses of Pascal files as JSON Lines", Objects, WriteBlocks});
}

} // namespace quorvane
