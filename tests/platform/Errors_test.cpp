// SPDX-License-Identifier: MIT
#include "platform/Errors.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Errors, AssertionNamesTextUnitAndLine) {
  const EAssertionFailed error("Assertion failure", "QVLog", 12);
  EXPECT_STREQ(error.what(), "Assertion failure (QVLog, line 12)");
}

TEST(Errors, RequireNamesTheCallersLine) {
  const unsigned before = __LINE__;
  try {
    Require(false, "QVOptions");
    FAIL() << "nothing was raised";
  } catch (const EAssertionFailed& error) {
    EXPECT_EQ(error.Line(), before + 2);
    EXPECT_EQ(error.Unit(), "QVOptions");
    EXPECT_EQ(error.Text(), "Assertion failure");
  }
}

TEST(Errors, RequireIsSilentWhenTheConditionHolds) {
  EXPECT_NO_THROW(Require(true, "QVOptions"));
}

TEST(Errors, DivideRoundsTowardZero) {
  EXPECT_EQ(Divide(7, 2), 3);
  EXPECT_EQ(Divide(-7, 2), -3);
}

TEST(Errors, DivisionByZeroIsAnExceptionAndNoSignal) {
  EXPECT_THROW(Divide(1, 0), EDivByZero);
}

TEST(Errors, PackageErrorNamesItsUnit) {
  EXPECT_STREQ(EPackageError("QVLog", "no room").what(), "Unit QVLog: no room");
  EXPECT_STREQ(EPackageError("", "no such file").what(), "no such file");
}
