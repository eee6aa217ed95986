// SPDX-License-Identifier: MIT
#include "analysis/QVUnitCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <stop_token>
#include <string>

namespace quorvane {
namespace {

std::string UnitWith(const std::string& statements) {
  return "unit A;\r\ninterface\r\nimplementation\r\nprocedure P;\r\nbegin\r\n" + statements + "end;\r\nend.\r\n";
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

TEST(QVUnitCheck, FindsNothingInACorrectUnit) {
  const TFindings found = FindingsIn(UnitWith("  if a then b;\r\n"));
  EXPECT_TRUE(found.Findings.empty());
  EXPECT_EQ(found.LeftOut, 0U);
}

TEST(QVUnitCheck, CountsLinesColumnsAndLengthsOfTokens) {
  const TFindings found = FindingsIn(UnitWith("  if a bcd;\r\n"));
  ASSERT_EQ(found.Findings.size(), 1U);
  EXPECT_EQ(found.Findings[0].Line, 6);
  EXPECT_EQ(found.Findings[0].Column, 8);
  EXPECT_EQ(found.Findings[0].Length, 3);
  EXPECT_EQ(found.Findings[0].Message, "Expected 'Then' found 'bcd'");
  EXPECT_FALSE(found.Findings[0].IsFatal);
}

TEST(QVUnitCheck, KeepsEveryFindingInsideOfItsLine) {
  const std::string text = UnitWith("if a \r\nb;\r\nif\r\n");
  const TFindings found = FindingsIn(text);
  ASSERT_FALSE(found.Findings.empty());
  for (const TFinding& finding : found.Findings) {
    std::size_t start = 0;
    for (int line = 1; line < finding.Line; ++line)
      start = text.find("\r\n", start) + 2;
    const std::size_t end = std::min(text.find("\r\n", start), text.size());
    EXPECT_GE(finding.Column, 1);
    EXPECT_LE(start + static_cast<std::size_t>(finding.Column - 1 + finding.Length), end) << finding.Message;
  }
}

TEST(QVUnitCheck, CallsAnEmptyTextUnfinished) {
  const TFindings found = FindingsIn({});
  ASSERT_FALSE(found.Findings.empty());
  EXPECT_TRUE(found.Findings.back().IsFatal);
  EXPECT_EQ(found.Findings.back().Line, 1);
  EXPECT_EQ(found.Findings.back().Column, 1);
}

TEST(QVUnitCheck, SaysWhereANulHidesText) {
  const TFindings found = FindingsIn(UnitWith("") + std::string("\0x", 2));
  ASSERT_EQ(found.Findings.size(), 1U);
  EXPECT_EQ(found.Findings[0].Line, 8);
  EXPECT_EQ(found.Findings[0].Message, "The text ends at a NUL character; what follows it was not checked");
}

TEST(QVUnitCheck, LeavesOutWhatIsBeyondTenThousand) {
  const TFindings found = FindingsIn(UnitWith(Repeated("if a b;\r\n", 12'000)));
  EXPECT_EQ(found.Findings.size(), 10'000U);
  EXPECT_EQ(found.LeftOut, 2'000U);
}

TEST(QVUnitCheck, ComesBackEarlyWhenItIsAskedToStop) {
  std::stop_source stop;
  stop.request_stop();
  const TFindings found = FindingsIn(UnitWith(Repeated("if a b;\r\n", 5'000)), stop.get_token());
  EXPECT_LT(found.Findings.size(), 1'000U);
}

} // namespace
} // namespace quorvane
