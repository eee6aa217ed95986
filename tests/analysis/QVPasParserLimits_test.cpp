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

TEST(OutlinePaths, OfRealNestsAreAllKept) {
  const support::TOutlined outlined = Outlined(Nest(std::string(1000, 'x'), 300));
  EXPECT_EQ(outlined.Fatal, "");
  EXPECT_EQ(outlined.Info->GetMethods().size(), 301U);
}

TEST(OutlinePaths, EndTheParseWhereTheyTakeMoreRoomThanTheText) {
  const support::TOutlined outlined = Outlined(Nest(std::string(1000, 'x'), 5000));
  EXPECT_EQ(outlined.Fatal, "The names of nested routines take more room than the text");
  EXPECT_GT(outlined.Info->GetMethods().size(), 300U);
}

TEST(OutlinePaths, MayBeAsLongAsTheTextAllows) {
  // One name that is most of a text; then a text whose many names are not nested.
  EXPECT_EQ(Outlined(Nest(std::string(4'000'000, 'x'), 1)).Fatal, "");
  std::string text = "unit U; interface implementation\n";
  for (int index = 0; index < 50'000; ++index)
    text += "procedure TClass.SomewhatLongName" + std::to_string(index) + "; begin end;\n";
  const support::TOutlined outlined = Outlined(text + "end.");
  EXPECT_EQ(outlined.Fatal, "");
  EXPECT_EQ(outlined.Info->GetMethods().size(), 50'000U);
}

TEST(OutlinePaths, TakeMemoryInProportionToTheText) {
  for (const int count : {2000, 8000}) {
    const std::string text = Nest(std::string(static_cast<std::size_t>(count), 'x'), count);
    const std::size_t limit = 2 * text.size() + static_cast<std::size_t>(TQVPasParser::FreePathLength);
    const std::size_t kept = CharactersIn(Outlined(text).Info->GetMethods());
    EXPECT_LE(kept, limit) << count << " nested routines";
    EXPECT_GT(kept, text.size()) << count << " nested routines";
  }
}

} // namespace
