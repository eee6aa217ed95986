// SPDX-License-Identifier: MIT
#include "tools/CheckCommand.h"

#include "tools/CheckReport.h"
#include "tools/InOrder.h"
#include "tools/Input.h"
#include "tools/PascalFiles.h"
#include "tools/Progress.h"
#include "tools/UnitCheck.h"

#include <CLI/Validators.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace quorvane {
namespace {

struct TCheckCommandOptions : TInputOptions {
  unsigned Jobs = std::max(std::thread::hardware_concurrency(), 1U);
  std::string FormatName = "text";
};

constexpr unsigned MaxJobs = 1024;

constexpr std::array Formats = {std::pair{std::string_view("text"), TCheckFormat::Text},
                                std::pair{std::string_view("json"), TCheckFormat::Json},
                                std::pair{std::string_view("sarif"), TCheckFormat::Sarif}};

const auto* FindFormat(std::string_view name) {
  return std::ranges::find(Formats, name, &decltype(Formats)::value_type::first);
}

// One run of the command: the files are checked by several threads and told of here, in their order.
class TCheckRun {
public:
  TCheckRun(const TCheckCommandOptions& options, TSession& session)
      : FOptions(options), FSession(session), FFormat(FindFormat(options.FormatName)->second),
        FReport(MakeCheckReport(FFormat, session.Output())) {}

  void Run() {
    FReport->Start();
    Attempt({}, [this] {
      CheckFiles(FindPascalFiles(FOptions.Files, [this](const std::string& folder, const std::string& reason) {
        ReportTrouble(folder, reason);
      }));
    });
    FReport->Finish();
  }

private:
  void CheckFiles(const std::vector<std::string>& files) {
    const TCheckOptions options{FOptions.EncodingName, FFormat == TCheckFormat::Text};
    TProgress progress(files.size());
    TInOrder<TCheckResult> results(files.size(), FOptions.Jobs,
                                   [&files, &options](std::size_t index) { return CheckFile(files[index], options); });
    for (std::size_t index = 0; index < files.size(); ++index) {
      progress.Show(index);
      const TCheckResult result = results.Next();
      if (result.Findings.empty() && result.Trouble.empty())
        continue;
      progress.Erase();
      Attempt(files[index], [&] { Tell(files[index], result); });
      FSession.Output().Flush();
    }
  }

  void Tell(const std::string& file, const TCheckResult& result) {
    if (!result.Trouble.empty()) {
      ReportTrouble(file, result.Trouble);
      return;
    }
    FSession.ReportFindings();
    for (const TShownFinding& finding : result.Findings)
      FReport->Add(file, finding);
    if (result.LeftOut == 0)
      return;
    const std::string note = std::to_string(result.LeftOut) + " more errors are left out";
    FSession.Warn(file, note);
    FReport->Note(file, note, false);
  }

  // Whatever goes wrong is the trouble of `file`, or of the whole run if it is empty.
  void Attempt(const std::string& file, const std::function<void()>& work) {
    if (const std::string reason = FSession.Attempt(work); !reason.empty())
      ReportTrouble(file, reason);
  }

  void ReportTrouble(const std::string& file, const std::string& reason) {
    FSession.ReportTrouble(file, reason);
    FReport->Note(file, reason, true);
  }

  const TCheckCommandOptions& FOptions;
  TSession& FSession;
  TCheckFormat FFormat;
  std::unique_ptr<ICheckReport> FReport;
};

void Check(const TCheckCommandOptions& options, TSession& session) {
  RequireOneStandardInput(options);
  TCheckRun(options, session).Run();
}

} // namespace

void AddCheckCommand(CLI::App& program, TSession& session) {
  CLI::App* command = program.add_subcommand("check", "Tell the syntax errors of Pascal files");
  command->footer(
      "Each error is a line FILE:LINE:COLUMN: error: MESSAGE, counted from 1 and in characters, then the line of\n"
      "the source and a mark under the token. With --format json each is one object on a line of its own;\n"
      "sarif gives one SARIF 2.1.0 log. After an error the check goes on behind the next semicolon. Of every\n"
      "conditional the first branch is checked, whatever is defined. A NUL character ends a text and is an\n"
      "error if anything stands behind it. Folders behind symbolic links are not walked unless named. Exit\n"
      "code: 0 no errors, 1 errors, 2 something could not be read or written.");
  const auto options = std::make_shared<TCheckCommandOptions>();
  AddDecodedInputOptions(*command, *options,
                         "Pascal files, and folders with all .pas, .pp, .dpr and .dpk files below them; - is standard "
                         "input");
  command
      ->add_option("--jobs", options->Jobs, "How many files are checked at a time; one for each processor if not given")
      ->type_name("N")
      ->check(CLI::Range(1U, MaxJobs).description(""));
  command->add_option("--format", options->FormatName, "text, json or sarif")
      ->type_name("NAME")
      ->check(
          [](const std::string& name) { return FindFormat(name) != Formats.end() ? "" : "unknown format " + name; });
  command->callback([options, &session] { Check(*options, session); });
}

} // namespace quorvane
