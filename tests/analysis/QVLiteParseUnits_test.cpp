// SPDX-License-Identifier: MIT
// The light parser over every unit of a large body of real source.
#include "analysis/QVLiteParse.h"

#include <gtest/gtest.h>

#include "support/LitePasReference.h"
#include "support/NestingCheck.h"
#include "support/PascalUnits.h"

namespace quorvane {
namespace {

TEST(RealUnitsLightly, AnnounceConstructsThatNest) {
  const std::vector<std::filesystem::path> paths = support::PascalUnits();
  if (paths.empty())
    GTEST_SKIP() << support::NoPascalUnits;
  TQVLitePasParser parser;
  std::size_t announced = 0;
  for (const std::filesystem::path& path : paths) {
    const std::string text = support::ReadFile(path);
    support::TNestingCheck nesting;
    int broken = 0;
    const auto check = [&](std::span<const TQVLitePasElement> elements) {
      const TQVLitePasElement& opener = elements.front();
      const std::int32_t start = opener.Position - static_cast<std::int32_t>(opener.Text.size());
      broken += nesting.Add(start, parser.Lexer().RunPos()) ? 0 : 1;
      ++announced;
    };
    parser.SetOnBlock(check);
    parser.SetOnRound(check);
    parser.ParseFull(text.c_str());
    ASSERT_EQ(broken, 0) << path;
  }
  EXPECT_GT(announced, paths.size());
}

TEST(RealUnitsLightly, AnnounceLikeTheReference) {
  const std::vector<std::filesystem::path> paths = support::PascalUnits();
  if (paths.empty())
    GTEST_SKIP() << support::NoPascalUnits;
  TQVLitePasParser parser;
  support::TLitePasReference reference;
  for (const std::filesystem::path& path : paths) {
    const std::string text = support::ReadFile(path);
    ASSERT_TRUE(support::Announced(parser, text) == reference.Parse(text)) << path;
  }
}

} // namespace
} // namespace quorvane
