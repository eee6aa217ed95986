// SPDX-License-Identifier: MIT
// Text made fit for a terminal, and for formats that hold nothing but UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

// Whether a character, as a unit of UTF-16, acts on the text around it instead of being seen: the control characters,
// the tab among them, the separators U+2028 and U+2029, and those that turn the direction of writing.
bool IsControl(char16_t unit);

// A part of a line with a visible sign for each such character but the tab, so that no file can move the cursor of a
// terminal, spread a message over lines or show its characters in another order. Every unit stays one unit.
std::u16string WithSigns(std::u16string_view line);

// The same in UTF-8; U+FFFD stands for half a pair.
std::string ShownLine(std::u16string_view line);

// The same for a served text, where each byte is a character.
std::string ShownServed(std::string_view served);

// The same for bytes that should be UTF-8, the name of a file or a word of the command line; U+FFFD stands for what is
// not. To be used wherever such a name is written for people.
std::string ShownName(std::string_view name);

// A message of the parser, served. It may quote a token of any length; of more than 200 characters the beginning is
// left, ended by dots.
std::string ShortMessage(std::string message);

// How many cells of a terminal a character with a sign takes: 0 for marks that combine with the one before, 2 for wide
// ones, 1 for all others; a tab counts as one.
int CellsOf(char32_t character);

} // namespace quorvane
