// SPDX-License-Identifier: MIT
#include "editor/QVTemplateSource.h"

namespace quorvane {

IQVTemplateSource* QVTemplateSource = nullptr;

IQVTemplateSource::~IQVTemplateSource() = default;

} // namespace quorvane
