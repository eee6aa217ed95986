// SPDX-License-Identifier: MIT
#include "platform/Hooks.h"

#include "platform/Application.h"

#include <QPointer>

#include <unistd.h>

#include <algorithm>
#include <vector>

namespace platform {

namespace {

struct TInstalledHook {
  HHOOK Handle;
  int Kind;
  THookProc Proc;
};

// All hooks, the oldest first. A chain changes while it is called, so nothing may keep a place in it over a call.
std::vector<TInstalledHook>& Hooks() {
  static std::vector<TInstalledHook> hooks;
  return hooks;
}

struct TKnownControl {
  std::uintptr_t Handle;
  QPointer<QWidget> Control;
};

std::vector<TKnownControl>& KnownControls() {
  static std::vector<TKnownControl> controls;
  return controls;
}

// In Linux the thread that a process begins with has the id of the process.
std::uint32_t MainThreadId() {
  return static_cast<std::uint32_t>(::getpid());
}

// Calls the newest hook of `kind` among the first `count` ones.
std::intptr_t CallNewest(std::size_t count, int kind, int code, std::uintptr_t wParam, std::intptr_t lParam) {
  const std::vector<TInstalledHook>& hooks = Hooks();
  while (count > 0 && hooks[count - 1].Kind != kind)
    --count;
  if (count == 0)
    return 0;
  const THookProc proc = hooks[count - 1].Proc;
  std::intptr_t answer = 0;
  Guarded([&] { answer = proc(code, wParam, lParam); });
  return answer;
}

} // namespace

std::uint32_t GetCurrentThreadId() {
  return static_cast<std::uint32_t>(::gettid());
}

HHOOK SetWindowsHookEx(int idHook, THookProc proc, void*, std::uint32_t threadId) {
  if (idHook != WH_CBT || proc == nullptr || threadId != MainThreadId() || GetCurrentThreadId() != MainThreadId())
    return nullptr;
  static std::uint64_t lastNumber = 0;
  return Hooks().emplace_back(TInstalledHook{HHOOK(++lastNumber), idHook, proc}).Handle;
}

bool UnhookWindowsHookEx(HHOOK hook) {
  return std::erase_if(Hooks(), [hook](const TInstalledHook& each) { return each.Handle == hook; }) > 0;
}

std::intptr_t CallNextHookEx(HHOOK hook, int code, std::uintptr_t wParam, std::intptr_t lParam) {
  const std::vector<TInstalledHook>& hooks = Hooks();
  const auto found = std::ranges::find(hooks, hook, &TInstalledHook::Handle);
  if (found == hooks.end())
    return 0;
  return CallNewest(static_cast<std::size_t>(found - hooks.begin()), found->Kind, code, wParam, lParam);
}

std::intptr_t CallHooks(int idHook, int code, std::uintptr_t wParam, std::intptr_t lParam) noexcept {
  return CallNewest(Hooks().size(), idHook, code, wParam, lParam);
}

std::uintptr_t WindowHandle(QWidget& control) {
  std::vector<TKnownControl>& controls = KnownControls();
  std::erase_if(controls, [](const TKnownControl& known) { return known.Control.isNull(); });
  const auto found =
      std::ranges::find_if(controls, [&](const TKnownControl& known) { return known.Control == &control; });
  if (found != controls.end())
    return found->Handle;
  static std::uintptr_t lastHandle = 0;
  return controls.emplace_back(TKnownControl{++lastHandle, &control}).Handle;
}

QWidget* FindControl(std::uintptr_t handle) {
  const auto found = std::ranges::find(KnownControls(), handle, &TKnownControl::Handle);
  return found == KnownControls().end() ? nullptr : found->Control.data();
}

} // namespace platform
