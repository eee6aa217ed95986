// SPDX-License-Identifier: MIT
#include "text/ServedText.h"

#include "text/LineEnds.h"
#include "text/Utf16.h"

namespace quorvane {

void AppendServedLine(std::u16string_view Line, std::string& Out) {
  const std::size_t Before = Out.size();
  Out.resize(Before + Line.size());
  char* To = Out.data() + Before;
  for (std::size_t Index = 0; Index < Line.size(); ++Index) {
    const char16_t Unit = Line[Index];
    *To++ = Unit < 0x100 ? static_cast<char>(Unit) : ServedPlaceholder;
    if (StartsPair(Line, Index))
      ++Index;
  }
  Out.resize(static_cast<std::size_t>(To - Out.data()));
}

std::string ServeText(std::u16string_view Text) {
  std::string Out;
  // Most Pascal files are ASCII with an end of its own on every line of some thirty characters.
  Out.reserve(Text.size() + Text.size() / 32);
  for (const TLine& Line : TLines(Text)) {
    AppendServedLine(Line.Text, Out);
    if (Line.End != TLineEnd::None)
      Out += ServedLineEnd;
  }
  return Out;
}

std::size_t ServedLength(std::u16string_view Line) {
  std::size_t Length = Line.size();
  for (std::size_t Index = 0; Index < Line.size(); ++Index) {
    if (StartsPair(Line, Index)) {
      --Length;
      ++Index;
    }
  }
  return Length;
}

std::size_t UnitOfCharacter(std::u16string_view Line, std::size_t Character) {
  std::size_t Index = 0;
  for (; Character > 0 && Index < Line.size(); --Character)
    Index += StartsPair(Line, Index) ? 2 : 1;
  return Index;
}

} // namespace quorvane
