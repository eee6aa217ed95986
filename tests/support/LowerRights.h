// SPDX-License-Identifier: MIT
// Tests of missing rights for whom rights do not count.
#pragma once

#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include <unistd.h>

namespace support {

// While it lives, a process of the administrator acts as nobody, who is given `folder`. For anybody else it does
// nothing.
class LowerRights {
public:
  explicit LowerRights(const QString& folder) {
    if (::geteuid() != 0)
      return;
    EXPECT_EQ(::chown(QFile::encodeName(folder).constData(), nobody, nobody), 0);
    EXPECT_EQ(::seteuid(nobody), 0);
    lowered_ = true;
  }
  ~LowerRights() {
    if (lowered_) {
      EXPECT_EQ(::seteuid(0), 0);
    }
  }
  LowerRights(const LowerRights&) = delete;
  LowerRights& operator=(const LowerRights&) = delete;

private:
  static constexpr uid_t nobody = 65534;
  bool lowered_ = false;
};

} // namespace support
