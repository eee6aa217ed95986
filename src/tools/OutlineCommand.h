// SPDX-License-Identifier: MIT
// `quorvane outline FILE...`: the outline of each file, as a tree for people or as JSON.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

namespace quorvane {

// Adds the command to the program. It runs when the command line has been parsed; `session` must live until then.
void AddOutlineCommand(CLI::App& program, TSession& session);

} // namespace quorvane
