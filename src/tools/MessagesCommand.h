// SPDX-License-Identifier: MIT
// `quorvane messages FILE...`: what the outline parser reports, one JSON object a report.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

namespace quorvane {

// Adds the command to the program. It runs when the command line has been parsed; `session` must live until then.
void AddMessagesCommand(CLI::App& program, TSession& session);

} // namespace quorvane
