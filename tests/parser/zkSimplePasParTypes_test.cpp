// SPDX-License-Identifier: MIT
#include "parser/zkSimplePasParTypes.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(ParserErrorNames, AreThoseOfTheEnumeration) {
#define ZK_PARSE_ERROR(kind) EXPECT_EQ(ParserErrorName(kind), #kind);
#include "parser/ParseErrors.def"
}

TEST(ParserErrors, StandInTheOrderThatTheirOrdinalsGive) {
  EXPECT_EQ(ParseErrorCount, 41);
  EXPECT_EQ(InvalidAdditiveOperator, 0);
  EXPECT_EQ(InvalidForStatement, 11);
  EXPECT_EQ(InvalidOrdinalIdentifier, 20);
  EXPECT_EQ(InvalidRelativeOperator, 28);
  EXPECT_EQ(InvalidVarSection, 35);
  EXPECT_EQ(vchInvalidClass, 36);
  EXPECT_EQ(vchInvalidIncludeFile, 40);
}

} // namespace
} // namespace quorvane
