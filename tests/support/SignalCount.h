// SPDX-License-Identifier: MIT
// Counting signals in tests.
#pragma once

#include <QObject>

namespace support {

// Counts how often a signal is emitted while it lives.
class SignalCount : public QObject {
public:
  template <class TSender, class TSignal> SignalCount(const TSender* sender, TSignal signal) {
    connect(sender, signal, this, [this] { ++count_; });
  }

  int count() const { return count_; }

private:
  int count_ = 0;
};

} // namespace support
