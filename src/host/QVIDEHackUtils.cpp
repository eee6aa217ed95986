// SPDX-License-Identifier: MIT
#include "host/QVIDEHackUtils.h"

#include "host/QVOTAServices.h"
#include "platform/Component.h"
#include "platform/Errors.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr const char* kUnit = "QVIDEHackUtils";

} // namespace

bool IsEditorForm(const QWidget& form) {
  return platform::ClassName(form) == EditorFormClassName &&
         form.objectName().startsWith(QStringLiteral("EditWindow_"));
}

QWidget* FormOf(platform::IOTAEditView& view) {
  const auto window = view.GetEditWindow();
  return window ? window->GetForm() : nullptr;
}

QWidget* GetEditorForm() {
  const std::vector<QWidget*> forms = platform::Screen().Forms();
  const auto found = std::ranges::find_if(forms, [](const QWidget* form) { return IsEditorForm(*form); });
  platform::Require(found != forms.end(), kUnit);
  return *found;
}

QObject* GetEditControl() {
  QObject* control = platform::FindComponent(*GetEditorForm(), EditControlName);
  platform::Require(control != nullptr, kUnit);
  return control;
}

std::shared_ptr<platform::IOTAEditView> GetTopView() {
  const auto services = OTAEditorServices();
  return services ? services->GetTopView() : nullptr;
}

std::shared_ptr<platform::IOTAFormEditor> GetActiveFormEditor() {
  const auto services = OTAModuleServices();
  const auto module = services ? services->CurrentModule() : nullptr;
  if (!module)
    return nullptr;
  for (int index = 0; index < module->GetModuleFileCount(); ++index) {
    if (auto editor = std::dynamic_pointer_cast<platform::IOTAFormEditor>(module->GetModuleFileEditor(index)))
      return editor;
  }
  return nullptr;
}

std::shared_ptr<platform::IFormDesigner> GetActiveFormDesigner() {
  const auto native = std::dynamic_pointer_cast<platform::INTAFormEditor>(GetActiveFormEditor());
  return native ? native->GetFormDesigner() : nullptr;
}

} // namespace quorvane
