// SPDX-License-Identifier: MIT
// Standard output, with its errors taken seriously.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace quorvane {

// The results cannot be written, a full disk for one; the message is the reason. No more work makes sense.
class EOutputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// The reader of the output has gone, as `head` does; there is no one left to write for, and nothing is wrong.
class EOutputClosed : public EOutputError {
public:
  EOutputClosed() : EOutputError("standard output is closed") {}
};

// Collects lines and writes them to standard output in large pieces. Writing throws EOutputClosed if the reader has
// gone and EOutputError for every other failure. SIGPIPE must be ignored by the process.
class TOutput {
public:
  TOutput() = default;
  TOutput(const TOutput&) = delete;
  TOutput& operator=(const TOutput&) = delete;

  // What is not written yet; append a line to it, then call EndLine. The owner calls Flush at the end: what is left
  // unwritten is lost without a word.
  std::string& Line() { return FBuffer; }
  void EndLine();

  // Takes back what was appended since the last line ended.
  void DropLine() { FBuffer.resize(FLineStart); }

  void Flush();

private:
  std::string FBuffer;
  std::size_t FLineStart = 0; // index into FBuffer of what is appended after the last EndLine
};

} // namespace quorvane
