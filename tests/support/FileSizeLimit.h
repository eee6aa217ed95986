// SPDX-License-Identifier: MIT
// A full disk for tests.
#pragma once

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

namespace support {

// While it lives, no file can grow beyond `bytes`: writing fails as it does on a full disk.
class FileSizeLimit {
public:
  explicit FileSizeLimit(rlim_t bytes) {
    oldHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
  rlimit old_ = {};
  void (*oldHandler_)(int) = nullptr;
};

} // namespace support
