// SPDX-License-Identifier: MIT
#include "text/ShownText.h"

#include "text/Encoding.h"
#include "text/Utf16.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace quorvane {
namespace {

struct TCharacterRange {
  char32_t First;
  char32_t Last;
};

// The large blocks of marks that take no cell of their own.
constexpr std::array ZeroCells = {
    TCharacterRange{0x0300, 0x036F}, TCharacterRange{0x0483, 0x0489},  TCharacterRange{0x0591, 0x05BD},
    TCharacterRange{0x064B, 0x065F}, TCharacterRange{0x1AB0, 0x1AFF},  TCharacterRange{0x1DC0, 0x1DFF},
    TCharacterRange{0x200B, 0x200D}, TCharacterRange{0x2060, 0x2065},  TCharacterRange{0x206A, 0x206F},
    TCharacterRange{0x20D0, 0x20FF}, TCharacterRange{0xFE00, 0xFE0F},  TCharacterRange{0xFE20, 0xFE2F},
    TCharacterRange{0xFEFF, 0xFEFF}, TCharacterRange{0xE0100, 0xE01EF}};

// The large blocks of East Asian wide characters and of pictures.
constexpr std::array TwoCells = {
    TCharacterRange{0x1100, 0x115F},   TCharacterRange{0x2E80, 0x303E},   TCharacterRange{0x3041, 0x33FF},
    TCharacterRange{0x3400, 0x4DBF},   TCharacterRange{0x4E00, 0x9FFF},   TCharacterRange{0xA000, 0xA4CF},
    TCharacterRange{0xA960, 0xA97F},   TCharacterRange{0xAC00, 0xD7A3},   TCharacterRange{0xF900, 0xFAFF},
    TCharacterRange{0xFE30, 0xFE6F},   TCharacterRange{0xFF00, 0xFF60},   TCharacterRange{0xFFE0, 0xFFE6},
    TCharacterRange{0x1F300, 0x1F64F}, TCharacterRange{0x1F680, 0x1F6FF}, TCharacterRange{0x1F900, 0x1F9FF},
    TCharacterRange{0x20000, 0x3FFFD}};

bool IsIn(std::span<const TCharacterRange> ranges, char32_t character) {
  return std::ranges::any_of(ranges, [character](const TCharacterRange& range) {
    return character >= range.First && character <= range.Last;
  });
}

// The characters without a cell that turn the direction of writing or end a line.
constexpr std::array Unseen = {TCharacterRange{0x061C, 0x061C}, TCharacterRange{0x200E, 0x200F},
                               TCharacterRange{0x2028, 0x202E}, TCharacterRange{0x2066, 0x2069}};

// Unicode has a picture for each control character of ASCII.
constexpr char16_t ControlPictures = 0x2400;
constexpr char16_t DeletePicture = 0x2421;
constexpr char16_t Delete = 0x7F;

char16_t Sign(char16_t control) {
  if (control < ' ')
    return static_cast<char16_t>(ControlPictures + control);
  return control == Delete ? DeletePicture : ReplacementCharacter;
}

// UTF-8 cannot say half a pair.
std::string Utf8Of(std::u16string text) {
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (StartsPair(text, index))
      ++index;
    else if (IsHighSurrogate(text[index]) || IsLowSurrogate(text[index]))
      text[index] = ReplacementCharacter;
  }
  return EncodeUtf8(text).value_or(std::string());
}

} // namespace

bool IsControl(char16_t unit) {
  constexpr char16_t FirstBeyondControls = 0xA0;
  return unit < FirstBeyondControls ? unit < ' ' || unit >= Delete : IsIn(Unseen, unit);
}

std::u16string WithSigns(std::u16string_view line) {
  std::u16string shown(line);
  for (char16_t& unit : shown)
    if (unit != u'\t' && IsControl(unit))
      unit = Sign(unit);
  return shown;
}

std::string ShownLine(std::u16string_view line) {
  return Utf8Of(WithSigns(line));
}

std::string ShownServed(std::string_view served) {
  return ShownLine(DecodeAs(served, CodePageEncoding(TCodePage::Latin1)).Text);
}

std::string ShownName(std::string_view name) {
  return ShownLine(DecodeUtf8(name));
}

std::string ShortMessage(std::string message) {
  constexpr std::size_t MaxLength = 200;
  constexpr std::string_view Dots = "...";
  if (message.size() <= MaxLength)
    return message;
  return message.substr(0, MaxLength - Dots.size()).append(Dots);
}

int CellsOf(char32_t character) {
  if (IsIn(ZeroCells, character))
    return 0;
  return IsIn(TwoCells, character) ? 2 : 1;
}

} // namespace quorvane
