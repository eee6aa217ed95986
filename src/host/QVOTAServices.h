// SPDX-License-Identifier: MIT
// The host's services, one accessor per interface.
//
// Each returns the host's service object cast to one interface: null when the host does not offer it, or when there is
// no host. Ask again at each use instead of keeping the reference; the host may take its services away. Main thread
// only.
#pragma once

#include "platform/ota/Services.h"

#include <memory>

namespace quorvane {

std::shared_ptr<platform::IOTAServices> OTAServices();
std::shared_ptr<platform::INTAServices> NTAServices();
std::shared_ptr<platform::IOTAActionServices> OTAActionServices();
std::shared_ptr<platform::IOTADebuggerServices> OTADebuggerServices();
std::shared_ptr<platform::IOTAEditorServices> OTAEditorServices();
std::shared_ptr<platform::IOTAKeyBindingServices> OTAKeyBindingServices();
std::shared_ptr<platform::IOTAKeyboardServices> OTAKeyboardServices();
std::shared_ptr<platform::IOTAMessageServices> OTAMessageServices();
std::shared_ptr<platform::IOTAModuleServices> OTAModuleServices();
std::shared_ptr<platform::IOTAPackageServices> OTAPackageServices();
std::shared_ptr<platform::IOTASearchPathServices> OTASearchPathServices();
std::shared_ptr<platform::IOTAToDoServices> OTAToDoServices();
std::shared_ptr<platform::IOTAWizardServices> OTAWizardServices();

} // namespace quorvane
