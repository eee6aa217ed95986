// SPDX-License-Identifier: MIT
// What erasing a section takes away from an INI file.
#include "platform/ini/IniDocument.h"

#include <gtest/gtest.h>

#include <string>

namespace platform {
namespace {

// After erasing the section "a".
std::string Erased(std::string_view bytes) {
  TIniDocument document(bytes);
  document.Erase("a");
  return document.Bytes();
}

TEST(IniErasing, TakesTheSectionsLinesAway) {
  EXPECT_EQ(Erased("; one\n[b]\nx=1\n[A]\ncode=1\n; note\n\n[c]\nx=2"), "; one\n[b]\nx=1\n[c]\nx=2");
}

TEST(IniErasing, LeavesTheLinesAboveTheFirstSection) {
  EXPECT_EQ(Erased("code=0\n[a]\ncode=1\n"), "code=0\n");
}

TEST(IniErasing, LeavesNothingOfAFileThatHasNothingElse) {
  EXPECT_EQ(Erased("[a]\ncode=1\n"), "");
}

TEST(IniErasing, TakesAllSectionsOfTheNameAway) {
  EXPECT_EQ(Erased("[a]\nx=1\n[b]\nx=2\n[A]\nx=3\n[ a ]\nx=4\n"), "[b]\nx=2\n");
}

TEST(IniErasing, ChangesNothingIfThereIsNoSuchSection) {
  const std::string bytes = "code=1\r\n[ab]\rcode=1\n[a\n\xFF";
  EXPECT_EQ(Erased(bytes), bytes);
}

TEST(IniErasing, EndsAtADamagedSection) {
  EXPECT_EQ(Erased("[a]\nx=1\n[damaged\nx=2\n[b]\n"), "[damaged\nx=2\n[b]\n");
}

TEST(IniErasing, KeepsAByteOrderMark) {
  EXPECT_EQ(Erased("\xEF\xBB\xBF[a]\nx=1\n"), "\xEF\xBB\xBF");
}

TEST(IniErasing, LetsTheSectionBeMadeAgain) {
  TIniDocument document("[a]\nother=1\n[b]\nx=2\n");
  document.Erase("a");
  EXPECT_EQ(document.Value("a", "other"), std::nullopt);
  EXPECT_EQ(document.Value("b", "x"), "2");
  document.Write("a", "code", "3");
  EXPECT_EQ(document.Bytes(), "[b]\nx=2\n[a]\ncode=3\n");
}

} // namespace
} // namespace platform
