// SPDX-License-Identifier: MIT
// The templates that a user without any may begin with.
#pragma once

#include <span>
#include <string_view>

namespace quorvane {

struct TQVTemplateExample {
  std::string_view Name;
  // As it is stored: "\" is a line break, "|" a place for the caret, "~" takes one character back. A new line begins
  // with the indentation of the one before, so each "~" at its start moves it one column to the left.
  std::string_view Code;
};

// In alphabetical order. Each is correct source with something typed in at its places for the caret.
std::span<const TQVTemplateExample> TemplateExamples();

} // namespace quorvane
