// SPDX-License-Identifier: MIT
// The forms in which the findings of a check are written.
#pragma once

#include "tools/Output.h"
#include "tools/UnitCheck.h"

#include <memory>
#include <string>

namespace quorvane {

enum class TCheckFormat : unsigned char { Text, Json, Sarif };

// Writes findings as they come, file after file, and is given what else is to be known.
class ICheckReport {
public:
  virtual ~ICheckReport() = default;

  virtual void Start() {}
  virtual void Add(const std::string& file, const TShownFinding& finding) = 0;

  // What the check could not do, which stands on standard error too; without a file it is told of the whole run. With
  // trouble the check is no success.
  virtual void Note(const std::string& /*file*/, const std::string& /*text*/, bool /*isTrouble*/) {}

  // Comes last, however the check went.
  virtual void Finish() {}
};

// The report writes to `output`, which must outlive it.
std::unique_ptr<ICheckReport> MakeCheckReport(TCheckFormat format, TOutput& output);

} // namespace quorvane
