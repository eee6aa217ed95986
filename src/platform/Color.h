// SPDX-License-Identifier: MIT
// Colours as the contract's records carry them, and the one place where they become Qt's.
#pragma once

#include "platform/Export.h"

#include <QColor>
#include <QPalette>

#include <cstdint>

namespace platform {

// A 32-bit colour value: 0x00BBGGRR, or 0x80000000 + index of a system colour, or one of the two special values below.
using TColor = std::int32_t;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clNone = 0x1FFFFFFF;    // draws nothing
inline constexpr TColor clDefault = 0x20000000; // the control's own ground colour
inline constexpr TColor clActiveCaption = static_cast<TColor>(0x80000002);
inline constexpr TColor clWindow = static_cast<TColor>(0x80000005);
inline constexpr TColor clWindowText = static_cast<TColor>(0x80000008);
inline constexpr TColor clCaptionText = static_cast<TColor>(0x80000009);
inline constexpr TColor clHighlight = static_cast<TColor>(0x8000000D);
inline constexpr TColor clHighlightText = static_cast<TColor>(0x8000000E);
inline constexpr TColor clBtnFace = static_cast<TColor>(0x8000000F);
inline constexpr TColor clBtnShadow = static_cast<TColor>(0x80000010);
inline constexpr TColor clBtnHighlight = static_cast<TColor>(0x80000014);

// The Qt colour of `color`. System colours come from `palette`; an index that has no counterpart there gives the button
// colour. clDefault gives `own`; clNone gives an invalid colour, with which nothing is to be drawn.
VIRELLE_PLATFORM QColor ToQColor(TColor color, const QPalette& palette, const QColor& own);

// The 0x00BBGGRR value of `color`; its alpha is dropped.
VIRELLE_PLATFORM TColor ToTColor(const QColor& color);

} // namespace platform
