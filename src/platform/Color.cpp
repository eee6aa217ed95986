// SPDX-License-Identifier: MIT
#include "platform/Color.h"

#include <array>

namespace platform {

namespace {

// System colours by index. Scroll bar, desktop, captions and borders have no role of their own and look like buttons.
constexpr std::array<QPalette::ColorRole, 25> kSystemColors = {
    QPalette::Button,          // 0 scroll bar
    QPalette::Window,          // 1 desktop
    QPalette::Highlight,       // 2 active caption
    QPalette::Button,          // 3 inactive caption
    QPalette::Base,            // 4 menu
    QPalette::Base,            // 5 window
    QPalette::WindowText,      // 6 window frame
    QPalette::Text,            // 7 menu text
    QPalette::Text,            // 8 window text
    QPalette::HighlightedText, // 9 caption text
    QPalette::Button,          // 10 active border
    QPalette::Button,          // 11 inactive border
    QPalette::Window,          // 12 application workspace
    QPalette::Highlight,       // 13 highlight
    QPalette::HighlightedText, // 14 highlight text
    QPalette::Button,          // 15 button face
    QPalette::Dark,            // 16 button shadow
    QPalette::PlaceholderText, // 17 grey text
    QPalette::ButtonText,      // 18 button text
    QPalette::ButtonText,      // 19 inactive caption text
    QPalette::Light,           // 20 button highlight
    QPalette::Shadow,          // 21 dark shadow
    QPalette::Midlight,        // 22 light
    QPalette::ToolTipText,     // 23 hint text
    QPalette::ToolTipBase,     // 24 hint ground
};

constexpr std::uint32_t kSystemFlag = 0x80000000U;

} // namespace

QColor ToQColor(TColor color, const QPalette& palette, const QColor& own) {
  if (color == clNone)
    return {};
  if (color == clDefault)
    return own;
  const auto bits = static_cast<std::uint32_t>(color);
  if (bits & kSystemFlag) {
    const std::uint32_t index = bits & ~kSystemFlag;
    return palette.color(index < kSystemColors.size() ? kSystemColors[index] : QPalette::Button);
  }
  return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF), static_cast<int>(bits >> 16 & 0xFF));
}

TColor ToTColor(const QColor& color) {
  return color.red() | color.green() << 8 | color.blue() << 16;
}

} // namespace platform
