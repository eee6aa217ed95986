// SPDX-License-Identifier: MIT
#include "desktop/files/LineDiff.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstddef>
#include <string>

namespace desktop {

// For the messages of failed tests.
static void PrintTo(const LineChange& change, std::ostream* out) {
  *out << change.oldBegin << '-' << change.oldEnd << " > " << change.newBegin << '-' << change.newEnd;
}

namespace {

using Changes = std::vector<LineChange>;

// One line for each character.
std::vector<std::u16string_view> lines(std::u16string_view text) {
  std::vector<std::u16string_view> found;
  for (std::size_t i = 0; i < text.size(); ++i)
    found.push_back(text.substr(i, 1));
  return found;
}

Changes changes(std::u16string_view before, std::u16string_view after) {
  return lineChanges(lines(before), lines(after));
}

TEST(LineDiff, EqualTextsHaveNoChange) {
  EXPECT_EQ(changes(u"abc", u"abc"), Changes());
}

TEST(LineDiff, AnInsertionIsOneChangeWithoutOldLines) {
  EXPECT_EQ(changes(u"abc", u"axybc"), (Changes{{1, 1, 1, 3}}));
}

TEST(LineDiff, ARemovalIsOneChangeWithoutNewLines) {
  EXPECT_EQ(changes(u"abcd", u"ad"), (Changes{{1, 3, 1, 1}}));
}

TEST(LineDiff, LinesBetweenTwoChangesStay) {
  EXPECT_EQ(changes(u"abcde", u"aXcYe"), (Changes{{1, 2, 1, 2}, {3, 4, 3, 4}}));
}

TEST(LineDiff, LinesThatOccurOnceHoldThoseThatDoNot) {
  EXPECT_EQ(changes(u"b1eb2e", u"b0eb1eb2e"), (Changes{{1, 1, 1, 4}}));
}

TEST(LineDiff, ALineThatOvertakesOthersIsRemovedAndInserted) {
  EXPECT_EQ(changes(u"abcd", u"dabc"), (Changes{{0, 0, 0, 1}, {3, 4, 4, 4}}));
}

TEST(LineDiff, NothingInCommonIsOneChange) {
  EXPECT_EQ(changes(u"abc", u"xy"), (Changes{{0, 3, 0, 2}}));
}

RC_GTEST_PROP(LineDiff, TheChangesTurnTheOneTextIntoTheOther, ()) {
  const auto texts = rc::gen::container<std::string>(rc::gen::inRange('a', 'i'));
  const std::string from = *texts;
  const std::string to = *texts;
  const std::u16string before(from.begin(), from.end());
  const std::u16string after(to.begin(), to.end());
  std::u16string made;
  int place = 0;
  for (const LineChange& change : changes(before, after)) {
    RC_ASSERT(change.oldBegin >= place);
    made += before.substr(static_cast<std::size_t>(place), static_cast<std::size_t>(change.oldBegin - place));
    RC_ASSERT(made.size() == static_cast<std::size_t>(change.newBegin));
    made += after.substr(static_cast<std::size_t>(change.newBegin),
                         static_cast<std::size_t>(change.newEnd - change.newBegin));
    place = change.oldEnd;
  }
  RC_ASSERT(made + before.substr(static_cast<std::size_t>(place)) == after);
}

} // namespace
} // namespace desktop
