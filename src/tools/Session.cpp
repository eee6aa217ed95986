// SPDX-License-Identifier: MIT
#include "tools/Session.h"

#include "text/ShownText.h"
#include "tools/Failure.h"

#include <iostream>

namespace quorvane {

std::string TSession::Attempt(const std::function<void()>& work) {
  try {
    work();
    return {};
  } catch (const EOutputError&) {
    throw;
  } catch (...) {
    FOutput.DropLine();
    return FailureReason();
  }
}

void TSession::ReportTrouble(std::string_view subject, std::string_view reason) {
  FExitCode = TExitCode::Trouble;
  Warn(subject, reason);
}

void TSession::Warn(std::string_view subject, std::string_view text) {
  FOutput.Flush();
  std::cerr << "quorvane: ";
  if (!subject.empty())
    std::cerr << ShownName(subject) << ": ";
  std::cerr << ShownName(text) << '\n';
}

void TSession::ReportFindings() {
  if (FExitCode == TExitCode::Done)
    FExitCode = TExitCode::Findings;
}

} // namespace quorvane
