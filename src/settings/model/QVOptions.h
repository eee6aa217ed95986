// SPDX-License-Identifier: MIT
// The option globals of the add-in: every unit reads them directly, and only loading and applying the settings writes
// them. They hold their designed defaults from the start of the process, so nothing needs to be loaded before an editor
// is painted.
//
// This unit is a leaf that includes nothing of the project but the options' tables. Main thread only, but for
// OptSyntaxCheck.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

namespace quorvane {

using TColor = std::int32_t;     // 0x00BBGGRR, or a system colour
using TShortCut = std::uint16_t; // virtual key code, with 0x2000 Shift, 0x4000 Ctrl, 0x8000 Alt

// Bracket matching.
extern TColor OptParenMatchColor; // colour of the cells of the bracket pair at the caret
extern bool OptMarkParens;        // whether that pair is marked

// The four colours of nested blocks, cycled by depth. Index 0 is the first level.
extern std::array<TColor, 4> OptBlockHiliteColors;

// Line numbers.
extern bool OptShowLineNumbers; // whether there are line numbers at all
extern bool OptLinesInGutter;   // true: in the host's own gutter; false: in the separate gutter control

// Declared for a key that was never given a meaning: nothing assigns or reads it. Intended.
extern TShortCut OptBlockHiliteKey;

// Block marks. They are stored and edited, but blocks are not painted.
extern bool OptMarkAllBlocks; // every block, not only the caret's
extern bool OptMarkBlocks;    // any block at all

extern bool OptShowNavBar; // navigation toolbar above each editor

extern bool OptBlockBrackets;  // block marks as brackets rather than filled blocks
extern bool OptUnevenBrackets; // connecting lines for blocks whose ends stand in different columns

extern TColor OptLineNumberColor; // text colour of line numbers
extern bool OptGutterSeparator;   // a line between the gutter control and the text
extern bool OptLineNumbersLeft;   // the gutter control stands left of the text

extern bool OptFlyoutBar; // kept with the other settings; there is no flyout bar

extern bool OptEnableTemplates;   // code templates expand
extern char OptTemplateKey;       // the character that expands them
extern std::string OptStorageDir; // folder of the template file; empty when not configured

extern std::int32_t OptLineWidth; // pen width of block brackets in pixels, 1 to 9

extern std::atomic<bool> OptSyntaxCheck; // background syntax check; read by the parse thread

// Marks in the text: always, or only when the hot key asks for them.
extern bool OptMarkerLive;
extern TShortCut OptMarkerHotkey;

extern std::int32_t OptFlyoutDelay; // milliseconds, 0 to 9999

// Puts every global back to its designed default.
void ResetOptions();

} // namespace quorvane
