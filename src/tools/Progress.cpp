// SPDX-License-Identifier: MIT
#include "tools/Progress.h"

#include <iostream>
#include <unistd.h>

namespace quorvane {

TProgress::TProgress(std::size_t total) : FTotal(total), FIsTerminal(isatty(STDERR_FILENO) == 1) {}

void TProgress::Show(std::size_t done) {
  const std::size_t percent = done * 100 / FTotal;
  if (!FIsTerminal || (FIsShown && percent == FPercent))
    return;
  std::cerr << '\r' << done << " of " << FTotal << " files (" << percent << "%)" << std::flush;
  FIsShown = true;
  FPercent = percent;
}

void TProgress::Erase() {
  if (FIsShown)
    std::cerr << "\r\033[K" << std::flush;
  FIsShown = false;
}

} // namespace quorvane
