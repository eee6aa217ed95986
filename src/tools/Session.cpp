// SPDX-License-Identifier: MIT
#include "tools/Session.h"

#include <iostream>

namespace quorvane {

void TSession::ReportTrouble(std::string_view subject, std::string_view reason) {
  FExitCode = TExitCode::Trouble;
  FOutput.Flush();
  std::cerr << "quorvane: " << subject << ": " << reason << '\n';
}

} // namespace quorvane
