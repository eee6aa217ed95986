// SPDX-License-Identifier: MIT
#include "text/ShownText.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {
namespace {

constexpr const char* Replacement = "\xEF\xBF\xBD";

TEST(ShownText, TakesAServedByteForACharacter) {
  EXPECT_EQ(ShownServed("\xE9\xBF"), "\xC3\xA9\xC2\xBF");
}

TEST(ShownText, HasASignForEachControlCharacterButTheTab) {
  EXPECT_EQ(ShownLine(u"\r\t\x7F\x9B"), "\xE2\x90\x8D\t\xE2\x90\xA1\xEF\xBF\xBD");
}

TEST(ShownText, HasASignForWhatTurnsTheDirectionOfWritingOrEndsALine) {
  for (const char16_t unit :
       {0x061C, 0x200E, 0x200F, 0x2028, 0x2029, 0x202A, 0x202B, 0x202C, 0x202D, 0x202E, 0x2066, 0x2067, 0x2068, 0x2069})
    EXPECT_EQ(ShownLine(std::u16string(1, unit)), Replacement) << static_cast<unsigned>(unit);
}

TEST(ShownText, LeavesWhatOnlyHasNoCell) {
  EXPECT_EQ(ShownLine(u"\u200D\u0301\u2065\u206A"), "\xE2\x80\x8D\xCC\x81\xE2\x81\xA5\xE2\x81\xAA");
}

TEST(ShownText, GivesEachSignOneCell) {
  for (const char16_t unit : WithSigns(u"\r\x7F\x9B\u202E\u2028"))
    EXPECT_EQ(CellsOf(unit), 1);
}

TEST(ShownText, ShowsANameInUtf8AsItIs) {
  EXPECT_EQ(ShownName("a b\xC3\xA9\xF0\x9F\x98\x80.pas"), "a b\xC3\xA9\xF0\x9F\x98\x80.pas");
}

TEST(ShownText, ReplacesWhatIsNotUtf8InAName) {
  EXPECT_EQ(ShownName("a\xC3"), std::string("a") + Replacement);
}

TEST(ShownText, ANameStaysOnItsLine) {
  EXPECT_EQ(ShownName("a\n\033[2J"), "a\xE2\x90\x8A\xE2\x90\x9B[2J");
}

TEST(ShownText, AMessageOf200CharactersIsWhole) {
  const std::string message(200, 'm');
  EXPECT_EQ(ShortMessage(message), message);
}

TEST(ShownText, ALongerMessageEndsInDotsAndHas200) {
  EXPECT_EQ(ShortMessage(std::string(201, 'm')), std::string(197, 'm') + "...");
}

} // namespace
} // namespace quorvane
