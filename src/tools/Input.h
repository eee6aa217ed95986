// SPDX-License-Identifier: MIT
// The files that a command is given, and how their bytes become the text that it works on.
#pragma once

#include "tools/Session.h"

#include <CLI/App.hpp>

#include <functional>
#include <string>
#include <vector>

namespace quorvane {

struct TInputOptions {
  std::vector<std::string> Files; // "-" is standard input
  bool Decode = false;            // the text as the editor serves it, instead of the bytes as they are
  std::string EncodingName;       // for decoding, of files without a byte-order mark; empty: found by their bytes
};

// Adds FILE..., --decode and --encoding to a command. `options` must live until the command has run.
void AddInputOptions(CLI::App& command, TInputOptions& options);

// Calls `work` with the text of each file in the order given. A file that cannot be read is reported as trouble and
// passed over. The text is the work's to change.
void ForEachText(const TInputOptions& options, TSession& session, const std::function<void(std::string&)>& work);

} // namespace quorvane
