// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace desktop {

// Raised by LoadControl::reach when nobody wants the file any more.
struct LoadStopped {};

// Between a file that is being loaded and whoever waits for it: how far it has come, and whether it is still wanted.
// Any thread.
class LoadControl {
public:
  // Whoever loads the file gives up where it next can.
  void stop() { stopped_ = true; }
  bool isStopped() const { return stopped_; }

  // The share of the work that is done, 0 to 1.
  double done() const { return done_; }
  // The share `done` has been reached. Raises LoadStopped if there is no need to go on.
  void reach(double done) {
    if (stopped_)
      throw LoadStopped();
    done_ = done;
  }

private:
  std::atomic<bool> stopped_ = false;
  std::atomic<double> done_ = 0;
};

} // namespace desktop
