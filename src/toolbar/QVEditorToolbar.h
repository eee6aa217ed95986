// SPDX-License-Identifier: MIT
// Gives every editor window of the host its controls: the navigation toolbar, the line numbers and the proxy.
//
// Windows that are open when the package registers are equipped at once, later ones when they become active, which a
// hook tells. What a window has is found by component names among the children of its form, so a window that becomes
// active again costs two look-ups. Main thread only.
#pragma once

#include <QWidget>

#include <cstdint>

namespace quorvane {

// What the unit's Register does: equips the open windows, then installs the hook.
void RegisterEditorToolbar();
// What the unit's stop does: removes the hook and then the controls. Proxies stay.
void StopEditorToolbar();

// Injects the controls into every editor window that is open, without looking whether it has them already.
void InitializeOpenEditors();

// Installs CBTProc. EAssertionFailed "Error Installing CBT Hook" when the host refuses it.
void StartHooks();
// Takes CBTProc out again.
void EndHooks();

// The hook: equips the editor window that becomes active with what it lacks. What this throws goes to the application's
// exception handling, and older hooks hear of the activation all the same.
std::intptr_t CBTProc(int code, std::uintptr_t wParam, std::intptr_t lParam);

// A hook that polls the line numbers while the program is idle. It is dormant: nothing installs it, since the proxies
// poll after every message that matters. Intended.
std::intptr_t IdleProc(int code, std::uintptr_t wParam, std::intptr_t lParam);

// Adds line numbers and toolbar to the form of `editor`, each shown as the options say. With line numbers switched off
// the form gets neither, not even the toolbar; switching them on later shows neither, since only what exists can be
// shown. Intended.
void InjectToolbar(const QWidget& editor);

// Frees the line numbers and the toolbar of every editor window.
void FreeAllEditorToolbars();

} // namespace quorvane
