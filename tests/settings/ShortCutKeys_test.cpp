// SPDX-License-Identifier: MIT
// The keys that have a text and the keys that the window system knows are the same keys.
#include "platform/Actions.h"
#include "settings/model/QVShortCutText.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace quorvane {
namespace {

TEST(ShortCutKeys, HaveATextExactlyWhenTheyCanBePressed) {
  for (int key = 0; key <= 0xFF; ++key)
    EXPECT_EQ(ShortCutToText(static_cast<TShortCut>(key)).empty(), platform::QtKey(static_cast<std::uint8_t>(key)) == 0)
        << key;
}

TEST(ShortCutKeys, HaveTheModifiersThatTheyFireWith) {
  EXPECT_EQ(TextToShortCut("Shift+A"), platform::scShift | 'A');
  EXPECT_EQ(TextToShortCut("Ctrl+A"), platform::scCtrl | 'A');
  EXPECT_EQ(TextToShortCut("Alt+A"), platform::scAlt | 'A');
}

} // namespace
} // namespace quorvane
