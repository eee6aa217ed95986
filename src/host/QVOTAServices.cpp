// SPDX-License-Identifier: MIT
#include "host/QVOTAServices.h"

namespace quorvane {

namespace {

template <class TInterface> std::shared_ptr<TInterface> Service() {
  return std::dynamic_pointer_cast<TInterface>(platform::BorlandIDEServices());
}

} // namespace

std::shared_ptr<platform::IOTAServices> OTAServices() {
  return Service<platform::IOTAServices>();
}
std::shared_ptr<platform::INTAServices> NTAServices() {
  return Service<platform::INTAServices>();
}
std::shared_ptr<platform::IOTAActionServices> OTAActionServices() {
  return Service<platform::IOTAActionServices>();
}
std::shared_ptr<platform::IOTADebuggerServices> OTADebuggerServices() {
  return Service<platform::IOTADebuggerServices>();
}
std::shared_ptr<platform::IOTAEditorServices> OTAEditorServices() {
  return Service<platform::IOTAEditorServices>();
}
std::shared_ptr<platform::IOTAKeyBindingServices> OTAKeyBindingServices() {
  return Service<platform::IOTAKeyBindingServices>();
}
std::shared_ptr<platform::IOTAKeyboardServices> OTAKeyboardServices() {
  return Service<platform::IOTAKeyboardServices>();
}
std::shared_ptr<platform::IOTAMessageServices> OTAMessageServices() {
  return Service<platform::IOTAMessageServices>();
}
std::shared_ptr<platform::IOTAModuleServices> OTAModuleServices() {
  return Service<platform::IOTAModuleServices>();
}
std::shared_ptr<platform::IOTAPackageServices> OTAPackageServices() {
  return Service<platform::IOTAPackageServices>();
}
std::shared_ptr<platform::IOTASearchPathServices> OTASearchPathServices() {
  return Service<platform::IOTASearchPathServices>();
}
std::shared_ptr<platform::IOTAToDoServices> OTAToDoServices() {
  return Service<platform::IOTAToDoServices>();
}
std::shared_ptr<platform::IOTAWizardServices> OTAWizardServices() {
  return Service<platform::IOTAWizardServices>();
}

} // namespace quorvane
