// SPDX-License-Identifier: MIT
// The files that a command is given, and how their bytes become the text that it works on.
#pragma once

#include "text/Encoding.h"
#include "tools/Session.h"

#include <CLI/App.hpp>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// As a file's name: standard input.
inline constexpr std::string_view StandardInput = "-";

struct TInputOptions {
  std::vector<std::string> Files; // or StandardInput
  bool Decode = false;            // the text as the editor serves it, instead of the bytes as they are
  std::string EncodingName;       // for decoding, of files without a byte-order mark; empty: found by their bytes
};

// Adds FILE..., --decode and --encoding to a command. `options` must live until the command has run.
void AddInputOptions(CLI::App& command, TInputOptions& options);

// The same for a command that always decodes: it has no --decode. `files` is the help on the positional arguments.
void AddDecodedInputOptions(CLI::App& command, TInputOptions& options, const std::string& files);

// Refuses a command line that names standard input more than once, since it can be read only once. Throws
// CLI::ParseError.
void RequireOneStandardInput(const TInputOptions& options);

// Calls `work` with the name and the text of each file in the order given. A file that cannot be read or worked on,
// whatever the exception, is reported as trouble and passed over. The text is the work's to change.
void ForEachText(const TInputOptions& options, TSession& session,
                 const std::function<void(const std::string& file, std::string& text)>& work);

// All bytes of a file; throws std::system_error. Only one thread may read standard input.
std::string ReadFile(const std::string& name);

// The text of a file's bytes: as a byte-order mark says, else in the encoding of that name, else as they look.
TDecodedText DecodeFile(std::string_view bytes, const std::string& encodingName);

// A decoded text as the editor serves it; throws std::system_error if it is longer than a parse can take.
std::string ServeDecoded(const TDecodedText& text);

} // namespace quorvane
