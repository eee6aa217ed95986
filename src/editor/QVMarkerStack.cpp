// SPDX-License-Identifier: MIT
#include "editor/QVMarkerStack.h"

namespace quorvane {

std::shared_ptr<IQVMarkerStack> QVMarkerStackManager;

IQVMarkerStack::~IQVMarkerStack() = default;

} // namespace quorvane
