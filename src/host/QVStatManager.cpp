// SPDX-License-Identifier: MIT
#include "host/QVStatManager.h"

namespace quorvane {

std::shared_ptr<IQVEditorStatClient> QVEditorStatClient;

IQVEditorStatClient::~IQVEditorStatClient() = default;

void StartQVStatManager() {
  QVEditorStatClient = nullptr;
}

void StopQVStatManager() {
  QVEditorStatClient = nullptr;
}

} // namespace quorvane
