// SPDX-License-Identifier: MIT
// What writing a value changes in an INI file, and what it leaves alone.
#include "platform/ini/IniDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

std::string Written(std::string_view bytes, std::string_view section, std::string_view key, std::string_view value) {
  TIniDocument document(bytes);
  document.Write(section, key, value);
  return document.Bytes();
}

// After writing "new" to the key "code" of the section "a".
std::string Written(std::string_view bytes) {
  return Written(bytes, "a", "code", "new");
}

TEST(IniWriting, MakesANewFile) {
  EXPECT_EQ(Written(""), "[a]\ncode=new\n");
}

TEST(IniWriting, ChangesAValueAtItsPlace) {
  EXPECT_EQ(Written("; one\n[a]\nx=1\n  Code = old\t\n; two\n[b]\ncode=old\n"),
            "; one\n[a]\nx=1\n  Code = new\t\n; two\n[b]\ncode=old\n");
}

TEST(IniWriting, FillsAnEmptyValue) {
  EXPECT_EQ(Written("[a]\ncode="), "[a]\ncode=new");
  EXPECT_EQ(Written("[a]\ncode=  \n"), "[a]\ncode=new  \n");
}

TEST(IniWriting, LeavesAValueThatIsAsItShouldBe) {
  EXPECT_EQ(Written("[a]\ncode= \"new\" \n"), "[a]\ncode= \"new\" \n");
}

TEST(IniWriting, ChangesTheFirstOfSeveralSectionsAndKeysOfOneName) {
  EXPECT_EQ(Written("[A]\ncode=1\ncode=2\n[a]\ncode=3\n"), "[A]\ncode=new\ncode=2\n[a]\ncode=3\n");
  EXPECT_EQ(Written("[A]\n[a]\ncode=3\n"), "[A]\ncode=new\n[a]\ncode=3\n");
}

TEST(IniWriting, AddsAKeyAtTheEndOfItsSection) {
  EXPECT_EQ(Written("[a]\nx=1\n; note\n\n \n[b]\n"), "[a]\nx=1\n; note\ncode=new\n\n \n[b]\n");
  EXPECT_EQ(Written("[a]\n\n[b]\n"), "[a]\ncode=new\n\n[b]\n");
}

TEST(IniWriting, AddsASectionAtTheEndOfTheFile) {
  EXPECT_EQ(Written("; note\n[b]\ncode=1\n"), "; note\n[b]\ncode=1\n[a]\ncode=new\n");
}

TEST(IniWriting, AddsBehindALastLineThatHasNoEnd) {
  EXPECT_EQ(Written("[a]"), "[a]\ncode=new");
  EXPECT_EQ(Written("[a]\r\nx=1"), "[a]\r\nx=1\r\ncode=new");
  EXPECT_EQ(Written("[b]\r\nx=1"), "[b]\r\nx=1\r\n[a]\r\ncode=new\r\n");
  EXPECT_EQ(Written("note"), "note\n[a]\ncode=new\n");
}

TEST(IniWriting, EndsNewLinesAsTheFirstLineEnds) {
  EXPECT_EQ(Written("[b]\r\nx=1\n"), "[b]\r\nx=1\n[a]\r\ncode=new\r\n");
  EXPECT_EQ(Written("[b]\rx=1\r"), "[b]\rx=1\r[a]\rcode=new\r");
  EXPECT_EQ(Written("[a]\rx=1\r[b]\r"), "[a]\rx=1\rcode=new\r[b]\r");
}

TEST(IniWriting, DoesNotAddToADamagedSection) {
  EXPECT_EQ(Written("[a]\n[damaged\nx=1\n"), "[a]\ncode=new\n[damaged\nx=1\n");
  EXPECT_EQ(Written("[a\nx=1\n"), "[a\nx=1\n[a]\ncode=new\n");
}

TEST(IniWriting, KeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(Written("; \xFF\xFE\xC3\n[b\xE4]\ncode=\xE4\n\0\x01\n"sv),
            "; \xFF\xFE\xC3\n[b\xE4]\ncode=\xE4\n\0\x01\n[a]\ncode=new\n"sv);
}

TEST(IniWriting, FindsASectionInTheOldCodePage) {
  EXPECT_EQ(Written("[Gr\366\337e]\ncode=\xE4\n", "Gr\u00f6\u00dfe", "code", "\u00f6"), "[Gr\366\337e]\ncode=\u00f6\n");
}

TEST(IniWriting, KeepsAByteOrderMark) {
  EXPECT_EQ(Written("\xEF\xBB\xBF"), "\xEF\xBB\xBF[a]\ncode=new\n");
  EXPECT_EQ(Written("\xEF\xBB\xBF[a]\ncode=old\n"), "\xEF\xBB\xBF[a]\ncode=new\n");
}

TEST(IniWriting, KeepsUtf16) {
  EXPECT_EQ(Written(std::string("\xFF\xFE[\0a\0]\0", 8), "a", "k", "\u2208"),
            std::string("\xFF\xFE[\0a\0]\0\n\0k\0=\0\x08\x22", 16));
  EXPECT_EQ(Written(std::string("\xFE\xFF\0[\0a\0]", 8), "a", "k", "\u2208"),
            std::string("\xFE\xFF\0[\0a\0]\0\n\0k\0=\x22\x08", 16));
}

TEST(IniWriting, QuotesValuesThatWouldNotComeBackOtherwise) {
  EXPECT_EQ(Written("", "a", "k", " x"), "[a]\nk=\" x\"\n");
  EXPECT_EQ(Written("", "a", "k", "x\t"), "[a]\nk=\"x\t\"\n");
  EXPECT_EQ(Written("", "a", "k", "\"x\""), "[a]\nk=\"\"x\"\"\n");
  EXPECT_EQ(Written("", "a", "k", "\"\""), "[a]\nk=\"\"\"\"\n");
}

TEST(IniWriting, QuotesNothingElse) {
  EXPECT_EQ(Written("", "a", "k", ""), "[a]\nk=\n");
  EXPECT_EQ(Written("", "a", "k", "\"x"), "[a]\nk=\"x\n");
  EXPECT_EQ(Written("", "a", "k", "'x'"), "[a]\nk='x'\n");
}

TEST(IniWriting, DropsBlanksAroundNames) {
  EXPECT_EQ(Written("", " a\t", "\tk ", "x"), "[a]\nk=x\n");
  EXPECT_EQ(Written("[a]\nk=1\n", " a ", " k ", "2"), "[a]\nk=2\n");
}

} // namespace
} // namespace platform
