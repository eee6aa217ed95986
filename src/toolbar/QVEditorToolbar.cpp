// SPDX-License-Identifier: MIT
#include "toolbar/QVEditorToolbar.h"

#include "editor/QVEditorProxy.h"
#include "host/QVIDEHackUtils.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Errors.h"
#include "platform/Hooks.h"
#include "settings/model/QVOptions.h"
#include "toolbar/QVEditorToolbarChecks.h"
#include "toolbar/QVLineNumbers.h"
#include "toolbar/QVLocalVars.h"

namespace quorvane {

namespace {

platform::HHOOK CBTHook;
constexpr platform::HHOOK IdleHook; // never installed

void InjectIntoForm(const QWidget& form) {
  if (const auto* const editor = qobject_cast<QWidget*>(platform::FindComponent(form, EditControlName)))
    InjectToolbar(*editor);
}

void EquipForm(QWidget* form) {
  RequireInEditorToolbar(form != nullptr, chForm);
  if (ToolbarOn(*form) == nullptr)
    InjectIntoForm(*form);
  if (TQVEditorProxy::GetProxy(*form) == nullptr)
    new TQVEditorProxy(form);
}

} // namespace

void RegisterEditorToolbar() {
  InitializeOpenEditors();
  StartHooks();
}

void StopEditorToolbar() {
  EndHooks();
  FreeAllEditorToolbars();
}

void InitializeOpenEditors() {
  ForEachEditorForm(InjectIntoForm);
}

void StartHooks() {
  CBTHook = platform::SetWindowsHookEx(platform::WH_CBT, CBTProc, nullptr, platform::GetCurrentThreadId());
  RequireInEditorToolbar(CBTHook != nullptr, chHook, "Error Installing CBT Hook");
}

void EndHooks() {
  platform::UnhookWindowsHookEx(CBTHook);
  CBTHook = nullptr;
}

std::intptr_t CBTProc(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  if (code < 0)
    return platform::CallNextHookEx(CBTHook, code, wParam, lParam);
  if (code == platform::HCBT_ACTIVATE) {
    QWidget* const form = platform::FindControl(wParam);
    if (form != nullptr && IsEditorForm(*form))
      platform::Guarded([form] { EquipForm(form); });
  }
  return platform::CallNextHookEx(CBTHook, code, wParam, lParam);
}

std::intptr_t IdleProc(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  if (code >= 0 && OptShowLineNumbers)
    PollLineNumbers();
  return platform::CallNextHookEx(IdleHook, code, wParam, lParam);
}

// In this order: the toolbar goes to the top and the numbers to a side, so the toolbar spans the width above both.
void InjectToolbar(const QWidget& editor) {
  if (!OptShowLineNumbers)
    return;
  auto* const numbers = new TQVLineNumbers(editor.parentWidget());
  numbers->move(editor.property("Left").toInt(), numbers->y());
  numbers->setVisible(OptShowLineNumbers && !OptLinesInGutter);

  auto* const toolbar = new TQVEditorToolbar(editor.parentWidget());
  toolbar->move(toolbar->x(), editor.property("Top").toInt());
  toolbar->SetParent(editor.parentWidget());
  toolbar->setVisible(OptShowNavBar);
}

void FreeAllEditorToolbars() {
  ForEachEditorForm([](const QWidget& form) {
    delete GetLineNumbers(form);
    delete ToolbarOn(form);
  });
}

} // namespace quorvane
