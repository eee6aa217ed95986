// SPDX-License-Identifier: MIT
#include "settings/model/QVShortCutText.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvane {

namespace {

struct TModifier {
  std::string_view Text;
  TShortCut Bit;
};

constexpr std::array<TModifier, 3> Modifiers = {{{"Shift+", 0x2000}, {"Ctrl+", 0x4000}, {"Alt+", 0x8000}}};

struct TKeyName {
  TShortCut Key; // virtual key code
  std::string_view Text;
};

// The keys that are neither letters, digits nor function keys.
constexpr std::array<TKeyName, 15> NamedKeys = {{
    {0x08, "BkSp"},
    {0x09, "Tab"},
    {0x0D, "Enter"},
    {0x1B, "Esc"},
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
}};

constexpr TShortCut KeyBits = 0x00FF;
constexpr TShortCut FirstFunctionKey = 0x70;
constexpr TShortCut LastFunctionKey = 0x87;

constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameText(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, UpperCase, UpperCase);
}

// Empty for a key without a name.
std::string KeyText(TShortCut key) {
  if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z'))
    return std::string(1, static_cast<char>(key));
  if (key >= FirstFunctionKey && key <= LastFunctionKey)
    return 'F' + std::to_string(key - FirstFunctionKey + 1);
  const auto* named = std::ranges::find(NamedKeys, key, &TKeyName::Key);
  return named == NamedKeys.end() ? std::string() : std::string(named->Text);
}

// 0 for a text that names no key. Asking every key for its text keeps the names in one place.
TShortCut KeyOf(std::string_view text) {
  for (TShortCut key = 1; !text.empty() && key <= KeyBits; ++key) {
    if (SameText(KeyText(key), text))
      return key;
  }
  return 0;
}

// The modifier that `text` starts with, or nullptr.
const TModifier* LeadingModifier(std::string_view text) {
  const auto* found = std::ranges::find_if(Modifiers, [text](const TModifier& modifier) {
    return SameText(text.substr(0, modifier.Text.size()), modifier.Text);
  });
  return found == Modifiers.end() ? nullptr : found;
}

} // namespace

std::string ShortCutToText(TShortCut shortCut) {
  const std::string key = KeyText(shortCut & KeyBits);
  if (key.empty())
    return {};
  std::string text;
  for (const TModifier& modifier : Modifiers) {
    if (shortCut & modifier.Bit)
      text += modifier.Text;
  }
  return text + key;
}

TShortCut TextToShortCut(std::string_view text) {
  TShortCut modifiers = 0;
  while (const TModifier* modifier = LeadingModifier(text)) {
    modifiers |= modifier->Bit;
    text.remove_prefix(modifier->Text.size());
  }
  const TShortCut key = KeyOf(text);
  return key == 0 ? TShortCut{0} : static_cast<TShortCut>(modifiers | key);
}

} // namespace quorvane
