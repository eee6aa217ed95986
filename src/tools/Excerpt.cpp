// SPDX-License-Identifier: MIT
#include "tools/Excerpt.h"

#include "text/ServedText.h"
#include "text/ShownText.h"
#include "text/Utf16.h"

#include <algorithm>

namespace quorvane {
namespace {

// How many characters of a line are shown, and how many of them before the token if the line is longer.
constexpr std::size_t MaxShown = 160;
constexpr std::size_t ShownBefore = 60;
constexpr std::string_view Dots = "...";

char32_t CharacterAt(std::u16string_view text, std::size_t unit) {
  return StartsPair(text, unit) ? PairCodePoint(text[unit], text[unit + 1]) : text[unit];
}

std::size_t Cells(std::u16string_view text) {
  std::size_t cells = 0;
  for (std::size_t unit = 0; unit < text.size(); unit += StartsPair(text, unit) ? 2 : 1)
    cells += static_cast<std::size_t>(CellsOf(CharacterAt(text, unit)));
  return cells;
}

// Blanks as wide as the text; a tab stays one, since only the terminal knows its width.
std::string Padding(std::u16string_view text) {
  std::string padding;
  for (std::size_t tab = text.find(u'\t'); tab != std::u16string_view::npos; tab = text.find(u'\t')) {
    padding.append(Cells(text.substr(0, tab)), ' ') += '\t';
    text.remove_prefix(tab + 1);
  }
  return padding.append(Cells(text), ' ');
}

std::string Mark(std::u16string_view token) {
  return std::string("^").append(std::max(Cells(token), std::size_t{1}) - 1, '~');
}

} // namespace

TExcerptLine::TExcerptLine(std::u16string_view line) : FLine(line), FLength(ServedLength(line)) {}

std::u16string_view TExcerptLine::Part(std::size_t first, std::size_t count) {
  if (first < FCharacter)
    FCharacter = FUnit = 0;
  FUnit += UnitOfCharacter(FLine.substr(FUnit), first - FCharacter);
  FCharacter = first;
  const std::u16string_view rest = FLine.substr(FUnit);
  return rest.substr(0, UnitOfCharacter(rest, count));
}

TExcerpt TExcerptLine::At(std::size_t column, std::size_t tokenLength) {
  const std::size_t size = std::min(FLength, MaxShown);
  const std::size_t start = std::min(column - std::min(column, ShownBefore), FLength - size);
  const std::u16string text = WithSigns(Part(start, size));
  const std::u16string_view shown = text;
  const std::size_t tokenAt = UnitOfCharacter(shown, column - start);
  const std::u16string_view token = shown.substr(tokenAt);

  TExcerpt excerpt;
  if (start > 0) {
    excerpt.Source = Dots;
    excerpt.Marks.append(Dots.size(), ' ');
  }
  excerpt.Source += ShownLine(shown);
  if (start + size < FLength)
    excerpt.Source += Dots;
  excerpt.Marks += Padding(shown.substr(0, tokenAt));
  excerpt.Marks += Mark(token.substr(0, UnitOfCharacter(token, tokenLength)));
  return excerpt;
}

} // namespace quorvane
