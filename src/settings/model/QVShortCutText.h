// SPDX-License-Identifier: MIT
// The text by which a shortcut is shown and stored: "Shift+", "Ctrl+" and "Alt+", in this order, then the key.
#pragma once

#include "settings/model/QVOptions.h"

#include <string>
#include <string_view>

namespace quorvane {

// The text of a shortcut; empty for 0 and for a key that has no name.
std::string ShortCutToText(TShortCut shortCut);

// The shortcut of a text, or 0 if it is none. Case does not matter, nor does the order of the modifiers, since people
// write the stored text by hand; blanks do.
TShortCut TextToShortCut(std::string_view text);

} // namespace quorvane
