// SPDX-License-Identifier: MIT
// The lexer over every unit of a large body of real source.
#include "lexer/zkPasLex.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/PascalUnits.h"

namespace quorvane {
namespace {

class RealUnits : public testing::Test {
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

// One number for all that a scan of a text gives.
std::uint64_t Digest(TzkPasLex& lexer, const char* text) {
  std::uint64_t digest = 0;
  const auto add = [&digest](std::int64_t value) {
    digest = (digest ^ static_cast<std::uint64_t>(value)) * 0x100000001B3U;
  };
  lexer.SetOrigin(text);
  for (;; lexer.Next()) {
    add(lexer.TokenID() << 8 | lexer.ExID());
    add(lexer.RunPos());
    add(lexer.LinePos());
    if (lexer.TokenID() == ptNull)
      return digest;
  }
}

TEST_F(RealUnits, AreCoveredByTheirTokensWithoutGapOrOverlap) {
  TzkBasePasLex lexer;
  for (const std::filesystem::path& path : Paths()) {
    const std::string text = support::ReadFile(path);
    std::int32_t end = 0;
    lexer.SetOrigin(text.c_str());
    while (lexer.TokenID() != ptNull && lexer.TokenPos() == end && lexer.RunPos() > end) {
      end = lexer.RunPos();
      lexer.Next();
    }
    ASSERT_EQ(lexer.TokenID(), ptNull) << path;
    ASSERT_EQ(lexer.TokenPos(), end) << path;
    ASSERT_EQ(static_cast<std::size_t>(end), std::strlen(text.c_str())) << path;
  }
}

TEST_F(RealUnits, AreWalkedToTheirEndWithoutJunk) {
  TzkBasePasLex lexer;
  for (const std::filesystem::path& path : Paths()) {
    const std::string text = support::ReadFile(path);
    std::int32_t end = -1;
    lexer.SetOrigin(text.c_str());
    for (lexer.NextNoJunk(); lexer.TokenID() != ptNull && lexer.RunPos() > end; lexer.NextNoJunk())
      end = lexer.RunPos();
    ASSERT_EQ(lexer.TokenID(), ptNull) << path;
    ASSERT_EQ(static_cast<std::size_t>(lexer.RunPos()), std::strlen(text.c_str())) << path;
  }
}

TEST_F(RealUnits, ScanAlikeWhateverWasScannedBefore) {
  TzkPasLex used;
  for (const std::filesystem::path& path : Paths()) {
    const std::string text = support::ReadFile(path);
    TzkPasLex fresh;
    ASSERT_EQ(Digest(used, text.c_str()), Digest(fresh, text.c_str())) << path;
  }
}

} // namespace
} // namespace quorvane
