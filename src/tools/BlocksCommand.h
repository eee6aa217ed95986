// SPDX-License-Identifier: MIT
// `quorvane blocks FILE...`: the block structure that the light parser finds, one JSON object an event.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

namespace quorvane {

// Adds the command to the program. It runs when the command line has been parsed; `session` must live until then.
void AddBlocksCommand(CLI::App& program, TSession& session);

} // namespace quorvane
