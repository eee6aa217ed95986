// SPDX-License-Identifier: MIT
#include "tools/MessagesCommand.h"

#include "analysis/QVPasInfo.h"
#include "tools/Input.h"
#include "tools/Json.h"
#include "tools/UnitParse.h"

#include <memory>
#include <string>

namespace quorvane {
namespace {

void WriteReport(const TSyntaxReport& report, TOutput& output) {
  {
    TJsonObject object(output.Line());
    object.Add("msg", report.Msg);
    object.Add("x", report.X);
    object.Add("y", report.Y);
    if (report.IsFatal)
      object.AddBool("fatal", true);
  }
  output.EndLine();
}

// An outline belongs to every parse: without one the parser leaves the initialization section unread.
void WriteReports(std::string& text, TOutput& output) {
  ParseUnit(text, std::make_shared<TQVPasInfo>(), nullptr,
            [&output](const TSyntaxReport& report) { WriteReport(report, output); });
}

} // namespace

void AddMessagesCommand(CLI::App& program, TSession& session) {
  CLI::App* command = program.add_subcommand("messages", "List the parser's reports on Pascal files as JSON Lines");
  command->footer(
      "Each report is one object: the message, and the column (x) and the line (y) of the token, both counted from 0.\n"
      "One that ended the parse is the last of its file and has \"fatal\":true. A file without reports gives nothing;\n"
      "several files follow each other. Reports do not change the exit code.");
  const auto options = std::make_shared<TInputOptions>();
  AddInputOptions(*command, *options);
  command->callback([options, &session] {
    ForEachText(*options, session,
                [&session](const std::string&, std::string& text) { WriteReports(text, session.Output()); });
  });
}

} // namespace quorvane
