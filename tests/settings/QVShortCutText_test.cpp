// SPDX-License-Identifier: MIT
#include "settings/model/QVShortCutText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quorvane {
namespace {

constexpr TShortCut Shift = 0x2000;
constexpr TShortCut Ctrl = 0x4000;
constexpr TShortCut Alt = 0x8000;

struct TRow {
  TShortCut ShortCut;
  std::string Text;
};

const std::vector<TRow> Rows = {
    {0x30, "0"},
    {0x39, "9"},
    {0x41, "A"},
    {0x5A, "Z"},
    {0x70, "F1"},
    {0x78, "F9"},
    {0x79, "F10"},
    {0x87, "F24"},
    {0x08, "BkSp"},
    {0x09, "Tab"},
    {0x1B, "Esc"},
    {0x0D, "Enter"},
    {0x20, "Space"},
    {0x21, "PgUp"},
    {0x22, "PgDn"},
    {0x23, "End"},
    {0x24, "Home"},
    {0x25, "Left"},
    {0x26, "Up"},
    {0x27, "Right"},
    {0x28, "Down"},
    {0x2D, "Ins"},
    {0x2E, "Del"},
    {0xA030, "Shift+Alt+0"},
    {Shift | 'A', "Shift+A"},
    {Ctrl | 'A', "Ctrl+A"},
    {Alt | 'A', "Alt+A"},
    {Shift | Ctrl | 0x70, "Shift+Ctrl+F1"},
    {Ctrl | Alt | 0x2E, "Ctrl+Alt+Del"},
    {Shift | Ctrl | Alt | 0x22, "Shift+Ctrl+Alt+PgDn"},
};

TEST(ShortCutText, IsShiftCtrlAltAndTheKey) {
  for (const TRow& row : Rows)
    EXPECT_EQ(ShortCutToText(row.ShortCut), row.Text);
}

TEST(ShortCutText, IsReadBack) {
  for (const TRow& row : Rows)
    EXPECT_EQ(TextToShortCut(row.Text), row.ShortCut) << row.Text;
}

TEST(ShortCutText, IsReadWithoutCase) {
  EXPECT_EQ(TextToShortCut("shift+alt+0"), 0xA030);
  EXPECT_EQ(TextToShortCut("CTRL+PGUP"), Ctrl | 0x21);
  EXPECT_EQ(TextToShortCut("cTrL+f12"), Ctrl | 0x7B);
  EXPECT_EQ(TextToShortCut("alt+x"), Alt | 'X');
}

TEST(ShortCutText, IsReadWithItsModifiersInAnyOrder) {
  EXPECT_EQ(TextToShortCut("Alt+Shift+0"), 0xA030);
  EXPECT_EQ(TextToShortCut("Alt+Ctrl+Shift+F2"), Shift | Ctrl | Alt | 0x71);
}

TEST(ShortCutText, ThatIsUnknownIsNoShortcut) {
  for (const std::string text :
       {"",        " ",      "+",      "Shift",        "Shift+",       "Shift+Alt+", "Meta+A",  "F0",
        "F25",     "F01",    "AA",     "Shift+Alt+0 ", " Shift+Alt+0", "Shift +A",   "Shift-A", "Shift+Alt+00",
        "A+Shift", "Return", "Ctrl++", "Nonsense",     "\xC3\xA4"})
    EXPECT_EQ(TextToShortCut(text), 0) << '"' << text << '"';
}

TEST(ShortCutText, WithZerosInsideIsNoShortcut) {
  EXPECT_EQ(TextToShortCut(std::string("A\0", 2)), 0);
  EXPECT_EQ(TextToShortCut(std::string("\0", 1)), 0);
}

TEST(ShortCutText, OfAKeyWithoutANameIsEmpty) {
  EXPECT_EQ(ShortCutToText(0), "");
  for (const TShortCut key : {0x01, 0x10, 0x11, 0x12, 0x2F, 0x3A, 0x40, 0x5B, 0x61, 0x6F, 0x88, 0xFF}) {
    EXPECT_EQ(ShortCutToText(key), "") << key;
    EXPECT_EQ(ShortCutToText(Shift | Alt | key), "") << key;
  }
}

TEST(ShortCutText, IsDifferentForEveryShortcutThatHasOne) {
  int named = 0;
  for (TShortCut key = 0; key <= 0xFF; ++key) {
    for (TShortCut modifiers = 0; modifiers < 8; ++modifiers) {
      const auto shortCut = static_cast<TShortCut>(modifiers << 13 | key);
      const std::string text = ShortCutToText(shortCut);
      if (text.empty())
        continue;
      ++named;
      EXPECT_EQ(TextToShortCut(text), shortCut) << text;
    }
  }
  EXPECT_EQ(named, (10 + 26 + 24 + 15) * 8); // digits, letters, function keys and the other names
}

RC_GTEST_PROP(ShortCutTextProperties, BitsBetweenTheKeyAndTheModifiersAreNotShown, ()) {
  const auto shortCut = *rc::gen::arbitrary<TShortCut>();
  RC_ASSERT(ShortCutToText(shortCut) == ShortCutToText(shortCut & 0xE0FF));
}

// What is read from any text is either nothing or a shortcut that has a text, which says the same.
RC_GTEST_PROP(ShortCutTextProperties, WhatIsReadHasATextThatReadsTheSame, ()) {
  const auto piece =
      rc::gen::oneOf(rc::gen::element<std::string>("Shift+", "ctrl+", "ALT+", "F1", "a", "Del", "+", " "),
                     rc::gen::map(rc::gen::arbitrary<char>(), [](char c) { return std::string(1, c); }));
  std::string text;
  for (const std::string& part : *rc::gen::container<std::vector<std::string>>(piece))
    text += part;

  const TShortCut shortCut = TextToShortCut(text);
  RC_CLASSIFY(shortCut != 0, "a shortcut");
  RC_ASSERT(shortCut == 0 || TextToShortCut(ShortCutToText(shortCut)) == shortCut);
  RC_ASSERT(shortCut == 0 || !ShortCutToText(shortCut).empty());
}

// People write the stored text by hand, in their own case and order.
RC_GTEST_PROP(ShortCutTextProperties, EverySpellingOfAShortcutIsRead, ()) {
  const TRow row = *rc::gen::elementOf(Rows);
  std::vector<std::string> modifiers = {"Shift+", "Ctrl+", "Alt+"};
  std::erase_if(modifiers, [](const std::string&) { return *rc::gen::arbitrary<bool>(); });
  TShortCut expected = row.ShortCut & 0xFF;
  for (const std::string& modifier : modifiers)
    expected |= modifier == "Shift+" ? Shift : modifier == "Ctrl+" ? Ctrl : Alt;
  if (*rc::gen::arbitrary<bool>())
    std::ranges::reverse(modifiers);
  std::string text;
  for (const std::string& modifier : modifiers)
    text += modifier;
  text += ShortCutToText(row.ShortCut & 0xFF);
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z' && *rc::gen::arbitrary<bool>())
      c = static_cast<char>(c + 'a' - 'A');
  }
  RC_ASSERT(TextToShortCut(text) == expected);
}

} // namespace
} // namespace quorvane
