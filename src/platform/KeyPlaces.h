// SPDX-License-Identifier: MIT
// Which virtual key a press means, on keyboards of any layout.
#pragma once

#include "platform/Actions.h"
#include "platform/Export.h"

#include <cstdint>

class QKeyEvent;

namespace platform {

// The virtual key code, or 0 for a key that has none.
//
// A key is known by its place where its sign does not tell: Shift+0 is 0, whatever sign the keyboard's layout gives it,
// and so is a letter of another script. Without Shift the sign decides about digits: Ctrl+& of French keyboards is not
// Ctrl+1, and the key that gives Hungarians their letter Ö is none of their digits.
VIRELLE_PLATFORM std::uint8_t VirtualKeyOf(const QKeyEvent& event);

// The modifiers that are held, as a shortcut has them.
VIRELLE_PLATFORM TShortCut ModifiersOf(const QKeyEvent& event);

} // namespace platform
