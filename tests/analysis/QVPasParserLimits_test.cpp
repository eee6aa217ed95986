// SPDX-License-Identifier: MIT
// Names that are copied for every routine inside of theirs must not make an outline larger than its text by far.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "Outlines.h"

namespace {

using namespace quorvane;
using support::Outlined;

// A routine with so many others inside.
std::string Nest(const std::string& name, int count) {
  std::string text = "unit U; interface implementation\nprocedure " + name + ";\n";
  for (int index = 0; index < count; ++index)
    text += "procedure P" + std::to_string(index) + "; begin end;\n";
  return text + "begin end;\nend.\n";
}

std::size_t CharactersIn(const TQVNameList& names) {
  return std::accumulate(names.begin(), names.end(), std::size_t{0},
                         [](std::size_t sum, const auto& name) { return sum + name.first.size(); });
}

TEST(OutlinePaths, MayBeAsLongAsTheLimit) {
  const std::string outer(TQVPasParser::MaxPathLength - 3, 'x');
  const support::TOutlined outlined = Outlined(Nest(outer, 1));
  EXPECT_EQ(outlined.Fatal, "");
  EXPECT_TRUE(outlined.Info->GetMethods().contains(outer + ".P0"));
}

TEST(OutlinePaths, EndTheParseWhereTheyAreLonger) {
  const std::string outer(TQVPasParser::MaxPathLength - 2, 'x');
  const support::TOutlined outlined = Outlined(Nest(outer, 1));
  EXPECT_EQ(outlined.Fatal, "Names of nested routines longer than 2048 characters");
  EXPECT_FALSE(outlined.Info->GetMethods().contains(outer + ".P0"));
}

TEST(OutlinePaths, CountTheClassesAsWell) {
  const std::string half(TQVPasParser::MaxPathLength / 2, 'x');
  EXPECT_EQ(Outlined("unit U; interface implementation procedure T." + half + "; begin end; end.").Fatal, "");
  EXPECT_EQ(Outlined("unit U; interface implementation procedure " + half + ".P; begin end; end.").Fatal,
            "Names of nested routines longer than 2048 characters");
}

TEST(OutlinePaths, TakeMemoryInProportionToTheText) {
  for (const int count : {2000, 8000}) {
    const std::string text = Nest(std::string(static_cast<std::size_t>(count) * 25, 'x'), count);
    EXPECT_LE(CharactersIn(Outlined(text).Info->GetMethods()), text.size()) << count << " nested routines";
  }
}

} // namespace
