// SPDX-License-Identifier: MIT
// A line of source with a mark under a token, as compilers show it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

struct TExcerpt {
  std::string Source; // the line in UTF-8; of a long one the part around the token, with dots for the rest
  std::string Marks;  // what stands under the token when printed below the source
};

// Makes the excerpts of one line. Asked for them from left to right it walks over the line once, however long it is.
// The line, given without its line end, must outlive it. All columns and lengths are in characters.
class TExcerptLine {
public:
  explicit TExcerptLine(std::u16string_view line);

  std::size_t Length() const { return FLength; }

  // The excerpt for a token at a column (from 0, at most Length). What reaches beyond the line is not marked.
  TExcerpt At(std::size_t column, std::size_t tokenLength);

private:
  std::u16string_view Part(std::size_t first, std::size_t count);

  std::u16string_view FLine;
  std::size_t FLength;
  std::size_t FCharacter = 0; // the last place that was looked for, as a character and as an index into the line
  std::size_t FUnit = 0;
};

} // namespace quorvane
