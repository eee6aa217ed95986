// SPDX-License-Identifier: MIT
#include "platform/registry/RegistryText.h"

#include "platform/registry/RegistryHex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/registry/RegistryFiles.h"

namespace platform {
namespace {

struct TRow {
  std::u16string Data; // behind the equals sign
  TRegistryValue Value;
  std::size_t Size; // of the part of Data that is the value
};

TEST(RegistryText, ReadsValuesOfEachType) {
  const std::vector<TRow> rows = {
      {u"dword:0000001f\n", 0x1fU, 14},
      {u"DWORD:FFCCFFCC\r\n", 0xFFCCFFCCU, 14},
      {u"dword:1\n", 1U, 7},
      {u"dword:00000001", 1U, 14},
      {u"dword:00000001  ; a comment\n", 1U, 14},
      {u"\"Shift+Alt+0\"\n", u"Shift+Alt+0", 13},
      {u"\"Shift+Alt+0\"", u"Shift+Alt+0", 13},
      {u"\"\"\n", u"", 2},
      {u"\"C:\\\\a \\\"b\\\"\\\\\"\r\n", u"C:\\a \"b\"\\", 15},
      {u"\"C:\\temp\"\n", u"C:\\temp", 9},
      {u"\"a;b\" ; c\n", u"a;b", 5},
      {u"hex(1):61,00,0a,00,e4,20,00,00\n", u"a\n\u20e4", 30},
      {u"hex(1):61,00,\\\r\n  62,00,00,00\r\n", u"ab", 29},
      {u"HEX(1):00,00\n", u"", 12},
  };
  for (const TRow& row : rows) {
    const auto line = ParseValueLine(u"\"x\"=" + row.Data, 0);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Value, row.Value) << Utf8(row.Data);
    EXPECT_EQ(line->DataEnd - line->DataBegin, row.Size) << Utf8(row.Data);
  }
}

TEST(RegistryText, SeesThatAValueIsThereThatItCannotRead) {
  const std::vector<TRow> rows = {
      {u"\n", {}, 0},
      {u"", {}, 0},
      {u"   \r\n", {}, 0},
      {u"dword:\n", {}, 6},
      {u"dword:0000000001\n", {}, 16},
      {u"dword:12x\n", {}, 9},
      {u"dword:-1\n", {}, 8},
      {u"\"no end\n", {}, 7},
      {u"\"ends in a backslash\\\"\r\n", {}, 22},
      {u"\"a\" \"b\" \n", {}, 7},
      {u"yes\n", {}, 3},
      {u"hex:01,02\n", {}, 9},
      {u"hex:01,\\\n  02,\\\n  03\n\"y\"=dword:00000001\n", {}, 20},
      {u"hex:01,\\\n\"y\"=dword:00000001\n", {}, 8},
      {u"hex:01,\\\n[HKEY_CURRENT_USER]\n", {}, 8},
      {u"hex(2):61,00,00,00\n", {}, 18},
      {u"hex(1):61,00,00\n", {}, 15},
      {u"hex(1):6,100\n", {}, 12},
      {u"hex(1):gg,00\n", {}, 12},
  };
  for (const TRow& row : rows) {
    const auto line = ParseValueLine(u"\"x\"=" + row.Data, 0);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Value, TRegistryValue()) << Utf8(row.Data);
    EXPECT_FALSE(line->Deleted) << Utf8(row.Data);
    EXPECT_EQ(line->DataBegin, 4U + (row.Data.starts_with(u' ') ? 3U : 0U)) << Utf8(row.Data);
    EXPECT_EQ(line->DataEnd - line->DataBegin, row.Size) << Utf8(row.Data);
  }
}

TEST(RegistryText, TakesAShortNumberAtTheEndOfTheFileForACutOne) {
  EXPECT_EQ(ParseValueLine(u"\"x\"=dword:00ccff", 0)->Value, TRegistryValue());
  EXPECT_EQ(ParseValueLine(u"\"x\"=dword:00ccff\n", 0)->Value, TRegistryValue(0xccffU));
}

TEST(RegistryText, TakesAListWithoutItsZeroAtTheEndOfTheFileForACutOne) {
  EXPECT_EQ(ParseValueLine(u"\"x\"=hex(1):61,00", 0)->Value, TRegistryValue());
  EXPECT_EQ(ParseValueLine(u"\"x\"=hex(1):61,00\n", 0)->Value, TRegistryValue(u"a"));
  EXPECT_EQ(ParseValueLine(u"\"x\"=hex(1):61,00,00,00", 0)->Value, TRegistryValue(u"a"));
  EXPECT_EQ(ParseValueLine(u"\"x\"=hex(1):61,00,\\\n", 0)->Value, TRegistryValue()) << "it should go on";
}

