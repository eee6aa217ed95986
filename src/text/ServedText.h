// SPDX-License-Identifier: MIT
// Text as add-ins read it: one byte for each character, whatever the file's encoding, so that character indexes, lexer
// columns and linear positions agree. A character is a code point: ASCII and Latin-1 (up to U+00FF) stand as their
// code, anything beyond as ServedPlaceholder; a surrogate pair is one character and so is a lone surrogate. Lines end
// in CR LF. The way is one-way: what is served is never written back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

// Stands for every character beyond U+00FF. An upside-down question mark in Latin-1, and no part of any Pascal token.
inline constexpr char ServedPlaceholder = '\xBF';

// Ends every served line but the last.
inline constexpr std::string_view ServedLineEnd = "\r\n";

// Appends the characters of one line, given without its line end, to `out`.
void AppendServedLine(std::u16string_view line, std::string& out);

// The whole of a decoded text, every line end in it turned into CR LF; a text without a final line end gets none.
std::string ServeText(std::u16string_view text);

// The number of characters, and so of served bytes, in a line or a part of it.
std::size_t ServedLength(std::u16string_view line);

// The UTF-16 index (from 0) at which the character with the index `character` (from 0) begins; the line's size if the
// line has no such character. The way back is ServedLength of the line's part before the UTF-16 index.
std::size_t UnitOfCharacter(std::u16string_view line, std::size_t character);

} // namespace quorvane
