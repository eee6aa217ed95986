// SPDX-License-Identifier: MIT
// The parsers over every unit of a large body of real source, most of which uses a newer language: what counts here is
// that each parse comes to an end.
#include <gtest/gtest.h>

#include <memory>

#include "analysis/QVPasInfo.h"
#include "analysis/QVPasParser.h"
#include "parser/ParserProbe.h"
#include "support/PascalUnits.h"

namespace quorvane {
namespace {

class ParsedRealUnits : public testing::Test {
protected:
  void SetUp() override {
    FPaths = support::PascalUnits();
    if (FPaths.empty())
      GTEST_SKIP() << support::NoPascalUnits;
  }

  const std::vector<std::filesystem::path>& Paths() const { return FPaths; }

private:
  std::vector<std::filesystem::path> FPaths;
};

TEST_F(ParsedRealUnits, ComeToAnEndWithoutAHandler) {
  for (const std::filesystem::path& path : Paths()) {
    TReporter parser(TOnReport::NoHandler);
    parser.Parse(support::ReadFile(path));
    EXPECT_EQ(parser.Reports().size(), parser.HasEndedEarly() ? 1U : 0U) << path;
  }
}

// With the handler that an editor has, the parser finds its way back into most units.
TEST_F(ParsedRealUnits, ComeToAnEndForAnOutlineThatHasTheirRoutines) {
  std::size_t methods = 0;
  for (const std::filesystem::path& path : Paths()) {
    std::string text = support::ReadFile(path);
    const auto info = std::make_shared<TQVPasInfo>();
    TQVPasParser parser;
    parser.SetPasInfo(info);
    try {
      parser.Run("", &text);
    } catch (const ESyntaxError&) {
      EXPECT_EQ(parser.Lexer().TokenID(), ptNull) << path;
    }
    methods += info->GetMethods().size();
  }
  EXPECT_GT(methods, Paths().size());
}

} // namespace
} // namespace quorvane
