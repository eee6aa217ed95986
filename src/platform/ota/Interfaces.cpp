// SPDX-License-Identifier: MIT
// The interfaces' type information lives in this library only, so that casts and exceptions agree on both sides of the
// border: each destructor is the key function of its class.
#include "platform/ota/Editor.h"
#include "platform/ota/Module.h"
#include "platform/ota/Services.h"

#include <utility>

namespace platform {

IInterface::~IInterface() = default;

IOTAEditReader::~IOTAEditReader() = default;
IOTABufferOptions::~IOTABufferOptions() = default;
IOTAEditOptions::~IOTAEditOptions() = default;
IOTAEditPosition::~IOTAEditPosition() = default;
IOTAEditLineNotifier::~IOTAEditLineNotifier() = default;
IOTAEditLineTracker::~IOTAEditLineTracker() = default;
IOTAUndoGroup::~IOTAUndoGroup() = default;
IOTAEditor::~IOTAEditor() = default;
IOTAEditBuffer::~IOTAEditBuffer() = default;
INTAEditWindow::~INTAEditWindow() = default;
IOTAEditView::~IOTAEditView() = default;
IFormDesigner::~IFormDesigner() = default;
IOTAFormEditor::~IOTAFormEditor() = default;
INTAFormEditor::~INTAFormEditor() = default;
IOTAModule::~IOTAModule() = default;
IOTAServices::~IOTAServices() = default;
INTAServices::~INTAServices() = default;
IOTAActionServices::~IOTAActionServices() = default;
IOTAEditorServices::~IOTAEditorServices() = default;
IOTAModuleServices::~IOTAModuleServices() = default;
IOTADebuggerServices::~IOTADebuggerServices() = default;
IOTAKeyBindingServices::~IOTAKeyBindingServices() = default;
IOTAKeyboardServices::~IOTAKeyboardServices() = default;
IOTAMessageServices::~IOTAMessageServices() = default;
IOTAPackageServices::~IOTAPackageServices() = default;
IOTASearchPathServices::~IOTASearchPathServices() = default;
IOTAToDoServices::~IOTAToDoServices() = default;
IOTAWizardServices::~IOTAWizardServices() = default;

namespace {
std::shared_ptr<IInterface>& ServicesSlot() {
  static std::shared_ptr<IInterface> slot;
  return slot;
}
} // namespace

const std::shared_ptr<IInterface>& BorlandIDEServices() {
  return ServicesSlot();
}

void SetBorlandIDEServices(std::shared_ptr<IInterface> services) {
  ServicesSlot() = std::move(services);
}

} // namespace platform
