// SPDX-License-Identifier: MIT
#include "platform/registry/RegistryDocument.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "platform/registry/RegistryFiles.h"

namespace platform {
namespace {

TEST(RegistryDocument, HasNoKeysAtFirst) {
  const TRegistryDocument document;
  EXPECT_FALSE(document.HasKey(testKey));
  EXPECT_TRUE(document.Values(testKey).empty());
  EXPECT_FALSE(document.Damaged());
}

TEST(RegistryDocument, ReadsTheValuesOfOneKeyOnly) {
  const TRegistryDocument document(TestFile("\"LineWidth\"=dword:00000003\n\n[HKEY_CURRENT_USER\\Software\\Other]\n"
                                            "\"LineWidth\"=dword:00000004\n"));
  EXPECT_EQ(document.Values(testKey).size(), 1U);
  EXPECT_EQ(ValueOf(document, u"LineWidth"), TRegistryValue(3U));
}

TEST(RegistryDocument, DoesNotMindTheCaseOfNames) {
  const TRegistryDocument document(TestFile("\"LineWidth\"=dword:00000003\n"));
  EXPECT_TRUE(document.HasKey(u"hkey_current_user\\SOFTWARE\\vantrel\\qvide"));
  EXPECT_EQ(ValueOf(document, u"LINEwidth", u"HKEY_CURRENT_USER\\SoftWare\\VANTREL\\QVIDE"), TRegistryValue(3U));
}

TEST(RegistryDocument, HasTheKeysAboveAKey) {
  const TRegistryDocument document(TestFile(""));
  EXPECT_TRUE(document.HasKey(u"HKEY_CURRENT_USER\\Software\\Vantrel"));
  EXPECT_TRUE(document.HasKey(u"HKEY_CURRENT_USER"));
  EXPECT_FALSE(document.HasKey(u"HKEY_CURRENT_USER\\Soft"));
  EXPECT_FALSE(document.HasKey(u"HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE\\Sub"));
}

TEST(RegistryDocument, JoinsThePartsOfAKey) {
  const TRegistryDocument document(TestFile("\"a\"=dword:00000001\n\"b\"=dword:00000001\n[HKEY_CURRENT_USER\\X]\n"
                                            "[HKEY_CURRENT_USER\\software\\vantrel\\qvide]\n\"B\"=dword:00000002\n"));
  EXPECT_EQ(ValueOf(document, u"a"), TRegistryValue(1U));
  EXPECT_EQ(ValueOf(document, u"b"), TRegistryValue(2U));
}

TEST(RegistryDocument, TheLaterOfTwoValuesCounts) {
  const TRegistryDocument document(TestFile("\"a\"=dword:00000001\n\"A\"=\"text\"\n"));
  EXPECT_EQ(ValueOf(document, u"a"), TRegistryValue(u"text"));
}

TEST(RegistryDocument, DeletionsTakeAwayWhatStandsBeforeThem) {
  const TRegistryDocument document(
      TestFile("\"a\"=dword:00000001\n\"a\"=-\n\"b\"=-\n\"b\"=dword:00000002\n[HKEY_CURRENT_USER\\Gone\\Sub]\n"
               "\"c\"=dword:00000003\n[-HKEY_CURRENT_USER\\Gone]\n"));
  EXPECT_FALSE(document.Values(testKey).contains(u"a"));
  EXPECT_EQ(ValueOf(document, u"b"), TRegistryValue(2U));
  EXPECT_FALSE(document.HasKey(u"HKEY_CURRENT_USER\\Gone\\Sub"));
  EXPECT_FALSE(document.HasKey(u"HKEY_CURRENT_USER\\Gone"));
  EXPECT_TRUE(document.Values(u"HKEY_CURRENT_USER\\Gone\\Sub").empty());
}

TEST(RegistryDocument, AValueThatCannotBeReadIsThereAllTheSame) {
  const TRegistryDocument document(TestFile("\"a\"=dword:yes\n"));
  EXPECT_TRUE(document.Values(testKey).contains(u"a"));
  EXPECT_EQ(ValueOf(document, u"a"), TRegistryValue());
}

TEST(RegistryDocument, ReadsAnExportOfAnotherMachine) {
  std::ifstream file(VIRELLE_TEST_DATA "/registry/export.reg", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  ASSERT_TRUE(bytes.starts_with("\xFF\xFE"));
  const TRegistryDocument document(bytes);
  EXPECT_FALSE(document.Damaged());
  EXPECT_EQ(ValueOf(document, u"ParenColor"), TRegistryValue(0x00C0C0C0U));
  EXPECT_EQ(ValueOf(document, u"TemplateKey"), TRegistryValue(32U));
  EXPECT_EQ(ValueOf(document, u"StorageDir"), TRegistryValue(u"C:\\Users\\J\u00f6rg\\Templates\\"));
  EXPECT_EQ(ValueOf(document, u"MarkerHotKey"), TRegistryValue(u"Shift+Alt+0"));
  EXPECT_EQ(ValueOf(document, u"WindowPlace"), TRegistryValue());
  EXPECT_EQ(ValueOf(document, u"ColorP", u"HKEY_CURRENT_USER\\SoftWare\\Pelinor"), TRegistryValue(u"FFFFFF"));
  EXPECT_EQ(document.Bytes(), bytes);
}

TEST(RegistryDocument, ReadsEachEncoding) {
  const std::u16string text = u"REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\r\n\"a\"=\"\u00e4\"\r\n";
  using enum quorvane::TEncodingKind;
  const std::vector<quorvane::TEncoding> encodings = {
      {Utf8, false}, {Utf8, true}, {Utf16LE, true}, {Utf16BE, true}, {CodePage}};
  for (const quorvane::TEncoding& encoding : encodings) {
    const std::string bytes = quorvane::Encode(text, encoding).Bytes;
    const TRegistryDocument document(bytes);
    EXPECT_EQ(ValueOf(document, u"a"), TRegistryValue(u"\u00e4")) << quorvane::EncodingName(encoding);
    EXPECT_EQ(document.Bytes(), bytes) << quorvane::EncodingName(encoding);
  }
}

} // namespace
} // namespace platform
