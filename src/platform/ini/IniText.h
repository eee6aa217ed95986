// SPDX-License-Identifier: MIT
// The syntax of an INI file, line by line:
//
//   [Section]           the keys below it are its own
//   Key=a value         up to the end of the line, without blanks around it
//   Key=" a value "     in double quotes, which do not count, so that blanks around the value do
//   ; a comment
//
// Blanks (spaces and tabs) around names do not count. A section's name ends at the first "]", a key's at the first "=".
// What follows a "]" means nothing. Quotes inside a value are characters like any other, and so are single ones at its
// ends. LF, CR LF and CR end a line. Other lines mean nothing; one that begins with "[" but names no section is
// damaged, and the lines below it belong to no section.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// `text` without spaces and tabs around it.
std::string_view TrimmedBlanks(std::string_view text);

// `name` with its ASCII letters in lower case: equal for names that are the same.
std::string FoldedName(std::string_view name);

// The part of `text` from `begin`, an index from 0, to the end of that line, its line end included.
std::string_view LineAt(std::string_view text, std::size_t begin);

// Whether there is nothing but blanks in `line`.
bool IsBlankLine(std::string_view line);

// The line end of `line`; empty if it has none.
std::string_view LineEndOf(std::string_view line);

// The name in a line that begins with "[", a view into it, empty if the line is damaged; none for other lines.
std::optional<std::string_view> ParseSectionLine(std::string_view line);

// A line with a key, as views into it.
struct TIniKeyLine {
  std::string_view Name;
  std::string_view Value; // as it stands in the line, quotes included
};

// The key in `line`; none if it is something else.
std::optional<TIniKeyLine> ParseKeyLine(std::string_view line);

// The value that stands in a line as `written`.
std::string_view UnquotedValue(std::string_view written);

// A value as it stands in a line: in quotes if it would not come back without them.
std::string WrittenValue(std::string_view value);

// UTF-8 for a name or value as it stands in a file: UTF-8 as it is, anything else from the user's code page. Each is
// looked at alone, so damage in one does not spoil the others.
std::string Utf8Of(std::string_view bytes);

// Why a name or value cannot stand in a file, as the rest of a sentence about it; none if it can.
std::optional<std::string_view> SectionNameError(std::string_view name);
std::optional<std::string_view> KeyNameError(std::string_view name);
std::optional<std::string_view> ValueError(std::string_view value);

} // namespace platform
