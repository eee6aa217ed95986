// SPDX-License-Identifier: MIT
// Any bytes as a text for the light parser: what it announces nests, and is what the reference announces.
#include "analysis/QVLiteParse.h"

#include <string>

#include "Require.h"
#include "support/LitePasReference.h"
#include "support/NestingCheck.h"

namespace {

using namespace quorvane;
using fuzz::Require;

void RequireNesting(const std::string& text) {
  TQVLitePasParser parser;
  support::TNestingCheck nesting;
  const auto check = [&](std::span<const TQVLitePasElement> elements) {
    const TQVLitePasElement& opener = elements.front();
    const auto length = static_cast<std::int32_t>(opener.Text.size());
    Require(nesting.Add(opener.Position - length, parser.Lexer().RunPos()), "constructs nest");
    for (const TQVLitePasElement& element : elements)
      Require(element.Position == 0 ||
                  text.compare(element.Position - element.Text.size(), element.Text.size(), element.Text) == 0,
              "an element's text is what stands at its place");
  };
  parser.SetOnBlock(check);
  parser.SetOnRound(check);
  parser.ParseFull(text.c_str());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  RequireNesting(text);
  TQVLitePasParser parser;
  support::TLitePasReference reference;
  Require(support::Announced(parser, text) == reference.Parse(text), "the reference announces the same");
  return 0;
}
