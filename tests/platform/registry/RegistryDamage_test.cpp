// SPDX-License-Identifier: MIT
// Files that are no registry export, or only what is left of one.
#include "platform/registry/RegistryDocument.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/registry/RegistryFiles.h"

namespace platform {
namespace {

TEST(RegistryDamage, AnEmptyFileIsAFreshUser) {
  for (const char* bytes : {"", "\n", " \r\n\r\n", "\xEF\xBB\xBF", "\xFF\xFE"}) {
    const TRegistryDocument document{std::string_view(bytes)};
    EXPECT_FALSE(document.Damaged()) << testing::PrintToString(bytes);
    EXPECT_FALSE(document.HasKey(u"HKEY_CURRENT_USER"));
  }
}

TEST(RegistryDamage, WhatIsNoExportAtAllHasNoKeysAndIsNotWrittenBack) {
  using namespace std::string_literals;
  const std::vector<std::string> files = {
      "\x7F\x45LF\x02\x01\x01 and so on\n",
      std::string(4096, '\0'),
      TestFile("\"a\"=dword:00000001\n") + std::string(100, '\0'),
      "R\0E\0G\0E\0D\0I\0T\0004\0"s, // the mark is missing
      "[section]\nkey=value\n",
      "{\"folders\": []}\n",
  };
  for (const std::string& bytes : files) {
    TRegistryDocument document(bytes);
    EXPECT_TRUE(document.Damaged()) << testing::PrintToString(bytes);
    EXPECT_FALSE(document.HasKey(testKey));
    document.Write({testKey, {{u"b", 2U}}});
    EXPECT_EQ(document.Bytes(), TestFile("\"b\"=dword:00000002\n"));
  }
}

TEST(RegistryDamage, AFileWithoutItsHeaderIsRead) {
  const TRegistryDocument document("[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\n\"a\"=dword:00000001\n");
  EXPECT_FALSE(document.Damaged());
  EXPECT_EQ(ValueOf(document, u"a"), TRegistryValue(1U));
}

TEST(RegistryDamage, LinesAroundNonsenseAreRead) {
  const TRegistryDocument document(TestFile("\"a\"=dword:00000001\n\x01\x02\xFF[\"=\n\"b\"=dword:00000002\n"));
  EXPECT_FALSE(document.Damaged());
  EXPECT_EQ(ValueOf(document, u"a"), TRegistryValue(1U));
  EXPECT_EQ(ValueOf(document, u"b"), TRegistryValue(2U));
}

TEST(RegistryDamage, BytesThatAreNoTextInTheMarkedEncodingAreTold) {
  const TRegistryDocument utf8("\xEF\xBB\xBF" + TestFile("\"a\"=dword:00000001\n\"b\"=\"\xE4\"\n"));
  EXPECT_TRUE(utf8.Damaged());
  EXPECT_EQ(ValueOf(utf8, u"a"), TRegistryValue(1U));

  const std::string utf16 = quorvane::Encode(u"REGEDIT4\n", {quorvane::TEncodingKind::Utf16LE, true}).Bytes;
  EXPECT_TRUE(TRegistryDocument(utf16 + 'x').Damaged());
}

TEST(RegistryDamage, WhereverAFileIsCutEachValueIsRightOrCannotBeRead) {
  const std::string file =
      TestFile("\"number\"=dword:00ccffcc\n\"text\"=\"C:\\\\a \\\"b\\\"\"\n\"number2\"=dword:00000102");
  for (std::size_t size = 0; size < file.size(); ++size) {
    const TRegistryValues values = TRegistryDocument(std::string_view(file).substr(0, size)).Values(testKey);
    for (const auto& [name, value] : values) {
      if (value == TRegistryValue())
        continue;
      const TRegistryValue whole = ValueOf(TRegistryDocument(file), name);
      EXPECT_EQ(value, whole) << "cut to " << size << " bytes";
    }
  }
}

TEST(RegistryDamage, LargeFilesAreReadInLinearTime) {
  // Quadratic work on these 8 MB would take minutes.
  std::string keys = "REGEDIT4\n";
  std::string values = TestFile("");
  std::string hexLines = TestFile("\"x\"=hex:");
  while (keys.size() < 8'000'000)
    keys += "[HKEY_CURRENT_USER\\Software\\Some\\Key]\n\"a\"=dword:00000001\n";
  for (int number = 0; values.size() < 8'000'000; ++number)
    values += "\"value" + std::to_string(number) + "\"=dword:00000001\n";
  while (hexLines.size() < 8'000'000)
    hexLines += "00,\\\n  ";
  const std::string brackets = TestFile("[" + std::string(8'000'000, ']') + "x\n");
  const std::string quotes = TestFile(std::string(8'000'000, '"'));
  for (const std::string& file : {keys, values, hexLines, brackets, quotes}) {
    TRegistryDocument document(file);
    document.Write({testKey, {{u"new", 1U}, {u"value7", 7U}}});
    EXPECT_EQ(ValueOf(TRegistryDocument(document.Bytes()), u"value7"), TRegistryValue(7U));
  }
}

} // namespace
} // namespace platform
