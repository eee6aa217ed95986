// SPDX-License-Identifier: MIT
// One run of the program: where its results go, what it complains about, and how it ends.
#pragma once

#include "tools/Output.h"

#include <string_view>

namespace quorvane {

enum class TExitCode : int {
  Done = 0,
  Findings = 1, // a check found errors in the source
  Trouble = 2,  // something could not be read, written or understood
};

class TSession {
public:
  TOutput& Output() { return FOutput; }

  // Writes "quorvane: SUBJECT: REASON" to standard error, after all results so far; the run ends with Trouble.
  void ReportTrouble(std::string_view subject, std::string_view reason);

  // Writes the same line for what is worth knowing and no trouble.
  void Warn(std::string_view subject, std::string_view text);

  // The run ends with Findings, unless there is trouble too.
  void ReportFindings();

  TExitCode ExitCode() const { return FExitCode; }

private:
  TOutput FOutput;
  TExitCode FExitCode = TExitCode::Done;
};

} // namespace quorvane
