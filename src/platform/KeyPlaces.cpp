// SPDX-License-Identifier: MIT
#include "platform/KeyPlaces.h"

#include <QChar>
#include <QKeyEvent>

#include <array>
#include <string_view>

namespace platform {

namespace {

// The keys of one row of the keyboard, by the codes that X11 and Wayland give to their places. The letters are those of
// the layout that virtual key codes come from.
struct TKeyRow {
  quint32 FirstCode;
  std::string_view Keys;
};
constexpr TKeyRow kDigits = {10, "1234567890"};
constexpr std::array<TKeyRow, 3> kLetters = {{{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};

std::uint8_t KeyAt(const TKeyRow& row, quint32 code) {
  const quint32 index = code - row.FirstCode; // huge for a code before the first
  return index < row.Keys.size() ? static_cast<std::uint8_t>(row.Keys[index]) : 0;
}

bool IsLetter(int key) {
  return key <= 0xFFFF && QChar(static_cast<char16_t>(key)).isLetter();
}

// Whether the key gives a letter of another script, so that its sign cannot say which virtual key it is.
bool IsForeignLetter(int key) {
  return key > 0xFF && IsLetter(key);
}

} // namespace

std::uint8_t VirtualKeyOf(const QKeyEvent& event) {
  if (const std::uint8_t key = VirtualKey(event.key()))
    return key;
  const quint32 code = event.nativeScanCode();
  const bool isSignAboveDigit = event.modifiers().testFlag(Qt::ShiftModifier) && !IsLetter(event.key());
  if (const std::uint8_t digit = KeyAt(kDigits, code); digit != 0 && isSignAboveDigit)
    return digit;
  if (!IsForeignLetter(event.key()))
    return 0;
  for (const TKeyRow& row : kLetters) {
    if (const std::uint8_t letter = KeyAt(row, code))
      return letter;
  }
  return 0;
}

TShortCut ModifiersOf(const QKeyEvent& event) {
  unsigned modifiers = 0;
  modifiers |= event.modifiers() & Qt::ShiftModifier ? scShift : 0U;
  modifiers |= event.modifiers() & Qt::ControlModifier ? scCtrl : 0U;
  modifiers |= event.modifiers() & Qt::AltModifier ? scAlt : 0U;
  return static_cast<TShortCut>(modifiers);
}

} // namespace platform
