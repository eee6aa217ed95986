// SPDX-License-Identifier: MIT
// The syntax of a registry export, line by line:
//
//   Windows Registry Editor Version 5.00            or REGEDIT4
//
//   [HKEY_CURRENT_USER\Software\Some\Key]           a key; the values below it are its own
//   "Name"=dword:0000001f                           a number, up to eight hexadecimal digits
//   "Name"="a \"text\" with C:\\paths"              a text
//   "Name"=hex(1):41,00,00,00                       a text in UTF-16, for those with line breaks and the like
//   "Name"=hex:01,02,\                              other types, which may go on in the next line
//     03,04
//   @="text"                                        the key's default value, whose name is empty
//   "Name"=-                                        no such value
//   [-HKEY_CURRENT_USER\Software\Some\Key]          no such key, nor any below it
//   ; a comment
//
// Blanks count nowhere but in names and texts, the case of words and digits nowhere at all. A comment may also follow
// a key or a value. A text that its line does not close is damaged. So is what ends with the file, without a line end,
// where the file may have been cut in the middle of it: a number of fewer than eight digits, or a list of bytes that
// lacks the zero at its end. Such a list is damaged anywhere if it should go on and does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

// The first line of a file of ours.
inline constexpr std::u16string_view RegistryHeader = u"Windows Registry Editor Version 5.00";

// The digits as they are written.
inline constexpr std::u16string_view HexDigits = u"0123456789abcdef";

// What a value holds: a number or a text, or nothing if it is damaged or of a type that settings have no use for.
using TRegistryValue = std::variant<std::monostate, std::uint32_t, std::u16string>;

// Whether `unit` is a blank, a tab or part of a line end.
bool IsBlank(char16_t unit);

// The value of a hexadecimal digit of either case; none if `unit` is something else.
std::optional<unsigned> HexDigit(char16_t unit);

// The part of `text` from `begin`, an index from 0, to the end of that line, its line end included.
std::u16string_view LineAt(std::u16string_view text, std::size_t begin);

// Whether there is nothing but blanks in `line`.
bool IsBlankLine(std::u16string_view line);

// Whether `line` is the first one of a registry export, of either version.
bool IsHeaderLine(std::u16string_view line);

// A line that begins with a bracket.
struct TRegistryKeyLine {
  std::u16string_view Path; // from the root's name on, as in the line; empty if the line is damaged
  bool Deleted = false;
};

// What `line` says of a key; none if it does not begin with a bracket.
std::optional<TRegistryKeyLine> ParseKeyLine(std::u16string_view line);

// Whether a line can hold a key of this path, from the root's name on, so that it is read as it was written.
bool IsKeyPath(std::u16string_view path);

// A line that begins with a name and an equals sign, with those in which its value goes on.
struct TRegistryValueLine {
  std::u16string Name; // without quotes and escapes; empty for the default value
  TRegistryValue Value;
  bool Deleted = false;      // there is "-" in place of a value
  bool Cut = false;          // it is damaged only because the file ends there; a line end would make it readable
  std::size_t DataBegin = 0; // the indexes in the text, from 0, between which the value is written;
  std::size_t DataEnd = 0;   // blanks and comments around it lie outside
};

// The value that begins in the line of `text` at `begin`; none if that line is something else.
std::optional<TRegistryValueLine> ParseValueLine(std::u16string_view text, std::size_t begin);

// `name` as it stands before the equals sign.
std::u16string FormatName(std::u16string_view name);

// A value as it stands behind the equals sign; nothing is "-".
std::u16string FormatValue(const TRegistryValue& value);

// Whether `text` holds control characters, with which it cannot stand in quotes.
bool HasControls(std::u16string_view text);

} // namespace platform
