// SPDX-License-Identifier: MIT
#include "toolbar/QVEditorToolbar.h"

#include "editor/QVEditorProxy.h"
#include "host/QVIDEHackUtils.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Errors.h"
#include "settings/model/QVOptions.h"
#include "toolbar/QVLineNumbers.h"
#include "toolbar/QVLocalVars.h"

namespace quorvane {

namespace {

constexpr const char* kUnit = "QVEditorToolbar";

const QString kToolbarName = QStringLiteral("TQVEditorToolbar");

platform::HHOOK CBTHook;
constexpr platform::HHOOK IdleHook; // never installed

QObject* ToolbarOn(const QWidget& form) {
  return platform::FindComponent(form, kToolbarName);
}

void InjectIntoForm(const QWidget& form) {
  if (const auto* const editor = qobject_cast<QWidget*>(platform::FindComponent(form, EditControlName)))
    InjectToolbar(*editor);
}

void EquipForm(QWidget* form) {
  platform::Require(form != nullptr, kUnit);
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
  for (const QWidget* form : platform::Screen().Forms()) {
    if (IsEditorForm(*form))
      InjectIntoForm(*form);
  }
}

void StartHooks() {
  CBTHook = platform::SetWindowsHookEx(platform::WH_CBT, CBTProc, nullptr, platform::GetCurrentThreadId());
  platform::Require(CBTHook != nullptr, kUnit, "Error Installing CBT Hook");
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
      EquipForm(form);
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
  for (const QWidget* form : platform::Screen().Forms()) {
    if (!IsEditorForm(*form))
      continue;
    delete GetLineNumbers(*form);
    delete ToolbarOn(*form);
  }
}

} // namespace quorvane
