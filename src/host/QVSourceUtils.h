// SPDX-License-Identifier: MIT
// What counts as Pascal source, and how its text is read.
#pragma once

#include "platform/ota/Editor.h"

#include <QString>

#include <memory>
#include <string>

namespace quorvane {

// Whether `fileName` ends in ".pas" or ".dpr", in any case. Package sources, include files and forms are not Pascal
// files for the add-in, deliberately.
bool IsPascalFile(const QString& fileName);

// Replaces `text` by everything that `reader` gives, keeping its capacity, so that a string which is read into again
// and again settles at the size of the source. Assertion failure when `reader` is null; what a read throws passes
// through and leaves in `text` what came before it. Main thread.
void GetSourceFromReader(const std::shared_ptr<platform::IOTAEditReader>& reader, std::string& text);

} // namespace quorvane
