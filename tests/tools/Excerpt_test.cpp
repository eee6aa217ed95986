// SPDX-License-Identifier: MIT
#include "tools/Excerpt.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace quorvane {
namespace {

struct TExcerptCase {
  std::u16string Line;
  std::size_t Column;
  std::size_t Length;
  std::string Source;
  std::string Marks;
};

TEST(Excerpt, MarksATokenWhereATerminalShowsIt) {
  const std::vector<TExcerptCase> cases = {
      {u"a bc d", 2, 2, "a bc d", "  ^~"},
      {u"", 0, 0, "", "^"},
      {u"ab", 2, 0, "ab", "  ^"},
      {u"ab", 1, 9, "ab", " ^"},
      {u"\ta\tb", 3, 1, "\ta\tb", "\t \t^"},
      {u"\u65E5\u672C x", 3, 1, "\xE6\x97\xA5\xE6\x9C\xAC x", "     ^"},
      {u"a \u65E5\u672C", 2, 2, "a \xE6\x97\xA5\xE6\x9C\xAC", "  ^~~~"},
      {u"e\u0301 x", 3, 1, "e\xCC\x81 x", "  ^"},
      {u"\U0001F600 x", 2, 1, "\xF0\x9F\x98\x80 x", "   ^"},
      {u"\x1B[2J x", 5, 1, "\xE2\x90\x9B[2J x", "     ^"},
      {u"a\u202Eb\u2066 x", 5, 1,
       "a\xEF\xBF\xBD"
       "b\xEF\xBF\xBD x",
       "     ^"},
      {std::u16string(1, char16_t{0xD800}) + u" x", 2, 1, "\xEF\xBF\xBD x", "  ^"},
  };
  for (const TExcerptCase& row : cases) {
    TExcerptLine line(row.Line);
    const TExcerpt excerpt = line.At(row.Column, row.Length);
    EXPECT_EQ(excerpt.Source, row.Source);
    EXPECT_EQ(excerpt.Marks, row.Marks) << row.Source;
  }
}

TEST(Excerpt, ShowsALineOf160CharactersWhole) {
  const std::u16string text(160, u'x');
  EXPECT_EQ(TExcerptLine(text).At(159, 1).Source, std::string(160, 'x'));
}

TEST(Excerpt, CutsTheEndOfALongLine) {
  const std::u16string text = u"start" + std::u16string(156, u'x');
  const TExcerpt excerpt = TExcerptLine(text).At(60, 1);
  EXPECT_EQ(excerpt.Source, "start" + std::string(155, 'x') + "...");
  EXPECT_EQ(excerpt.Marks, std::string(60, ' ') + "^");
}

TEST(Excerpt, CutsTheStartOfALongLine) {
  const std::u16string text = std::u16string(1000, u'x') + u"end";
  const TExcerpt excerpt = TExcerptLine(text).At(1000, 3);
  EXPECT_EQ(excerpt.Source, "..." + std::string(157, 'x') + "end");
  EXPECT_EQ(excerpt.Marks, std::string(160, ' ') + "^~~");
}

TEST(Excerpt, CutsBothAndMarksNoMoreThanIsShown) {
  const std::u16string text = std::u16string(1000, u'a') + std::u16string(1000, u'b');
  const TExcerpt excerpt = TExcerptLine(text).At(1000, 1000);
  EXPECT_EQ(excerpt.Source, "..." + std::string(60, 'a') + std::string(100, 'b') + "...");
  EXPECT_EQ(excerpt.Marks, std::string(63, ' ') + "^" + std::string(99, '~'));
}

TEST(Excerpt, GivesTheSameInWhateverOrderItIsAsked) {
  std::u16string text;
  for (int count = 0; count < 500; ++count)
    text += u"\U0001F600";
  text += u"abc";
  TExcerptLine line(text);
  EXPECT_EQ(line.Length(), 503U);
  const TExcerpt end = line.At(502, 1);
  const TExcerpt start = line.At(0, 1);
  EXPECT_TRUE(end.Source.ends_with("abc"));
  EXPECT_TRUE(start.Source.starts_with("\xF0\x9F\x98\x80"));
  EXPECT_EQ(line.At(502, 1).Source, end.Source);
}

} // namespace
} // namespace quorvane
