// SPDX-License-Identifier: MIT
#include "text/CodePages.h"

#include "Iconv.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quorvane {
namespace {

class CodePages : public ::testing::TestWithParam<TCodePage> {};

INSTANTIATE_TEST_SUITE_P(All, CodePages, ::testing::ValuesIn(AllCodePages),
                         [](const ::testing::TestParamInfo<TCodePage>& row) {
                           std::string name(CodePageName(row.param));
                           std::erase(name, '-');
                           return name;
                         });

TEST_P(CodePages, GiveEveryByteItsOwnCharacterAndBack) {
  std::set<char16_t> characters;
  for (int byte = 0; byte < 256; ++byte) {
    const char16_t character = CodePageTable(GetParam())[static_cast<std::size_t>(byte)];
    EXPECT_TRUE(characters.insert(character).second) << byte;
    EXPECT_EQ(CodePageByte(GetParam(), character), byte);
  }
}

TEST_P(CodePages, LackEveryOtherCharacter) {
  const TCodePageTable& table = CodePageTable(GetParam());
  const std::set<char16_t> characters(table.begin(), table.end());
  int found = 0;
  for (int character = 0; character <= 0xFFFF; ++character)
    if (CodePageByte(GetParam(), static_cast<char16_t>(character)))
      ++found;
  EXPECT_EQ(found, static_cast<int>(characters.size()));
}

TEST_P(CodePages, AgreeWithTheCLibraryAndKeepUndefinedBytesAsControls) {
  const TIconv iconv(std::string(CodePageName(GetParam())).c_str());
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    const std::u16string expected = iconv.Convert(bytes).value_or(std::u16string(1, static_cast<char16_t>(byte)));
    EXPECT_EQ(expected, std::u16string(1, CodePageTable(GetParam())[static_cast<std::size_t>(byte)])) << byte;
  }
}

TEST(CodePageByte, FindsTheEuroSignWhereTheCodePageHasIt) {
  EXPECT_EQ(CodePageByte(TCodePage::Windows1252, u'\u20AC'), 0x80);
  EXPECT_EQ(CodePageByte(TCodePage::Windows1251, u'\u20AC'), 0x88);
  EXPECT_EQ(CodePageByte(TCodePage::Latin1, u'\u20AC'), std::nullopt);
}

} // namespace
} // namespace quorvane
