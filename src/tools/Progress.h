// SPDX-License-Identifier: MIT
// How far a long run has come, for whoever watches it on a terminal.
#pragma once

#include <cstddef>

namespace quorvane {

// A line on standard error that is written over and over. Does nothing unless standard error is a terminal.
class TProgress {
public:
  explicit TProgress(std::size_t total);
  ~TProgress() { Erase(); }
  TProgress(const TProgress&) = delete;
  TProgress& operator=(const TProgress&) = delete;

  // Shows that so many files are done.
  void Show(std::size_t done);

  // Takes the line away, before anything else is written that may go to the same terminal.
  void Erase();

private:
  std::size_t FTotal;
  bool FIsTerminal;
  bool FIsShown = false;
  std::size_t FPercent = 0; // as it was shown last
};

} // namespace quorvane
