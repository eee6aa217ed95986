// SPDX-License-Identifier: MIT
// One run of the program: where its results go, what it complains about, and how it ends.
#pragma once

#include "tools/Output.h"

#include <functional>
#include <string>
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

  // Does `work` and returns why it failed, whatever that is; empty if it did not. The results stay, but for a line that
  // was half written. Only errors of the output, which end the run, pass through.
  std::string Attempt(const std::function<void()>& work);

  // Writes "quorvane: SUBJECT: REASON" to standard error, after all results so far; the run ends with Trouble. Without
  // a subject it is trouble of the whole run. Both are shown as ShownName shows them.
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
