// SPDX-License-Identifier: MIT
// The colours that the palette of the colour picker offers: the fixed ones, and those that the user has made.
#pragma once

#include "platform/Color.h"

#include <QString>

#include <array>

namespace quorvane {

inline constexpr int kColorsPerRow = 8;

// The fixed colours, row by row from the top left. The first is no colour at all.
inline constexpr std::array<platform::TColor, 40> FixedColors = {
    platform::clNone, 0x808080, 0x000040, 0x004040, 0x004000, 0x404000, 0x400000, 0x400040, //
    0x000000,         0x909090, 0x000080, 0x008080, 0x008000, 0x808000, 0x800000, 0x800080, //
    0x202020,         0xB0B0B0, 0x0000FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF, //
    0x404040,         0xD0D0D0, 0x8080FF, 0x80FFFF, 0x80FF80, 0xFFFF80, 0xFF8080, 0xFF80FF, //
    0x606060,         0xFFFFFF, 0xC0C0FF, 0xC0FFFF, 0xC0FFC0, 0xFFFFC0, 0xFFC0C0, 0xFFC0FF, //
};

// The colours of the user, shared by all colour buttons of the process; white until they are read. Main thread only.
using TUserColors = std::array<platform::TColor, 16>;
extern TUserColors UserColors;

// Fills UserColors from the registry, from the values "ColorA" to "ColorP" of the key "SoftWare" and then `regKey`
// below HKEY_CURRENT_USER. Creates no key: without it all colours are white, as is each one whose value is missing, not
// a text, or not a hexadecimal number of at most 24 bits: a colour has no more, and what has more is none. Never throws
// for what stands in the registry.
void ReadUserColors(const QString& regKey);
// Writes UserColors there, creating the keys: each the six upper-case hexadecimal digits of blue, green and red. What
// cannot be written throws as platform::TRegistry says.
void WriteUserColors(const QString& regKey);

// The name of a colour for people: "#RRGGBB" as it is shown with `palette`, or "No color".
QString ColorName(platform::TColor color, const QPalette& palette);

} // namespace quorvane
