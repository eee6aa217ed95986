// SPDX-License-Identifier: MIT
// `quorvane check FILE|FOLDER...`: the syntax errors of Pascal files, for people, scripts and other programs.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

namespace quorvane {

// Adds the command to the program. It runs when the command line has been parsed; `session` must live until then.
void AddCheckCommand(CLI::App& program, TSession& session);

} // namespace quorvane
