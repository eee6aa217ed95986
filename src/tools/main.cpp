// SPDX-License-Identifier: MIT
// quorvane: the lexer and the parsers of the add-in on the command line. Each subcommand has a file of its own.
#include "tools/BlocksCommand.h"
#include "tools/CheckCommand.h"
#include "tools/MessagesCommand.h"
#include "tools/OutlineCommand.h"
#include "tools/Session.h"
#include "tools/TokensCommand.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <csignal>
#include <exception>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>

namespace quorvane {
namespace {

constexpr int ExitCode(TExitCode code) {
  return static_cast<int>(code);
}

void DescribeProgram(CLI::App& program) {
  program.set_version_flag("--version", "quorvane " VIRELLE_VERSION);
  program.footer("Exit code: 0 done, 1 a check found errors, 2 something could not be read, written or understood; the "
                 "other files are still done.");
  program.require_subcommand(1);
  program.failure_message([](const CLI::App*, const CLI::Error& error) {
    return std::string("quorvane: ") + error.what() + "\nTry quorvane --help.\n";
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

int Run(int argc, char** argv) {
  TSession session;
  CLI::App program("Reads Pascal source the way the editor's add-in does.", "quorvane");
  DescribeProgram(program);
  AddCheckCommand(program, session);
  AddOutlineCommand(program, session);
  AddMessagesCommand(program, session);
  AddTokensCommand(program, session);
  AddBlocksCommand(program, session);
  try {
    return ExitCode(Do(program, argc, argv, session));
  } catch (const EOutputClosed&) {
    return ExitCode(session.ExitCode());
  } catch (const std::system_error& error) {
    std::cerr << "quorvane: standard output: " << error.code().message() << '\n';
    return ExitCode(TExitCode::Trouble);
  }
}

} // namespace
} // namespace quorvane

int main(int argc, char** argv) {
  // A reader that goes away is then seen where the writing fails.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return quorvane::Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "quorvane: " << error.what() << '\n';
    return static_cast<int>(quorvane::TExitCode::Trouble);
  }
}
