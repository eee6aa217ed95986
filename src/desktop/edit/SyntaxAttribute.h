// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

// What a character of Pascal source belongs to. The numbers are published: add-ins compare the attribute at the caret
// with them.
enum class SyntaxAttribute {
  Blank = 0, // white space, and whatever lies beyond the end of a line
  Comment = 1,
  ReservedWord = 2,
  Identifier = 3,
  Symbol = 4,
  String = 5, // character literals included
  Number = 6,
  Directive = 7, // a comment that starts with $
  Illegal = 8    // a character that has no place in the language
};

inline constexpr int syntaxAttributeCount = 9;

} // namespace desktop
