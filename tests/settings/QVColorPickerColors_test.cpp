// SPDX-License-Identifier: MIT
#include "ColorPickerFixture.h"

#include <algorithm>
#include <set>

namespace quorvane {
namespace {

class QVColorPickerColors : public RegistryTest {};

std::string Row(std::size_t row) {
  QStringList digits;
  for (std::size_t column = 0; column < kColorsPerRow; ++column)
    digits.append(QStringLiteral("%1").arg(FixedColors.at(row * kColorsPerRow + column), 6, 16, QChar(u'0')).toUpper());
  return digits.join(u' ').toStdString();
}

TEST_F(QVColorPickerColors, TheFixedOnesStandInFiveRowsFromDarkToLight) {
  ASSERT_EQ(FixedColors.size(), 40U);
  EXPECT_EQ(Row(0), "1FFFFFFF 808080 000040 004040 004000 404000 400000 400040");
  EXPECT_EQ(Row(1), "000000 909090 000080 008080 008000 808000 800000 800080");
  EXPECT_EQ(Row(2), "202020 B0B0B0 0000FF 00FFFF 00FF00 FFFF00 FF0000 FF00FF");
  EXPECT_EQ(Row(3), "404040 D0D0D0 8080FF 80FFFF 80FF80 FFFF80 FF8080 FF80FF");
  EXPECT_EQ(Row(4), "606060 FFFFFF C0C0FF C0FFFF C0FFC0 FFFFC0 FFC0C0 FFC0FF");
}

TEST_F(QVColorPickerColors, NoFixedOneOccursTwice) {
  EXPECT_EQ(std::set(FixedColors.begin(), FixedColors.end()).size(), FixedColors.size());
}

TEST_F(QVColorPickerColors, OfTheUserAreWhiteWithoutTheKey) {
  UserColors.fill(platform::clRed);
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_TRUE(std::ranges::all_of(UserColors, [](auto color) { return color == platform::clWhite; }));
}

TEST_F(QVColorPickerColors, ReadingThemCreatesNoKey) {
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_FALSE(platform::TRegistry().KeyExists("SoftWare"));
}

TEST_F(QVColorPickerColors, OfTheUserAreReadAsHexadecimalBlueGreenRed) {
  for (int index = 0; index < 16; ++index)
    WriteText("Pelinor", std::string("Color") + static_cast<char>('A' + index), "0" + std::to_string(100 + index));
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(UserColors.at(0), 0x100);
  EXPECT_EQ(UserColors.at(9), 0x109);
  EXPECT_EQ(UserColors.at(15), 0x115);
}

TEST_F(QVColorPickerColors, AMissingOneIsWhite) {
  WriteText("Pelinor", "ColorB", "0000FF");
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(UserColors.at(0), platform::clWhite);
  EXPECT_EQ(UserColors.at(1), platform::clRed);
  EXPECT_EQ(UserColors.at(2), platform::clWhite);
}

TEST_F(QVColorPickerColors, OneThatIsNoHexadecimalNumberOf24BitsIsWhite) {
  for (const char* text :
       {"", "red", "12345G", "0x12", "-1", "+1", " 12", "12 ", "$12", "1000000", "FFFFFFFFFFFFFFFFFF"}) {
    WriteText("Pelinor", "ColorA", text);
    UserColors.fill(platform::clRed);
    ReadUserColors(QStringLiteral("Pelinor"));
    EXPECT_EQ(UserColors.at(0), platform::clWhite) << text;
  }
}

TEST_F(QVColorPickerColors, OneOfAnotherTypeIsWhite) {
  {
    platform::TRegistry registry;
    registry.OpenKey("SoftWare\\Pelinor", true);
    registry.WriteInteger("ColorA", 0xFF);
    registry.CloseKey();
  }
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(UserColors.at(0), platform::clWhite);
}

TEST_F(QVColorPickerColors, AreReadWithoutRegardToTheCaseOfTheirDigits) {
  WriteText("Pelinor", "ColorA", "abCDef");
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(UserColors.at(0), 0xABCDEF);
}

TEST_F(QVColorPickerColors, AreWrittenAsSixUpperCaseDigitsEach) {
  UserColors.at(0) = 0xAB;
  UserColors.at(15) = 0xFEDCBA;
  WriteUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(ReadText("Pelinor", "ColorA"), "0000AB");
  EXPECT_EQ(ReadText("Pelinor", "ColorB"), "FFFFFF");
  EXPECT_EQ(ReadText("Pelinor", "ColorP"), "FEDCBA");
  EXPECT_EQ(ReadText("Pelinor", "ColorQ"), "-");
}

TEST_F(QVColorPickerColors, ComeBackAsTheyWereWritten) {
  for (std::size_t index = 0; index < UserColors.size(); ++index)
    UserColors.at(index) = static_cast<platform::TColor>(0x010203 * (index + 1));
  const TUserColors written = UserColors;
  WriteUserColors(QStringLiteral("Pelinor"));
  UserColors.fill(platform::clBlack);
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(UserColors, written);
}

TEST_F(QVColorPickerColors, AreKeptBelowTheNamedKey) {
  WriteText("Other", "ColorA", "0000FF");
  ReadUserColors(QStringLiteral("Pelinor"));
  EXPECT_EQ(UserColors.at(0), platform::clWhite);
  ReadUserColors(QStringLiteral("Other"));
  EXPECT_EQ(UserColors.at(0), platform::clRed);
}

TEST_F(QVColorPickerColors, AreNamedAsTheWebDoes) {
  EXPECT_EQ(ColorName(0xFF8000, QPalette()), QStringLiteral("#0080FF"));
  EXPECT_EQ(ColorName(platform::clNone, QPalette()), QStringLiteral("No color"));
}

TEST_F(QVColorPickerColors, OfTheSystemAreNamedAsTheyLook) {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(1, 2, 3));
  EXPECT_EQ(ColorName(platform::clWindow, palette), QStringLiteral("#010203"));
}

} // namespace
} // namespace quorvane
