// SPDX-License-Identifier: MIT
// Text made fit for a terminal, and for formats that hold nothing but UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

// The bytes with U+FFFD for every part that is not UTF-8.
std::string ValidUtf8(std::string_view bytes);

// A part of a line in UTF-8, with a visible sign for each control character but the tab, so that no file can move the
// cursor of a terminal or spread a message over lines. Every character stays one character.
std::string ShownLine(std::u16string_view line);

// The same for a served text, where each byte is a character. Of a text with more characters than `limit` (3 at least)
// the beginning is shown, ended by dots.
std::string ShownServed(std::string_view served, std::size_t limit = std::string_view::npos);

// How many cells of a terminal a character takes: 0 for marks that combine with the one before, 2 for wide ones, 1 for
// all others; a tab counts as one.
int CellsOf(char32_t character);

} // namespace quorvane
