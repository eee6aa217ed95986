// SPDX-License-Identifier: MIT
#include "tools/JsonLinesCommand.h"

#include "tools/Input.h"

#include <memory>

namespace quorvane {

void AddJsonLinesCommand(CLI::App& program, TSession& session, const TJsonLinesCommand& description) {
  CLI::App* command = program.add_subcommand(description.Name, description.Description);
  command->footer(
      description.Objects +
      "Those of several files follow each other and do not name their file: where that counts, give one FILE a\n"
      "call.");
  const auto options = std::make_shared<TInputOptions>();
  AddInputOptions(*command, *options);
  command->callback([options, write = description.Write, &session] {
    ForEachText(*options, session,
                [write, &session](const std::string&, std::string& text) { write(text, session.Output()); });
  });
}

} // namespace quorvane
