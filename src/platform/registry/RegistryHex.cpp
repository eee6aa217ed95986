// SPDX-License-Identifier: MIT
#include "platform/registry/RegistryHex.h"

#include "platform/registry/RegistryText.h"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

// Whether a line can be the second or a later one of a list.
bool GoesOn(std::u16string_view line) {
  return !IsBlankLine(line) && std::ranges::all_of(line, [](char16_t unit) {
    return HexDigit(unit) || unit == u',' || unit == u'\\' || IsBlank(unit);
  });
}

// The part of a line before its comment and the blanks at its end.
std::u16string_view ListIn(std::u16string_view line) {
  line = line.substr(0, line.find(u';'));
  while (!line.empty() && IsBlank(line.back()))
    line.remove_suffix(1);
  return line;
}

} // namespace

std::optional<THexText> TextOfHex(std::u16string_view list) {
  std::u16string content;
  unsigned digits = 0; // of the unit that is being read
  unsigned unit = 0;
  for (const char16_t symbol : list) {
    if (const std::optional<unsigned> digit = HexDigit(symbol)) {
      // The low byte comes first: digits 0 and 1 are its high and its low half, digits 2 and 3 those of the high byte.
      static constexpr unsigned shifts[] = {4, 0, 12, 8};
      unit |= *digit << shifts[digits++];
    } else if (digits % 2 != 0 || (symbol != u',' && symbol != u'\\' && !IsBlank(symbol))) {
      return std::nullopt;
    }
    if (digits == 4) {
      content += static_cast<char16_t>(unit);
      digits = unit = 0;
    }
  }
  if (digits != 0)
    return std::nullopt;
  const bool closed = content.ends_with(u'\0');
  if (closed)
    content.pop_back();
  return THexText{std::move(content), closed};
}

std::u16string HexOfText(std::u16string_view content) {
  std::u16string list;
  const auto add = [&list](unsigned byte) {
    if (!list.empty())
      list += u',';
    list += HexDigits[byte / 16];
    list += HexDigits[byte % 16];
  };
  const auto addUnit = [&add](char16_t unit) {
    add(unit % 256U);
    add(unit / 256U);
  };
  std::ranges::for_each(content, addUnit);
  addUnit(u'\0');
  return list;
}

std::size_t EndOfHex(std::u16string_view text, std::size_t begin) {
  for (;;) {
    const std::u16string_view line = LineAt(text, begin);
    const std::u16string_view list = ListIn(line);
    const std::size_t next = begin + line.size();
    if (!list.ends_with(u'\\') || !GoesOn(LineAt(text, next)))
      return begin + list.size();
    begin = next;
  }
}

} // namespace platform
