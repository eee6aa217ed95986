// SPDX-License-Identifier: MIT
#include "tools/MessagesCommand.h"

#include "analysis/QVPasInfo.h"
#include "tools/JsonLinesCommand.h"
#include "tools/JsonMessage.h"
#include "tools/UnitParse.h"

#include <memory>
#include <string>

namespace quorvane {
namespace {

// An outline belongs to every parse: without one the parser leaves the initialization section unread.
void WriteReports(std::string& text, TOutput& output) {
  ParseUnit(text, std::make_shared<TQVPasInfo>(), nullptr, [&output](const TSyntaxReport& report) {
    WriteJsonMessage(report.Msg, report.X, report.Y, report.IsFatal, output);
  });
}

} // namespace

void AddMessagesCommand(CLI::App& program, TSession& session) {
  AddJsonLinesCommand(program, session,
                      {"messages", "List the parser's reports on Pascal files as JSON Lines",
                       "Each report is one object: the message, and the column (x) and the line (y) of the token, both "
                       "counted from 0.\n"
                       "One that ended the parse is the last of its file and has \"fatal\":true. A file without "
                       "reports gives nothing.\n"
                       "Reports do not change the exit code.\n",
                       WriteReports});
}

} // namespace quorvane
