// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include "Iconv.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace quorvane {
namespace {

using namespace std::string_literals;

struct TWellFormedRow {
  std::string Bytes;
  std::u16string Text;
};

const std::vector<TWellFormedRow> WellFormedRows = {
    {"", u""},
    {"begin"s, u"begin"},
    {"a\0b"s, u"a\0b"s},
    {"\x7F"s, u"\x7F"},
    {"\xC2\x80"s, u"\u0080"},
    {"\xDF\xBF"s, u"\u07FF"},
    {"\xE0\xA0\x80"s, u"\u0800"},
    {"\xED\x9F\xBF"s, u"\uD7FF"},
    {"\xEE\x80\x80"s, u"\uE000"},
    {"\xEF\xBF\xBF"s, u"\uFFFF"},
    {"\xF0\x90\x80\x80"s, u"\U00010000"},
    {"\xF4\x8F\xBF\xBF"s, u"\U0010FFFF"},
    {"12345678\xC3\xA9"s, u"12345678\u00E9"},
    {"1234567\xC3\xA9 after"s, u"1234567\u00E9 after"},
};

TEST(Utf8, DecodesTheFirstAndLastCharacterOfEachLength) {
  for (const TWellFormedRow& row : WellFormedRows) {
    EXPECT_EQ(FirstMalformedUtf8(row.Bytes), std::nullopt) << row.Bytes;
    EXPECT_EQ(DecodeUtf8(row.Bytes), row.Text) << row.Bytes;
  }
}

TEST(Utf8, EncodesTheFirstAndLastCharacterOfEachLength) {
  for (const TWellFormedRow& row : WellFormedRows)
    EXPECT_EQ(EncodeUtf8(row.Text), row.Bytes);
}

struct TMalformedRow {
  std::string Bytes;
  std::size_t First;
  std::u16string Text;
};

const std::vector<TMalformedRow> MalformedRows = {
    {"a\x80"s, 1, u"a\uFFFD"},                               // a continuation byte alone
    {"\xC0\xAF"s, 0, u"\uFFFD\uFFFD"},                       // overlong
    {"\xC1\xBF"s, 0, u"\uFFFD\uFFFD"},                       // overlong
    {"\xE0\x9F\xBF"s, 0, u"\uFFFD\uFFFD\uFFFD"},             // overlong
    {"\xF0\x8F\xBF\xBF"s, 0, u"\uFFFD\uFFFD\uFFFD\uFFFD"},   // overlong
    {"\xED\xA0\x80"s, 0, u"\uFFFD\uFFFD\uFFFD"},             // a surrogate
    {"\xF4\x90\x80\x80"s, 0, u"\uFFFD\uFFFD\uFFFD\uFFFD"},   // above U+10FFFF
    {"\xF5\x80"s, 0, u"\uFFFD\uFFFD"},                       // no lead byte
    {"\xFF"s, 0, u"\uFFFD"},                                 // no lead byte
    {"12345678\xE2\x82"s, 8, u"12345678\uFFFD"},             // cut off by the end
    {"\xF0\x9F\x98"s, 0, u"\uFFFD"},                         // cut off by the end
    {"\xE2\x82(\xC3\xA9"s, 0, u"\uFFFD(\u00E9"},             // cut off by another character
    {"\xC3\xA9\xF0\x9F\xC3\xA9"s, 2, u"\u00E9\uFFFD\u00E9"}, // cut off by another character
};

TEST(Utf8, ReportsTheFirstMalformedSequence) {
  for (const TMalformedRow& row : MalformedRows)
    EXPECT_EQ(FirstMalformedUtf8(row.Bytes), row.First) << ::testing::PrintToString(row.Bytes);
}

TEST(Utf8, PutsOneReplacementForEachMalformedPartAndReadsOn) {
  for (const TMalformedRow& row : MalformedRows)
    EXPECT_EQ(DecodeUtf8(row.Bytes), row.Text) << ::testing::PrintToString(row.Bytes);
}

TEST(Utf8, CannotSayALoneSurrogate) {
  EXPECT_EQ(EncodeUtf8(u"a\xD800"), std::nullopt);
  EXPECT_EQ(EncodeUtf8(u"\xDC00z"), std::nullopt);
  EXPECT_EQ(EncodeUtf8(u"\xDC00\xD800"), std::nullopt);
}

TEST(Utf8, CountsTheAsciiBytesAtTheStart) {
  for (std::size_t length = 0; length < 20; ++length)
    EXPECT_EQ(AsciiPrefix(std::string(length, 'x') + "\x80" + "tail"), length);
  EXPECT_EQ(AsciiPrefix("\x7F"), 1U);
  EXPECT_EQ(AsciiPrefix(""), 0U);
}

// Bytes that often make up characters and nearly do: plain random bytes are hardly ever UTF-8.
rc::Gen<std::string> NearlyUtf8() {
  const auto pieces =
      rc::gen::element<std::string>("a", "\n", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xED\x9F", "\xF0",
                                    "\xF4\x8F", "\xE0\xA0", "\x80", "\xBF", "\xEF\xBF\xBD");
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(pieces), [](const std::vector<std::string>& list) {
    std::string bytes;
    for (const std::string& piece : list)
      bytes += piece;
    return bytes;
  });
}

RC_GTEST_PROP(Utf8, AcceptsAndDecodesWhatTheCLibraryDoes, ()) {
  const TIconv iconv("UTF-8");
  const std::string bytes = *NearlyUtf8();
  const std::optional<std::u16string> expected = iconv.Convert(bytes);
  RC_TAG(expected ? "well-formed" : "malformed");
  RC_ASSERT(FirstMalformedUtf8(bytes).has_value() == !expected.has_value());
  if (expected)
    RC_ASSERT(DecodeUtf8(bytes) == *expected);
}

RC_GTEST_PROP(Utf8, DecodesUpToTheFirstMalformedSequenceAsIfItEndedThere, ()) {
  const std::string bytes = *NearlyUtf8();
  const std::size_t first = FirstMalformedUtf8(bytes).value_or(bytes.size());
  RC_ASSERT(DecodeUtf8(bytes).starts_with(DecodeUtf8(bytes.substr(0, first))));
}

} // namespace
} // namespace quorvane
