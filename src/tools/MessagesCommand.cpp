// SPDX-License-Identifier: MIT
#include "tools/MessagesCommand.h"

#include "analysis/QVPasInfo.h"
#include "analysis/QVUnitParse.h"
#include "tools/JsonLinesCommand.h"
#include "tools/JsonMessage.h"

#include <memory>
#include <string>

namespace quorvane {
namespace {

constexpr const char* Objects =
    "Each report is one object: the message, and the column (x) and the line (y) of the token, both counted\n"
    "from 0. One that ended the parse is the last of its file and has \"fatal\":true. A file without reports\n"
    "gives nothing. Reports do not change the exit code.\n";

// An outline belongs to every parse: without one the parser leaves the initialization section unread.
void WriteReports(std::string& text, TOutput& output) {
  ParseUnit(text, std::make_shared<TQVPasInfo>(), nullptr, [&output](const TSyntaxReport& report) {
    WriteJsonMessage(report.Msg, report.X, report.Y, report.IsFatal, output);
  });
}

} // namespace

void AddMessagesCommand(CLI::App& program, TSession& session) {
  AddJsonLinesCommand(program, session,
                      {"messages", "List the parser's reports on Pascal files as JSON Lines", Objects, WriteReports});
}

} // namespace quorvane
