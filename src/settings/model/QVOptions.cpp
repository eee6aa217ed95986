// SPDX-License-Identifier: MIT
#include "settings/model/QVOptions.h"

namespace quorvane {

namespace {

// The designed values, in the order of the globals. Both the globals' first values and ResetOptions take them from
// here.
namespace designed {
constexpr TColor ParenMatchColor = 0xC0C0C0; // silver
constexpr bool MarkParens = true;
constexpr std::array<TColor, 4> BlockHiliteColors = {0xCCFFCC, 0xEEDDCC, 0xDDCCDD, 0xCCCCFF};
constexpr bool ShowLineNumbers = true;
constexpr bool LinesInGutter = false;
constexpr TShortCut BlockHiliteKey = 0;
constexpr bool MarkAllBlocks = false;
constexpr bool MarkBlocks = true;
constexpr bool ShowNavBar = true;
constexpr bool BlockBrackets = true;
constexpr bool UnevenBrackets = false;
constexpr TColor LineNumberColor = 0x000000; // black
constexpr bool GutterSeparator = true;
constexpr bool LineNumbersLeft = true;
constexpr bool FlyoutBar = true;
constexpr bool EnableTemplates = true;
constexpr char TemplateKey = ' ';
constexpr std::int32_t LineWidth = 2;
constexpr bool SyntaxCheck = true;
constexpr bool MarkerLive = true;
constexpr TShortCut MarkerHotkey = 0xA030; // Shift+Alt+0
constexpr std::int32_t FlyoutDelay = 2000;
} // namespace designed

} // namespace

TColor OptParenMatchColor = designed::ParenMatchColor;
bool OptMarkParens = designed::MarkParens;
std::array<TColor, 4> OptBlockHiliteColors = designed::BlockHiliteColors;
bool OptShowLineNumbers = designed::ShowLineNumbers;
bool OptLinesInGutter = designed::LinesInGutter;
TShortCut OptBlockHiliteKey = designed::BlockHiliteKey;
bool OptMarkAllBlocks = designed::MarkAllBlocks;
bool OptMarkBlocks = designed::MarkBlocks;
bool OptShowNavBar = designed::ShowNavBar;
bool OptBlockBrackets = designed::BlockBrackets;
bool OptUnevenBrackets = designed::UnevenBrackets;
TColor OptLineNumberColor = designed::LineNumberColor;
bool OptGutterSeparator = designed::GutterSeparator;
bool OptLineNumbersLeft = designed::LineNumbersLeft;
bool OptFlyoutBar = designed::FlyoutBar;
bool OptEnableTemplates = designed::EnableTemplates;
char OptTemplateKey = designed::TemplateKey;
std::string OptStorageDir;
std::int32_t OptLineWidth = designed::LineWidth;
std::atomic<bool> OptSyntaxCheck = designed::SyntaxCheck;
bool OptMarkerLive = designed::MarkerLive;
TShortCut OptMarkerHotkey = designed::MarkerHotkey;
std::int32_t OptFlyoutDelay = designed::FlyoutDelay;

void ResetOptions() {
  OptParenMatchColor = designed::ParenMatchColor;
  OptMarkParens = designed::MarkParens;
  OptBlockHiliteColors = designed::BlockHiliteColors;
  OptShowLineNumbers = designed::ShowLineNumbers;
  OptLinesInGutter = designed::LinesInGutter;
  OptBlockHiliteKey = designed::BlockHiliteKey;
  OptMarkAllBlocks = designed::MarkAllBlocks;
  OptMarkBlocks = designed::MarkBlocks;
  OptShowNavBar = designed::ShowNavBar;
  OptBlockBrackets = designed::BlockBrackets;
  OptUnevenBrackets = designed::UnevenBrackets;
  OptLineNumberColor = designed::LineNumberColor;
  OptGutterSeparator = designed::GutterSeparator;
  OptLineNumbersLeft = designed::LineNumbersLeft;
  OptFlyoutBar = designed::FlyoutBar;
  OptEnableTemplates = designed::EnableTemplates;
  OptTemplateKey = designed::TemplateKey;
  OptStorageDir.clear();
  OptLineWidth = designed::LineWidth;
  OptSyntaxCheck = designed::SyntaxCheck;
  OptMarkerLive = designed::MarkerLive;
  OptMarkerHotkey = designed::MarkerHotkey;
  OptFlyoutDelay = designed::FlyoutDelay;
}

} // namespace quorvane
