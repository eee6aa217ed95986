// SPDX-License-Identifier: MIT
// Standard output, with its errors taken seriously.
#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace quorvane {

// The reader of the output has gone, as `head` does; there is no one left to write for, and nothing is wrong.
class EOutputClosed : public std::runtime_error {
public:
  EOutputClosed() : std::runtime_error("standard output is closed") {}
};

// Collects lines and writes them to standard output in large pieces. Writing throws EOutputClosed if the reader has
// gone and std::system_error for every other failure, a full disk for one. SIGPIPE must be ignored by the process.
class TOutput {
public:
  TOutput() = default;
  TOutput(const TOutput&) = delete;
  TOutput& operator=(const TOutput&) = delete;

  // What is not written yet; append a line to it, then call EndLine. The owner calls Flush at the end: what is left
  // unwritten is lost without a word.
  std::string& Line() { return FBuffer; }
  void EndLine();

  void Flush();

private:
  std::string FBuffer;
};

} // namespace quorvane
