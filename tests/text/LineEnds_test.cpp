// SPDX-License-Identifier: MIT
#include "text/LineEnds.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quorvane {
namespace {

using TLineList = std::vector<std::pair<std::u16string, TLineEnd>>;

TLineList ListOf(std::u16string_view text) {
  TLineList list;
  for (const TLine& line : TLines(text))
    list.emplace_back(line.Text, line.End);
  return list;
}

TEST(Lines, AnEmptyTextIsOneEmptyLine) {
  EXPECT_EQ(ListOf(u""), (TLineList{{u"", TLineEnd::None}}));
}

TEST(Lines, ATextWithoutFinalLineEndKeepsItsLastLine) {
  EXPECT_EQ(ListOf(u"a\nb"), (TLineList{{u"a", TLineEnd::Lf}, {u"b", TLineEnd::None}}));
}

TEST(Lines, AFinalLineEndIsFollowedByAnEmptyLine) {
  EXPECT_EQ(ListOf(u"a\r\n"), (TLineList{{u"a", TLineEnd::CrLf}, {u"", TLineEnd::None}}));
}

TEST(Lines, KeepEachOfMixedLineEnds) {
  EXPECT_EQ(ListOf(u"a\r\nb\nc\rd\r\r\n\n"), (TLineList{{u"a", TLineEnd::CrLf},
                                                        {u"b", TLineEnd::Lf},
                                                        {u"c", TLineEnd::Cr},
                                                        {u"d", TLineEnd::Cr},
                                                        {u"", TLineEnd::CrLf},
                                                        {u"", TLineEnd::Lf},
                                                        {u"", TLineEnd::None}}));
}

TEST(Lines, ALoneCrAtTheEndOfTheTextEndsItsLine) {
  EXPECT_EQ(ListOf(u"a\r"), (TLineList{{u"a", TLineEnd::Cr}, {u"", TLineEnd::None}}));
}

TEST(Lines, OtherSeparatorsAreCharacters) {
  const std::u16string text = u"a\x0B\f\x1A\u0085\u00A0\u2028\u2029\uFDD0\uFDD1\uFFFCz";
  EXPECT_EQ(ListOf(text), (TLineList{{text, TLineEnd::None}}));
}

TEST(Lines, ANulIsACharacter) {
  const std::u16string text(3, u'\0');
  EXPECT_EQ(ListOf(text), (TLineList{{text, TLineEnd::None}}));
}

RC_GTEST_PROP(Lines, JoinedAgainGiveTheText, ()) {
  const auto text = *rc::gen::container<std::u16string>(rc::gen::element(u'\r', u'\n', u'a', u'\u2028'));
  std::u16string joined;
  std::size_t lastLines = 0;
  for (const TLine& line : TLines(text)) {
    RC_ASSERT(line.Text.find_first_of(u"\r\n") == std::u16string_view::npos);
    joined += line.Text;
    joined += LineEndText(line.End);
    lastLines += line.End == TLineEnd::None;
  }
  RC_ASSERT(joined == text);
  RC_ASSERT(lastLines == 1U);
}

} // namespace
} // namespace quorvane
