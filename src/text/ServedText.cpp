// SPDX-License-Identifier: MIT
#include "text/ServedText.h"

#include "text/LineEnds.h"
#include "text/Utf16.h"

namespace quorvane {

void AppendServedLine(std::u16string_view line, std::string& out) {
  const std::size_t before = out.size();
  out.resize(before + line.size());
  char* to = out.data() + before;
  for (std::size_t index = 0; index < line.size(); ++index) {
    const char16_t unit = line[index];
    *to++ = unit < 0x100 ? static_cast<char>(unit) : ServedPlaceholder;
    if (StartsPair(line, index))
      ++index;
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
}

std::string ServeText(std::u16string_view text) {
  std::string out;
  // A lone LF or CR grows by one; lines of some thirty characters are usual.
  out.reserve(text.size() + text.size() / 32);
  for (const TLine& line : TLines(text)) {
    AppendServedLine(line.Text, out);
    if (line.End != TLineEnd::None)
      out += ServedLineEnd;
  }
  return out;
}

std::size_t ServedLength(std::u16string_view line) {
  std::size_t length = line.size();
  for (std::size_t index = 0; index < line.size(); ++index) {
    if (StartsPair(line, index)) {
      --length;
      ++index;
    }
  }
  return length;
}

std::size_t UnitOfCharacter(std::u16string_view line, std::size_t character) {
  std::size_t index = 0;
  for (; character > 0 && index < line.size(); --character)
    index += StartsPair(line, index) ? 2 : 1;
  return index;
}

} // namespace quorvane
