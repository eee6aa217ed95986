// SPDX-License-Identifier: MIT
#include "text/ServedText.h"

#include "text/LineEnds.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

namespace quorvane {
namespace {

std::string ServedLine(std::u16string_view line) {
  std::string out;
  AppendServedLine(line, out);
  return out;
}

TEST(ServedText, KeepsAsciiAsItIs) {
  std::u16string text;
  std::string bytes;
  for (char code = 0; code >= 0 && code < 127; ++code) {
    text += static_cast<char16_t>(code);
    bytes += code;
  }
  EXPECT_EQ(ServedLine(text), bytes);
}

TEST(ServedText, ServesLatin1AsItsCode) {
  EXPECT_EQ(ServedLine(u"\u0080\u00A0\u00E9\u00FF"), "\x80\xA0\xE9\xFF");
}

TEST(ServedText, ServesWhatLiesBeyondAsOneByteEach) {
  EXPECT_EQ(ServedLine(u"a\u0100b\u20ACc\uFFFFd"), "a\xBF"
                                                   "b\xBF"
                                                   "c\xBF"
                                                   "d");
}

TEST(ServedText, ServesASurrogatePairAsOneByte) {
  EXPECT_EQ(ServedLine(u"<\U0001F600\U0001F600>"), "<\xBF\xBF>");
}

TEST(ServedText, ServesALoneSurrogateAsOneByte) {
  EXPECT_EQ(ServedLine(u"<\xD800>"), "<\xBF>");
  EXPECT_EQ(ServedLine(u"<\xDC00>"), "<\xBF>");
  EXPECT_EQ(ServedLine(u"<\xDC00\xD800"), "<\xBF\xBF");
  EXPECT_EQ(ServedLine(u"<\xD800\xD800\xDC00>"), "<\xBF\xBF>");
}

TEST(ServedText, AppendsToWhatIsThere) {
  std::string out = "begin";
  AppendServedLine(u" end", out);
  EXPECT_EQ(out, "begin end");
}

TEST(ServedText, TurnsEveryLineEndIntoCrLf) {
  EXPECT_EQ(ServeText(u"a\nb\rc\r\nd\r\r\n"), "a\r\nb\r\nc\r\nd\r\n\r\n");
}

TEST(ServedText, AddsNoFinalLineEnd) {
  EXPECT_EQ(ServeText(u""), "");
  EXPECT_EQ(ServeText(u"end."), "end.");
}

TEST(ServedText, LeavesOtherSeparatorsInTheirLine) {
  EXPECT_EQ(ServeText(u"a\u2028b\u2029c\u0085d\fe"), "a\xBF"
                                                     "b\xBF"
                                                     "c\x85"
                                                     "d\f"
                                                     "e");
}

TEST(ServedText, FindsTheUnitOfACharacter) {
  const std::u16string_view line = u"a\U0001F600b\xD800z";
  EXPECT_EQ(UnitOfCharacter(line, 0), 0U);
  EXPECT_EQ(UnitOfCharacter(line, 1), 1U);
  EXPECT_EQ(UnitOfCharacter(line, 2), 3U);
  EXPECT_EQ(UnitOfCharacter(line, 3), 4U);
  EXPECT_EQ(UnitOfCharacter(line, 4), 5U);
}

TEST(ServedText, PutsCharactersBeyondTheLineAtItsEnd) {
  EXPECT_EQ(UnitOfCharacter(u"ab", 2), 2U);
  EXPECT_EQ(UnitOfCharacter(u"ab", 1000), 2U);
  EXPECT_EQ(UnitOfCharacter(u"", 1), 0U);
}

rc::Gen<std::u16string> AnyText() {
  return rc::gen::container<std::u16string>(rc::gen::element<char16_t>(
      u'\r', u'\n', u'a', u'\u00E9', u'\u20AC', u'\u2028', char16_t{0xD83D}, char16_t{0xDE00}, u'\0'));
}

RC_GTEST_PROP(ServedText, IsTheSameLineByLineAsInOnePiece, ()) {
  const std::u16string text = *AnyText();
  std::string joined;
  for (const TLine& line : TLines(text)) {
    AppendServedLine(line.Text, joined);
    if (line.End != TLineEnd::None)
      joined += ServedLineEnd;
  }
  RC_ASSERT(ServeText(text) == joined);
}

RC_GTEST_PROP(ServedText, CountsAndFindsTheCharactersThatItServes, ()) {
  const std::u16string text = *AnyText();
  const std::string served = ServedLine(text);
  RC_ASSERT(ServedLength(text) == served.size());
  for (std::size_t character = 0; character <= served.size(); ++character) {
    const std::size_t unit = UnitOfCharacter(text, character);
    RC_ASSERT(ServedLine(std::u16string_view(text).substr(0, unit)) == served.substr(0, character));
  }
}

} // namespace
} // namespace quorvane
