// SPDX-License-Identifier: MIT
#include "platform/Message.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

struct TCounter {
  int Paints = 0;
  int Others = 0;
  void Paint(TMessage& message) {
    ++Paints;
    message.Result = 7;
  }
  void Other(TMessage&) { ++Others; }
};

} // namespace

TEST(WndMethod, CallsTheFunctionOfItsObject) {
  TCounter counter;
  TMessage message{.Msg = WM_PAINT};
  TWndMethod::Of<&TCounter::Paint>(counter)(message);
  EXPECT_EQ(counter.Paints, 1);
  EXPECT_EQ(counter.Others, 0);
  EXPECT_EQ(message.Result, 7);
}

TEST(WndMethod, IsEqualOnlyForTheSameObjectAndFunction) {
  TCounter one;
  TCounter two;
  EXPECT_EQ(TWndMethod::Of<&TCounter::Paint>(one), TWndMethod::Of<&TCounter::Paint>(one));
  EXPECT_NE(TWndMethod::Of<&TCounter::Paint>(one), TWndMethod::Of<&TCounter::Paint>(two));
  EXPECT_NE(TWndMethod::Of<&TCounter::Paint>(one), TWndMethod::Of<&TCounter::Other>(one));
}

TEST(WndMethod, IsFalseUntilItIsSet) {
  EXPECT_FALSE(TWndMethod());
  TCounter counter;
  EXPECT_TRUE(TWndMethod::Of<&TCounter::Other>(counter));
}
