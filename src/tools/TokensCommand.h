// SPDX-License-Identifier: MIT
// `quorvane tokens FILE...`: every token of the lexer, one JSON object a line.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

namespace quorvane {

// Adds the command to the program. It runs when the command line has been parsed; `session` must live until then.
void AddTokensCommand(CLI::App& program, TSession& session);

} // namespace quorvane
