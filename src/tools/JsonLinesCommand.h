// SPDX-License-Identifier: MIT
// What the commands have in common that write all they find in a text as JSON Lines, for other programs.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

#include <string>

namespace quorvane {

struct TJsonLinesCommand {
  std::string Name;
  std::string Description;
  std::string Objects;                               // what one object is; whole lines of help
  void (*Write)(std::string& text, TOutput& output); // writes the objects of one text, which it may change
};

// Adds the command to the program, with files and how to decode them as its options. It runs when the command line has
// been parsed; `session` must live until then.
void AddJsonLinesCommand(CLI::App& program, TSession& session, const TJsonLinesCommand& description);

} // namespace quorvane
