// SPDX-License-Identifier: MIT
// Files that are no registry export, or only what is left of one.
#include "platform/registry/RegistryDocument.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/registry/RegistryFiles.h"

namespace platform {
namespace {

const std::string wholeFile = TestFile("\"number\"=dword:00ccffcc\n\"text\"=\"C:\\\\a \\\"b\\\" \u00e4\u20ac\"\n"
                                       "\"lines\"=hex(1):61,00,0a,00,\\\n  62,00,63,00,00,00\n"
                                       "\"list\"=hex(1):61,00,00,00\n\"number2\"=dword:00000102");

// Cuts the file at every place.
template <class TVisit> void ForEachCut(TVisit visit) {
  for (std::size_t size = 0; size < wholeFile.size(); ++size) {
    SCOPED_TRACE("cut to " + std::to_string(size) + " bytes");
    visit(std::string_view(wholeFile).substr(0, size));
  }
}

// Each value is that of the whole file, or cannot be read.
void ExpectNoOthers(const TRegistryDocument& document) {
  const TRegistryDocument whole(wholeFile);
  for (const auto& [name, value] : document.Values(testKey)) {
    if (value != TRegistryValue() && name != u"new") {
      EXPECT_EQ(value, ValueOf(whole, name)) << Utf8(name);
    }
  }
}

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
  ForEachCut([](std::string_view bytes) { ExpectNoOthers(TRegistryDocument(bytes)); });
}

TEST(RegistryDamage, WhatIsWrittenBehindACutDoesNotMakeItsValueReadable) {
  ForEachCut([](std::string_view bytes) {
    for (const std::u16string& key : {testKey, std::u16string(u"HKEY_CURRENT_USER\\Other")}) {
      const TRegistryDocument written(Written(bytes, {{u"new", 1U}}, key));
      EXPECT_EQ(ValueOf(written, u"new", key), TRegistryValue(1U));
      ExpectNoOthers(written);
    }
  });
}

TEST(RegistryDamage, ACutValueBecomesACommentWhenSomethingIsWrittenBehindIt) {
  const std::string added = "\n\"b\"=dword:00000001\n";
  for (const char* cut : {"\"a\"=dword:0000002", "\"a\"=hex(1):61,00", "\"a\"=hex(1):61,00,\\\n  62,00"})
    EXPECT_EQ(Written(TestFile(cut), {{u"b", 1U}}), TestFile(";" + std::string(cut) + added));
  for (const char* whole : {"\"a\"=dword:00000002", "\"a\"=hex:61,00", "\"a\"=\"cut", "\"a\"=dword:2 "})
    EXPECT_EQ(Written(TestFile(whole), {{u"b", 1U}}), TestFile(whole + added));
}

TEST(RegistryDamage, ACutValueIsWrittenOver) {
  EXPECT_EQ(Written(TestFile("\"a\"=dword:0000002"), {{u"b", 1U}, {u"a", 3U}}),
            TestFile("\"a\"=dword:00000003\n\"b\"=dword:00000001\n"));
}

TEST(RegistryDamage, ACutValueStaysAsLongAsNothingIsWrittenBehindIt) {
  EXPECT_EQ(Written(TestFile("\"b\"=dword:00000001\n\"a\"=dword:0000002"), {{u"b", 3U}}),
            TestFile("\"b\"=dword:00000003\n\"a\"=dword:0000002"));
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
