// SPDX-License-Identifier: MIT
// The one-byte code pages in which Pascal files of the past were written. Each maps all 256 bytes to 256 different
// characters: a byte that the code page leaves undefined stands for the C1 control of the same value, so every file
// comes back byte for byte.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace quorvane {

enum class TCodePage : unsigned char { Windows1250, Windows1251, Windows1252, Windows1254, Latin1 };

inline constexpr std::array AllCodePages = {TCodePage::Windows1250, TCodePage::Windows1251, TCodePage::Windows1252,
                                            TCodePage::Windows1254, TCodePage::Latin1};

// What the user has until he chooses another.
inline constexpr TCodePage DefaultCodePage = TCodePage::Windows1252;

// The name under which the code page is registered, as in "windows-1252".
std::string_view CodePageName(TCodePage codePage);

// The character of each byte.
using TCodePageTable = std::array<char16_t, 256>;
const TCodePageTable& CodePageTable(TCodePage codePage);

// The byte of a character; none if the code page lacks it.
std::optional<unsigned char> CodePageByte(TCodePage codePage, char16_t character);

} // namespace quorvane
