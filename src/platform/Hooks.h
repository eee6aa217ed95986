// SPDX-License-Identifier: MIT
// Window hooks: how an add-in hears of what happens to windows that it did not make.
//
// A hook is a function that the host calls for every event of one kind. Hooks of a kind form a chain: the one installed
// last is called first, and each decides whether the next older one hears of the event too, by CallNextHookEx. Hooks
// are called in the main thread, and every function here but GetCurrentThreadId belongs to it.
#pragma once

#include "platform/Export.h"

#include <QWidget>

#include <cstddef>
#include <cstdint>

namespace platform {

// Kinds of hooks.
enum THookKind : int {
  WH_CBT = 5, // windows are activated
};

// What a WH_CBT hook is told. A hook passes negative codes on without looking at them.
enum TCbtCode : int {
  HCBT_ACTIVATE = 5, // a form has become active; wParam is its handle, see FindControl
};

// An installed hook, or none. Handles are never used again. Compares with nullptr.
class HHOOK {
public:
  constexpr HHOOK() = default;
  // No hook, so that a handle can be cleared with nullptr.
  constexpr HHOOK(std::nullptr_t) {}
  // Of the hook with this number, from 1: for the chain itself.
  constexpr explicit HHOOK(std::uint64_t number) : number_(number) {}

  constexpr explicit operator bool() const { return number_ != 0; }
  friend constexpr bool operator==(const HHOOK&, const HHOOK&) = default;

private:
  std::uint64_t number_ = 0;
};

// A hook procedure. What it answers goes to whoever called it: the newer hook, or else the host.
using THookProc = std::intptr_t (*)(int code, std::uintptr_t wParam, std::intptr_t lParam);

// The id of the calling thread in the process. Any thread.
VIRELLE_PLATFORM std::uint32_t GetCurrentThreadId();

// Puts `proc` in front of the chain of kind `idHook`. `module` says whose code it is and may be null. Only hooks of the
// main thread are served: the empty handle is returned for any other `threadId`, when called from another thread, for a
// kind that is not served and for no `proc`.
VIRELLE_PLATFORM HHOOK SetWindowsHookEx(int idHook, THookProc proc, void* module, std::uint32_t threadId);

// Takes a hook out of its chain. Also a hook that is being called may be taken out; it is not called again. False when
// it is not installed.
VIRELLE_PLATFORM bool UnhookWindowsHookEx(HHOOK hook);

// Calls the hook of the same chain that was installed before `hook`, with these arguments, and returns its answer. 0
// when there is none or when `hook` is not installed.
VIRELLE_PLATFORM std::intptr_t CallNextHookEx(HHOOK hook, int code, std::uintptr_t wParam, std::intptr_t lParam);

// For hosts: calls the newest hook of kind `idHook` and returns its answer, 0 when there is none. What a hook throws
// goes to TApplication::HandleException, and the hook has then answered 0.
VIRELLE_PLATFORM std::intptr_t CallHooks(int idHook, int code, std::uintptr_t wParam, std::intptr_t lParam) noexcept;

// The handle of `control`: never 0, the same as long as the control lives, and of no other control ever after.
VIRELLE_PLATFORM std::uintptr_t WindowHandle(QWidget& control);
// The control whose handle `handle` is, or null when there is none or it has been destroyed.
VIRELLE_PLATFORM QWidget* FindControl(std::uintptr_t handle);

} // namespace platform
