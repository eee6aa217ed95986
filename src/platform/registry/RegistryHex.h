// SPDX-License-Identifier: MIT
// Values that a registry export writes as a list of bytes: "hex(1):41,00,00,00".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// The text that a list of bytes holds.
struct THexText {
  std::u16string Content;
  bool Closed; // there was a zero at its end, which is taken off
};

// The text that `list`, the part behind the colon with all its lines, holds in UTF-16. None if the list is damaged.
std::optional<THexText> TextOfHex(std::u16string_view list);

// `content` as such a list, with a zero at its end, in one line.
std::u16string HexOfText(std::u16string_view content);

// The index in `text` at which the list ends that begins at `begin`. A backslash at the end of a line lets it go on in
// the next line, unless that one can be no part of a list.
std::size_t EndOfHex(std::u16string_view text, std::size_t begin);

} // namespace platform
