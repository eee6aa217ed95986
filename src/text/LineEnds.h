// SPDX-License-Identifier: MIT
// A text cut into lines, each with the line end it came with, so that a file with mixed ends is written as it was read.
// Only LF, CR and CR LF end a line: NEL, form feed, U+2028 and U+2029 are characters like any other.
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

namespace quorvane {

enum class TLineEnd : unsigned char {
  None, // the end of the text; only the last line has it
  CrLf,
  Lf,
  Cr,
};

// The characters of a line end; empty for None.
std::u16string_view LineEndText(TLineEnd end);

// One line: its characters without the line end, as a view into the text.
struct TLine {
  std::u16string_view Text;
  TLineEnd End = TLineEnd::None;
};

// The lines of a text, found while iterating, so nothing is stored per line:
//
//     for (const TLine& line : TLines(text)) ...
//
// There is one line more than there are line ends: the last line has none and may be empty, and an empty text is one
// empty line. The text must outlive the lines.
class TLines {
public:
  explicit TLines(std::u16string_view text) : FText(text) {}

  class TIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using iterator_concept = std::input_iterator_tag;
    using value_type = TLine;
    using difference_type = std::ptrdiff_t;
    using pointer = const TLine*;
    using reference = const TLine&;

    explicit TIterator(std::u16string_view text) : FRest(text) { Advance(); }

    reference operator*() const { return FLine; }
    pointer operator->() const { return &FLine; }
    TIterator& operator++() {
      if (FLine.End == TLineEnd::None)
        FDone = true;
      else
        Advance();
      return *this;
    }
    void operator++(int) { ++*this; }
    friend bool operator==(const TIterator& iterator, std::default_sentinel_t) { return iterator.FDone; }

  private:
    void Advance();

    std::u16string_view FRest;
    TLine FLine;
    bool FDone = false;
  };

  TIterator begin() const { return TIterator(FText); }
  std::default_sentinel_t end() const { return {}; }

private:
  std::u16string_view FText;
};

} // namespace quorvane
