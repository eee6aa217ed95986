// SPDX-License-Identifier: MIT
#include "text/Encoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace quorvane {
namespace {

using namespace std::string_literals;

constexpr TEncoding Utf8{TEncodingKind::Utf8};
constexpr TEncoding Utf8WithMark{TEncodingKind::Utf8, true};
constexpr TEncoding Utf16LE{TEncodingKind::Utf16LE};
constexpr TEncoding Utf16LEWithMark{TEncodingKind::Utf16LE, true};
constexpr TEncoding Utf16BEWithMark{TEncodingKind::Utf16BE, true};
constexpr TEncoding Windows1252 = CodePageEncoding(TCodePage::Windows1252);

struct TDetectionRow {
  std::string Bytes;
  TEncoding Encoding;
  std::u16string Text;
};

const std::vector<TDetectionRow> DetectionRows = {
    {"", Utf8, u""},
    {"unit A;", Utf8, u"unit A;"},
    {"\xC3\xA9", Utf8, u"\u00E9"},
    {"\xE9", Windows1252, u"\u00E9"},
    {"\x80", Windows1252, u"\u20AC"},
    {"\xC3\xA9\xE9", Windows1252, u"\u00C3\u00A9\u00E9"},
    {"\xEF\xBB\xBF", Utf8WithMark, u""},
    {"\xEF\xBB\xBF"
     "a",
     Utf8WithMark, u"a"},
    {"\xEF\xBB\xBF\xEF\xBB\xBF", Utf8WithMark, u"\uFEFF"},
    {"\xEF\xBB", Windows1252, u"\u00EF\u00BB"},
    {"\xFF\xFE", Utf16LEWithMark, u""},
    {"\xFF\xFE"
     "a\0\xAC\x20"s,
     Utf16LEWithMark, u"a\u20AC"},
    {"\xFE\xFF\0a\x20\xAC"s, Utf16BEWithMark, u"a\u20AC"},
    {"\xFF\xFE\0\0"s, Utf16LEWithMark, u"\0"s},
    {"\xFF\xFE\x00\xD8"s, Utf16LEWithMark, u"\xD800"},
    {"a\0b"s, Utf8, u"a\0b"s},
    {"\xFF", Windows1252, u"\u00FF"},
};

TEST(DetectEncoding, AMarkDecidesThenUtf8ThenTheCodePage) {
  for (const TDetectionRow& row : DetectionRows) {
    EXPECT_EQ(DetectEncoding(row.Bytes), row.Encoding) << ::testing::PrintToString(row.Bytes);
    const TDecodedText decoded = Decode(row.Bytes);
    EXPECT_EQ(decoded.Encoding, row.Encoding) << ::testing::PrintToString(row.Bytes);
    EXPECT_EQ(decoded.Text, row.Text) << ::testing::PrintToString(row.Bytes);
    EXPECT_EQ(decoded.FirstLostByte, std::nullopt) << ::testing::PrintToString(row.Bytes);
  }
}

TEST(DetectEncoding, TakesTheUsersCodePage) {
  EXPECT_EQ(DetectEncoding("\xE9", TCodePage::Windows1251), CodePageEncoding(TCodePage::Windows1251));
  EXPECT_EQ(Decode("\xE9", TCodePage::Windows1251).Text, u"\u0439");
}

TEST(DetectEncoding, DoesNotAskTheCodePageForUtf8) {
  EXPECT_EQ(DetectEncoding("\xC3\xA9", TCodePage::Windows1251), Utf8);
}

TEST(Decode, SaysThatAsciiAloneLeavesTheEncodingOpen) {
  EXPECT_TRUE(Decode("begin end.").AsciiOnly);
  EXPECT_TRUE(Decode("").AsciiOnly);
  EXPECT_FALSE(Decode("\xC3\xA9").AsciiOnly);
  EXPECT_FALSE(Decode("\xEF\xBB\xBF"
                      "begin")
                   .AsciiOnly);
  EXPECT_FALSE(Decode("\xE9").AsciiOnly);
}

TEST(Decode, WritesACharacterTypedIntoAsciiAsUtf8) {
  const TDecodedText decoded = Decode("x := ''");
  EXPECT_EQ(Encode(u"x := '\u20AC'", decoded.Encoding).Bytes, "x := '\xE2\x82\xAC'");
}

TEST(Decode, ReportsTheOddLastByteOfUtf16) {
  const TDecodedText decoded = Decode("\xFF\xFE"
                                      "a\0b"s);
  EXPECT_EQ(decoded.Text, u"a\uFFFD");
  EXPECT_EQ(decoded.FirstLostByte, 4U);
}

TEST(Decode, ReportsAMarkOfUtf16WithOneByteAfterIt) {
  EXPECT_EQ(Decode("\xFE\xFF"
                   "a")
                .FirstLostByte,
            2U);
}

TEST(Decode, ReportsMalformedUtf8AfterAMark) {
  const TDecodedText decoded = Decode("\xEF\xBB\xBF"
                                      "ab\xE9");
  EXPECT_EQ(decoded.Encoding, Utf8WithMark);
  EXPECT_EQ(decoded.Text, u"ab\uFFFD");
  EXPECT_EQ(decoded.FirstLostByte, 5U);
}

TEST(DecodeAs, ReadsUtf16WithoutMark) {
  const TDecodedText decoded = DecodeAs("a\0b\0"s, Utf16LE);
  EXPECT_EQ(decoded.Text, u"ab");
  EXPECT_EQ(decoded.Encoding, Utf16LE);
}

TEST(DecodeAs, RecordsTheMarkThatTheBytesHave) {
  EXPECT_EQ(DecodeAs("\xEF\xBB\xBF"
                     "a",
                     Utf8)
                .Encoding,
            Utf8WithMark);
  EXPECT_EQ(DecodeAs("a", Utf8WithMark).Encoding, Utf8);
}

TEST(DecodeAs, KeepsTheMarkOfAnotherEncodingAsText) {
  const TDecodedText decoded = DecodeAs("\xEF\xBB\xBF"
                                        "a",
                                        Windows1252);
  EXPECT_EQ(decoded.Text, u"\u00EF\u00BB\u00BF"
                          u"a");
  EXPECT_EQ(decoded.Encoding, Windows1252);
}

TEST(DecodeAs, ReportsBytesThatAreNotUtf8) {
  EXPECT_EQ(DecodeAs("ab\xE9", Utf8).FirstLostByte, 2U);
}

TEST(Encode, ReportsTheFirstCharacterThatTheCodePageLacks) {
  const TEncodedText encoded = Encode(u"\u20AC \u0416 \u0416", Windows1252);
  EXPECT_EQ(encoded.FirstMissing, 2U);
  EXPECT_EQ(encoded.Bytes, "");
}

TEST(Encode, ReportsACharacterBeyondTheBasicPlaneInACodePage) {
  EXPECT_EQ(Encode(u"ab\U0001F600", Windows1252).FirstMissing, 2U);
}

TEST(Encode, ReportsALoneSurrogateInUtf8) {
  EXPECT_EQ(Encode(u"\U0001F600\xD800", Utf8).FirstMissing, 2U);
  EXPECT_EQ(Encode(u"a\xDC00", Utf8WithMark).FirstMissing, 1U);
}

TEST(Encode, KeepsALoneSurrogateInUtf16) {
  const TEncodedText encoded = Encode(u"\xD800", Utf16BEWithMark);
  EXPECT_EQ(encoded.FirstMissing, std::nullopt);
  EXPECT_EQ(encoded.Bytes, "\xFE\xFF\xD8\x00"s);
}

TEST(EncodingNames, AreFoundInAnyCaseAndWithoutPunctuation) {
  for (const TEncoding& encoding : AllEncodings)
    EXPECT_EQ(FindEncoding(EncodingName(encoding)), encoding) << EncodingName(encoding);
  EXPECT_EQ(FindEncoding("utf8"), Utf8);
  EXPECT_EQ(FindEncoding("WINDOWS_1252"), Windows1252);
  EXPECT_EQ(FindEncoding("iso 8859-1"), CodePageEncoding(TCodePage::Latin1));
}

TEST(EncodingNames, OthersAreNotFound) {
  EXPECT_EQ(FindEncoding(""), std::nullopt);
  EXPECT_EQ(FindEncoding("windows"), std::nullopt);
  EXPECT_EQ(FindEncoding("UTF-7"), std::nullopt);
}

TEST(EncodingNames, CoverEveryCodePage) {
  for (const TCodePage codePage : AllCodePages)
    EXPECT_EQ(FindEncoding(CodePageName(codePage)), CodePageEncoding(codePage));
}

// Any bytes, with and without a mark before them.
rc::Gen<std::string> AnyFile() {
  return rc::gen::apply(
      [](const std::string& mark, const std::string& body) { return mark + body; },
      rc::gen::element<std::string>("", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"),
      rc::gen::oneOf(rc::gen::arbitrary<std::string>(),
                     rc::gen::container<std::string>(rc::gen::element('a', '\r', '\n', '\xC3', '\xA9'))));
}

RC_GTEST_PROP(Encoding, GivesEveryFileBackOrSaysWhichByteIsLost, ()) {
  const std::string bytes = *AnyFile();
  const TDecodedText decoded = Decode(bytes, *rc::gen::elementOf(AllCodePages));
  const TEncodedText encoded = Encode(decoded.Text, decoded.Encoding);
  RC_TAG(std::string(EncodingName(decoded.Encoding)), decoded.FirstLostByte ? "lossy" : "whole");
  RC_ASSERT(encoded.FirstMissing == std::nullopt);
  RC_ASSERT((encoded.Bytes == bytes) == !decoded.FirstLostByte.has_value());
  if (decoded.FirstLostByte) {
    RC_ASSERT(*decoded.FirstLostByte < bytes.size());
    RC_ASSERT(encoded.Bytes.substr(0, *decoded.FirstLostByte) == bytes.substr(0, *decoded.FirstLostByte));
  }
}

RC_GTEST_PROP(Encoding, EveryCodePageGivesAnyBytesBack, ()) {
  const std::string bytes = *rc::gen::arbitrary<std::string>();
  const TEncoding encoding = CodePageEncoding(*rc::gen::elementOf(AllCodePages));
  RC_ASSERT(Encode(DecodeAs(bytes, encoding).Text, encoding).Bytes == bytes);
}

RC_GTEST_PROP(Encoding, EveryTextComesBackFromUtf16, ()) {
  const std::u16string text = *rc::gen::container<std::u16string>(rc::gen::arbitrary<char16_t>());
  const TEncoding encoding = *rc::gen::element(Utf16LEWithMark, Utf16BEWithMark);
  const TDecodedText decoded = Decode(Encode(text, encoding).Bytes);
  RC_ASSERT(decoded.Text == text);
  RC_ASSERT(decoded.Encoding == encoding);
}

} // namespace
} // namespace quorvane
