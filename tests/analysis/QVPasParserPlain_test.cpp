// SPDX-License-Identifier: MIT
// The outline parser walks over junk in two ways: plainly, and by operations that a class derived from it may override.
// Both must see the same text.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "Outlines.h"
#include "support/PascalUnits.h"

namespace {

using namespace quorvane;

class TOverridingParser : public TQVPasParser {
protected:
  void SkipSpace() override { TQVPasParser::SkipSpace(); }
};

class TCountingParser : public TQVPasParser {
public:
  int Spaces = 0;

protected:
  void SkipSpace() override {
    ++Spaces;
    TQVPasParser::SkipSpace();
  }
};

template <class TParser> std::string Walked(std::string text) {
  std::string result;
  const auto info = std::make_shared<TQVPasInfo>();
  TParser parser;
  parser.SetPasInfo(info);
  const TParserMessageEvent own = parser.OnMessage();
  parser.SetOnMessage([&](TzkSimplePasPar& sender, const std::string& msg, std::int32_t x, std::int32_t y) {
    result += msg + " " + std::to_string(x) + ":" + std::to_string(y) + "\n";
    own(sender, msg, x, y);
  });
  try {
    parser.Run("", &text);
  } catch (const ESyntaxError& error) {
    result += std::string("fatal ") + error.what() + "\n";
  }
  return result + support::Listed(info->GetClasses()) + "\n" + support::Listed(info->GetMethods());
}

void ExpectTheSameBothWays(const std::string& text) {
  EXPECT_EQ(Walked<TQVPasParser>(text), Walked<TOverridingParser>(text));
}

TEST(PlainWalk, SeesTheSameTextAsTheOperations) {
  for (const char* text : {
           "unit U; interface implementation procedure P; deprecated; begin end; end.",
           "unit U; interface implementation procedure P; {a}{b}deprecated{c};begin end; end.",
           "unit U; interface procedure P;\r\n\r\ndeprecated;\r\ndeprecated ;\r\nimplementation end.",
           "unit U; interface deprecated",
           "unit U; { never closed",
           "unit U; (* a *) // b\r\n interface { c\r\n d } implementation { e } end { f } . { g }",
           "unit U; interface {$ifdef A} {x} type A = {$else} y {$endif} class end; implementation end.",
           "  \r\n\r\n",
           "",
       })
    ExpectTheSameBothWays(text);
}

TEST(PlainWalk, SeesTheSameRealUnitsAsTheOperations) {
  const auto units = support::PascalUnits();
  if (units.empty())
    GTEST_SKIP() << support::NoPascalUnits;
  for (std::size_t i = 0; i < units.size(); i += 32) {
    SCOPED_TRACE(units[i]);
    ExpectTheSameBothWays(support::ReadFile(units[i]));
  }
}

TEST(PlainWalk, IsNotTakenByAParserThatOverridesAnOperation) {
  std::string text = "unit U; interface implementation end.";
  TCountingParser parser;
  parser.SetPasInfo(std::make_shared<TQVPasInfo>());
  parser.Run("", &text);
  EXPECT_EQ(parser.Spaces, 4);
}

} // namespace
