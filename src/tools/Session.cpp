// SPDX-License-Identifier: MIT
#include "tools/Session.h"

#include <iostream>

namespace quorvane {

void TSession::ReportTrouble(std::string_view subject, std::string_view reason) {
  FExitCode = TExitCode::Trouble;
  Warn(subject, reason);
}

void TSession::Warn(std::string_view subject, std::string_view text) {
  FOutput.Flush();
  std::cerr << "quorvane: " << subject << ": " << text << '\n';
}

void TSession::ReportFindings() {
  if (FExitCode == TExitCode::Done)
    FExitCode = TExitCode::Findings;
}

} // namespace quorvane
