// SPDX-License-Identifier: MIT
// quorvane: the lexer and the parsers of the add-in on the command line. Each subcommand has a file of its own.
#include "text/ShownText.h"
#include "tools/BlocksCommand.h"
#include "tools/CheckCommand.h"
#include "tools/Failure.h"
#include "tools/MessagesCommand.h"
#include "tools/OutlineCommand.h"
#include "tools/Session.h"
#include "tools/Stack.h"
#include "tools/TokensCommand.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <csignal>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace quorvane {
namespace {

// What is wrong with the command line. A word that means nothing here is told before what is missing: most often the
// one is the other, misspelt.
std::string Complaint(const CLI::App& program, const CLI::Error& error) {
  const bool mayBeUnknown = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError) ||
                            error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError);
  const std::vector<std::string> unknown = program.remaining(true);
  if (!mayBeUnknown || unknown.empty())
    return error.what();
  return (unknown.front().starts_with('-') ? "unknown option " : "unknown command ") + unknown.front();
}

void DescribeProgram(CLI::App& program) {
  program.set_version_flag("--version", "quorvane " VIRELLE_VERSION);
  program.footer("Exit code: 0 done, 1 a check found errors, 2 something could not be read, written or understood; the "
                 "other files are still done.");
  program.require_subcommand(1);
  program.failure_message([](const CLI::App* failed, const CLI::Error& error) {
    return "quorvane: " + ShownName(Complaint(*failed, error)) + "\nTry quorvane --help.\n";
  });
}

// Does what the command line asks for. Help and version are results too and go the way of all results.
TExitCode Do(CLI::App& program, int argc, char** argv, TSession& session) {
  try {
    program.parse(argc, argv);
    session.Output().Flush();
    return session.ExitCode();
  } catch (const CLI::ParseError& error) {
    std::ostringstream results;
    const bool isDone = program.exit(error, results, std::cerr) == 0;
    session.Output().Line() += results.str();
    session.Output().Flush();
    return isDone ? TExitCode::Done : TExitCode::Trouble;
  }
}

// Only errors of the output are left to the caller; what else no command expected is told behind the results so far.
TExitCode RunCommand(int argc, char** argv, TSession& session) {
  TExitCode exitCode = TExitCode::Trouble;
  const std::string reason = session.Attempt([&] {
    CLI::App program("Reads Pascal source the way the editor's add-in does.", "quorvane");
    DescribeProgram(program);
    AddCheckCommand(program, session);
    AddOutlineCommand(program, session);
    AddMessagesCommand(program, session);
    AddTokensCommand(program, session);
    AddBlocksCommand(program, session);
    exitCode = Do(program, argc, argv, session);
  });
  if (!reason.empty())
    session.ReportTrouble({}, reason);
  return exitCode;
}

TExitCode Run(int argc, char** argv) noexcept {
  TSession session;
  try {
    return RunCommand(argc, argv, session);
  } catch (const EOutputClosed&) {
    return session.ExitCode();
  } catch (const EOutputError& error) {
    std::cerr << "quorvane: standard output: " << error.what() << '\n';
  } catch (...) {
    std::cerr << "quorvane: " << FailureReason() << '\n';
  }
  return TExitCode::Trouble;
}

} // namespace
} // namespace quorvane

int main(int argc, char** argv) {
  // A reader that goes away is then seen where the writing fails.
  std::signal(SIGPIPE, SIG_IGN);
  auto exitCode = quorvane::TExitCode::Trouble;
  try {
    quorvane::RunOnDeepStack([&] { exitCode = quorvane::Run(argc, argv); });
  } catch (...) {
    std::cerr << "quorvane: " << quorvane::FailureReason() << '\n';
  }
  return static_cast<int>(exitCode);
}
