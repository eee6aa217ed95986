// SPDX-License-Identifier: MIT
// What writing changes in a registry's text, and what it leaves alone.
#include "platform/registry/RegistryDocument.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

#include "platform/registry/RegistryFiles.h"

namespace platform {
namespace {

const std::string header = "Windows Registry Editor Version 5.00\n";

TEST(RegistryWriting, MakesANewFile) {
  EXPECT_EQ(Written("", {{u"LineNumbers", 1U}, {u"MarkerHotKey", u"Shift+Alt+0"}}),
            TestFile("\"LineNumbers\"=dword:00000001\n\"MarkerHotKey\"=\"Shift+Alt+0\"\n"));
}

TEST(RegistryWriting, ChangesAValueAtItsPlace) {
  EXPECT_EQ(Written(TestFile("\"a\"=dword:00000001 ; one\n\"b\"=dword:00000001\n"), {{u"a", 2U}}),
            TestFile("\"a\"=dword:00000002 ; one\n\"b\"=dword:00000001\n"));
}

TEST(RegistryWriting, ChangesTheTypeOfAValue) {
  EXPECT_EQ(Written(TestFile("\"a\"=hex:01,\\\n  02\n\"b\"=\"x\"\n"), {{u"b", 2U}, {u"a", u"y"}}),
            TestFile("\"a\"=\"y\"\n\"b\"=dword:00000002\n"));
}

TEST(RegistryWriting, KeepsTheFirstSpellingOfNames) {
  EXPECT_EQ(Written(TestFile("\"LineWidth\"=dword:00000001\n"), {{u"LINEWIDTH", 2U}},
                    u"hkey_current_user\\SOFTWARE\\vantrel\\qvide"),
            TestFile("\"LineWidth\"=dword:00000002\n"));
}

TEST(RegistryWriting, KeepsTheSpellingOfTheKeysAboveANewKey) {
  EXPECT_EQ(Written(TestFile(""), {{u"ColorA", u"FFFFFF"}}, u"HKEY_CURRENT_USER\\SoftWare\\Pelinor"),
            TestFile("\n[HKEY_CURRENT_USER\\Software\\Pelinor]\n\"ColorA\"=\"FFFFFF\"\n"));
}

TEST(RegistryWriting, AddsNewValuesAtTheEndOfTheirKey) {
  EXPECT_EQ(Written(TestFile("\"a\"=dword:00000001\n\n\n[HKEY_CURRENT_USER\\X]\n"), {{u"c", 3U}, {u"b", 2U}}),
            TestFile("\"a\"=dword:00000001\n\"c\"=dword:00000003\n\"b\"=dword:00000002\n\n\n[HKEY_CURRENT_USER\\X]\n"));
}

TEST(RegistryWriting, AddsToAnEmptyKey) {
  EXPECT_EQ(Written(TestFile("\n[HKEY_CURRENT_USER\\X]\n"), {{u"a", 1U}}),
            TestFile("\"a\"=dword:00000001\n\n[HKEY_CURRENT_USER\\X]\n"));
}

TEST(RegistryWriting, EndsALastLineThatHasNoEnd) {
  EXPECT_EQ(Written(TestFile("\"a\"=dword:00000001"), {{u"b", 2U}}),
            TestFile("\"a\"=dword:00000001\n\"b\"=dword:00000002\n"));
  EXPECT_EQ(Written("REGEDIT4", {{u"b", 2U}}, u"HKEY_CURRENT_USER\\X"),
            "REGEDIT4\n\n[HKEY_CURRENT_USER\\X]\n\"b\"=dword:00000002\n");
  EXPECT_EQ(Written("REGEDIT4\n[HKEY_CURRENT_USER\\X]", {{u"b", 2U}}, u"HKEY_CURRENT_USER\\X"),
            "REGEDIT4\n[HKEY_CURRENT_USER\\X]\n\"b\"=dword:00000002\n");
}

TEST(RegistryWriting, AddsAKeyBehindABlankLine) {
  const std::string key = "[HKEY_CURRENT_USER\\X]\n";
  EXPECT_EQ(Written(header, {}, u"HKEY_CURRENT_USER\\X"), header + "\n" + key);
  EXPECT_EQ(Written(header + "\n", {}, u"HKEY_CURRENT_USER\\X"), header + "\n" + key);
}

TEST(RegistryWriting, AnEmptyKeyThatIsThereNeedsNoMention) {
  EXPECT_EQ(Written(TestFile(""), {}), TestFile(""));
  EXPECT_EQ(Written(TestFile(""), {}, u"HKEY_CURRENT_USER\\Software"), TestFile(""));
}

TEST(RegistryWriting, TouchesNothingWhenTheValueIsTheSame) {
  const std::string file = TestFile("\"a\" = dword:1 ; one\n\"b\"=hex(1):61,00,00,00\n");
  EXPECT_EQ(Written(file, {{u"a", 1U}, {u"b", u"a"}}), file);
}

TEST(RegistryWriting, KeepsWhatItDoesNotUnderstandLineForLine) {
  const std::string before = "; mine\n\nnonsense\n\"a\"=dword:zz\n\"b\"=hex(7):61,00,\\\n  00,00\n\"c\"=-\n@=\"x\"\n"
                             "[-HKEY_CURRENT_USER\\Old]\n[broken\n\"d\"=\"cut\n";
  EXPECT_EQ(Written(TestFile(before), {{u"e", 1U}}, u"HKEY_CURRENT_USER\\New"),
            TestFile(before + "\n[HKEY_CURRENT_USER\\New]\n\"e\"=dword:00000001\n"));
}

TEST(RegistryWriting, WritesOverADeletionAndOverDamage) {
  EXPECT_EQ(Written(TestFile("\"a\"=-\n\"b\"=dword:zz ;\n\"c\"=\n\"d\"=\"cut"),
                    {{u"a", 1U}, {u"b", 2U}, {u"c", 3U}, {u"d", u"whole"}}),
            TestFile("\"a\"=dword:00000001\n\"b\"=dword:00000002\n\"c\"=dword:00000003\n\"d\"=\"whole\""));
}

TEST(RegistryWriting, WritesTheLaterOfTwoValues) {
  EXPECT_EQ(Written(TestFile("\"a\"=dword:00000001\n\"A\"=dword:00000002\n"), {{u"a", 3U}}),
            TestFile("\"a\"=dword:00000001\n\"A\"=dword:00000003\n"));
}

TEST(RegistryWriting, WritesBehindTheDeletionOfItsKey) {
  const std::string file = TestFile("\"a\"=dword:00000001\n[-HKEY_CURRENT_USER\\Software]\n");
  EXPECT_EQ(Written(file, {{u"a", 2U}}),
            file + "\n[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\n\"a\"=dword:00000002\n");
}

TEST(RegistryWriting, KeepsLineEnds) {
  EXPECT_EQ(Written("REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\X]\r\n\"a\"=dword:00000001\r\n\r\n",
                    {{u"a", 2U}, {u"b", u"c"}}, u"HKEY_CURRENT_USER\\X"),
            "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\X]\r\n\"a\"=dword:00000002\r\n\"b\"=\"c\"\r\n\r\n");
}

TEST(RegistryWriting, KeepsTheEncoding) {
  using enum quorvane::TEncodingKind;
  const std::u16string before = u"REGEDIT4\n\n[HKEY_CURRENT_USER\\X]\n\"\u00e4\"=\"1\"\n";
  const std::u16string after = u"REGEDIT4\n\n[HKEY_CURRENT_USER\\X]\n\"\u00e4\"=\"\u00f6\"\n";
  for (const quorvane::TEncoding& encoding :
       std::vector<quorvane::TEncoding>{{Utf8, false}, {Utf8, true}, {Utf16LE, true}, {Utf16BE, true}, {CodePage}}) {
    EXPECT_EQ(Written(quorvane::Encode(before, encoding).Bytes, {{u"\u00e4", u"\u00f6"}}, u"HKEY_CURRENT_USER\\X"),
              quorvane::Encode(after, encoding).Bytes)
        << quorvane::EncodingName(encoding);
  }
}

TEST(RegistryWriting, LeavesACodePageThatLacksACharacter) {
  EXPECT_EQ(Written("REGEDIT4\n[HKEY_CURRENT_USER\\X]\n\"a\"=\"\xE4\"\n", {{u"b", u"\u0416"}}, u"HKEY_CURRENT_USER\\X"),
            "REGEDIT4\n[HKEY_CURRENT_USER\\X]\n\"a\"=\"\u00e4\"\n\"b\"=\"\u0416\"\n");
}

// Names and texts of all sorts of characters, but for lone surrogates.
rc::Gen<std::u16string> Text(char16_t first) {
  return rc::gen::container<std::u16string>(rc::gen::cast<char16_t>(
      rc::gen::oneOf(rc::gen::inRange<int>(first, 0x7f), rc::gen::inRange<int>(first, 0xd800),
                     rc::gen::elementOf(std::vector<int>{u'"', u'\\', u'[', u']', u'=', u';', u'@', u'-'}))));
}

RC_GTEST_PROP(RegistryWriting, AnyTextComesBack, ()) {
  const std::u16string name = *Text(u' ');
  const std::u16string value = *Text(0);
  RC_ASSERT(ValueOf(TRegistryDocument(Written("", {{name, value}})), name) == TRegistryValue(value));
}

RC_GTEST_PROP(RegistryWriting, AnyNumberComesBack, (std::uint32_t value)) {
  RC_ASSERT(ValueOf(TRegistryDocument(Written("", {{u"a", value}})), u"a") == TRegistryValue(value));
}

RC_GTEST_PROP(RegistryWriting, AnyKeyComesBack, ()) {
  const std::u16string key = u"HKEY_CURRENT_USER\\" + *Text(u' ');
  RC_PRE(IsKeyPath(key));
  RC_ASSERT(ValueOf(TRegistryDocument(Written(TestFile(""), {{u"a", 1U}}, key)), u"a", key) == TRegistryValue(1U));
}

} // namespace
} // namespace platform