TEST(RegistryText, KnowsWhichPathsALineCanHold) {
  for (const char16_t* path : {u"HKEY_CURRENT_USER\\a", u"HKEY_CURRENT_USER\\a]", u"HKEY_CURRENT_USER\\a] b;",
                               u"HKEY_CURRENT_USER\\a;b", u"HKEY_CURRENT_USER\\[a] "})
    EXPECT_TRUE(IsKeyPath(path)) << Utf8(path);
  for (const char16_t* path :
       {u"HKEY_CURRENT_USER\\a];b", u"HKEY_CURRENT_USER\\a] ;b", u"HKEY_CURRENT_USER\\a\nb", u"-a"})
    EXPECT_FALSE(IsKeyPath(path)) << Utf8(path);
}

TEST(RegistryText, ReadsNames) {
  EXPECT_EQ(ParseValueLine(u"@=\"x\"", 0)->Name, u"");
  EXPECT_EQ(ParseValueLine(u"\"\"=\"x\"", 0)->Name, u"");
  EXPECT_EQ(ParseValueLine(u" \"a b=c\" = dword:00000001", 0)->Name, u"a b=c");
  EXPECT_EQ(ParseValueLine(u"\"say \\\"a\\\\b\\\"\"=\"x\"", 0)->Name, u"say \"a\\b\"");
}

TEST(RegistryText, TakesNothingElseForAValue) {
  for (const char16_t* line : {u"", u"\n", u"x=1", u"\"x\"", u"\"x=1", u"; \"x\"=\"y\"", u"[x]=\"y\"", u"@", u"=\"y\""})
    EXPECT_FALSE(ParseValueLine(line, 0)) << Utf8(line);
}

TEST(RegistryText, SeesDeletedValues) {
  EXPECT_TRUE(ParseValueLine(u"\"x\"=-\n", 0)->Deleted);
  EXPECT_TRUE(ParseValueLine(u"\"x\"= - ; gone\n", 0)->Deleted);
  EXPECT_FALSE(ParseValueLine(u"\"x\"=-1\n", 0)->Deleted);
}

TEST(RegistryText, ReadsKeys) {
  struct TKeyRow {
    std::u16string_view Line;
    std::u16string_view Path;
    bool Deleted;
  };
  const std::vector<TKeyRow> rows = {
      {u"[HKEY_CURRENT_USER\\Software]\n", u"HKEY_CURRENT_USER\\Software", false},
      {u"  [HKEY_CURRENT_USER\\Software]  \r\n", u"HKEY_CURRENT_USER\\Software", false},
      {u"[-HKEY_CURRENT_USER\\Software]", u"HKEY_CURRENT_USER\\Software", true},
      {u"[HKEY_CURRENT_USER\\a[1] b]\n", u"HKEY_CURRENT_USER\\a[1] b", false},
      {u"[HKEY_CURRENT_USER\\a] ; as in [b]\n", u"HKEY_CURRENT_USER\\a", false},
      {u"[HKEY_CURRENT_USER\\Soft", u"", false},
      {u"[HKEY_CURRENT_USER\\a] b\n", u"", false},
      {u"[", u"", false},
      {u"[]", u"", false},
      {u"[-]", u"", true},
  };
  for (const TKeyRow& row : rows) {
    const auto key = ParseKeyLine(row.Line);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->Path, row.Path) << Utf8(row.Line);
    EXPECT_EQ(key->Deleted, row.Deleted) << Utf8(row.Line);
  }
  EXPECT_FALSE(ParseKeyLine(u"; [HKEY_CURRENT_USER]\n"));
  EXPECT_FALSE(ParseKeyLine(u"\n"));
}

TEST(RegistryText, KnowsTheHeadersOfBothVersions) {
  EXPECT_TRUE(IsHeaderLine(u"Windows Registry Editor Version 5.00\r\n"));
  EXPECT_TRUE(IsHeaderLine(u"REGEDIT4\n"));
  EXPECT_FALSE(IsHeaderLine(u"Windows Registry Editor\n"));
}

TEST(RegistryText, WritesValuesOfEachType) {
  EXPECT_EQ(FormatValue(0U), u"dword:00000000");
  EXPECT_EQ(FormatValue(0xFFCC0A0BU), u"dword:ffcc0a0b");
  EXPECT_EQ(FormatValue(u""), u"\"\"");
  EXPECT_EQ(FormatValue(u"C:\\a \"b\""), u"\"C:\\\\a \\\"b\\\"\"");
  EXPECT_EQ(FormatValue(u"a\n\u20e4"), u"hex(1):61,00,0a,00,e4,20,00,00");
  EXPECT_EQ(FormatValue(TRegistryValue()), u"-");
}

TEST(RegistryText, WritesNames) {
  EXPECT_EQ(FormatName(u"LineWidth"), u"\"LineWidth\"");
  EXPECT_EQ(FormatName(u""), u"@");
  EXPECT_EQ(FormatName(u"a\\\"b"), u"\"a\\\\\\\"b\"");
}

} // namespace
} // namespace platform
