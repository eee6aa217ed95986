// SPDX-License-Identifier: MIT
// The names and lines of routines.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "Outlines.h"

namespace quorvane {
namespace {

using support::Listed;
using support::Outlined;
using support::TOutlined;

struct TRow {
  const char* Claim;
  const char* Declarations; // of an implementation, on line 1
  const char* Methods;
};

std::ostream& operator<<(std::ostream& out, const TRow& row) {
  return out << row.Declarations;
}

class OutlineNames : public testing::TestWithParam<TRow> {};

TEST_P(OutlineNames, AreCollected) {
  const TOutlined outlined =
      Outlined("unit U; interface implementation\n" + std::string(GetParam().Declarations) + "\nend.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(outlined.Fatal, "");
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), GetParam().Methods);
}

std::string Claim(const testing::TestParamInfo<TRow>& info) {
  return info.param.Claim;
}

INSTANTIATE_TEST_SUITE_P(
    OfRoutines, OutlineNames,
    testing::Values(
        TRow{"OfProcedureAndFunction", "procedure A; begin end;\nfunction B(X: Byte): Byte; begin end;", "A@1 B@2"},
        TRow{"OfFunctionWithoutResult", "function TFoo.Bar; begin end;", "TFoo.Bar@1"},
        TRow{"OfMethods", "procedure TFoo.Bar; begin end; function TFoo.Baz: Byte; begin end;",
             "TFoo.Bar@1 TFoo.Baz@1"},
        TRow{"OfConstructorAndDestructor",
             "constructor TFoo.Create; begin end;\ndestructor TFoo.Destroy; begin inherited; end;",
             "TFoo.Create@1 TFoo.Destroy@2"},
        TRow{"OfClassMethods", "class procedure TFoo.Bar; begin end; class function TFoo.Baz: Byte; begin end;",
             "TFoo.Bar@1 TFoo.Baz@1"},
        TRow{"OfExternalRoutines", "procedure A; external 'a.dll';\nfunction B: Byte; stdcall; external 'b' name 'c';",
             "A@1 B@2"},
        TRow{"OfAssemblerRoutines", "procedure A; asm nop end;\nfunction B: Byte; assembler; asm nop end;", "A@1 B@2"},
        TRow{"AsTheyAreSpelled", "procedure pAiNt; begin end; procedure Paint; begin end;", "pAiNt@1"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(
    Once, OutlineNames,
    testing::Values(TRow{"ForOverloads",
                         "procedure TFoo.Bar; begin end;\nprocedure TFoo.Bar(A: Byte); begin end;\n"
                         "procedure tfoo.bar(A: Word); begin end;",
                         "TFoo.Bar@1"},
                    TRow{"ForForwardDeclarations",
                         "procedure A; forward;\nprocedure B; begin end;\nprocedure A; begin end;", "A@1 B@2"},
                    TRow{"ForRoutinesOfOneNameInOneRoutine",
                         "procedure A;\nprocedure B; begin end;\nprocedure B; begin end;\nbegin end;", "A@1 A.B@2"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(
    OfNestedRoutines, OutlineNames,
    testing::Values(TRow{"InARoutine",
                         "procedure A;\n procedure B;\n  function C: Byte; begin end;\n begin end;\nbegin end;",
                         "A@1 A.B@2 A.B.C@3"},
                    TRow{"BesideEachOther",
                         "procedure A;\n procedure B; begin end;\n procedure C; begin end;\nbegin end;",
                         "A@1 A.B@2 A.C@3"},
                    TRow{"InAMethod", "procedure TFoo.Bar;\n procedure Inner; begin end;\nbegin end;",
                         "TFoo.Bar@1 TFoo.Bar.Inner@2"},
                    TRow{"InAMethodInDepth",
                         "procedure TFoo.Bar;\n procedure One;\n  procedure Two; begin end;\n begin end;\nbegin end;",
                         "TFoo.Bar@1 TFoo.Bar.One@2 TFoo.Bar.One.Two@3"},
                    TRow{"ThatFollowAnotherAreNoLongerOfTheClass",
                         "procedure TFoo.Bar;\n procedure One; begin end;\n procedure Two; begin end;\nbegin end;",
                         "Bar.Two@3 TFoo.Bar@1 TFoo.Bar.One@2"},
                    TRow{"BehindALocalTypeAreOfThatType",
                         "procedure TFoo.Bar;\n type TLocal = Byte;\n procedure Inner; begin end;\nbegin end;",
                         "TFoo.Bar@1 TLocal.Bar.Inner@3"},
                    TRow{"ThatAreMethodsThemselvesGiveTheClassBack",
                         "procedure TFoo.A;\n procedure TBar.B; begin end;\n procedure C; begin end;\nbegin end;",
                         "TBar.A.B@2 TFoo.A@1 TFoo.A.C@3"},
                    TRow{"LeaveTheRoutinesBehindThemAlone",
                         "procedure TFoo.Bar;\n procedure Inner; begin end;\nbegin end;\nprocedure A; begin end;\n"
                         "procedure TFoo.Baz; begin end;",
                         "A@4 TFoo.Bar@1 TFoo.Bar.Inner@2 TFoo.Baz@5"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(AtTheLineWhereTheHeadingEnds, OutlineNames,
                         testing::Values(TRow{"OverSeveralLines", "procedure A(\n  B: Byte;\n  C: Byte\n);\nbegin end;",
                                              "A@4"},
                                         TRow{"OfAResult", "function A(B: Byte)\n  : Byte;\nbegin end;", "A@2"},
                                         TRow{"BeforeItsDirectives", "procedure A;\n stdcall;\n external 'a';", "A@1"}),
                         Claim);

TEST(OutlineNames, OfAProgramAreCollected) {
  const TOutlined outlined = Outlined("program P;\nprocedure A; begin end;\nbegin A; end.");
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "A@1");
}

TEST(OutlineNames, OfAFragmentAreCollected) {
  const TOutlined outlined = Outlined("{ included }\nprocedure TFoo.Bar; begin end;\nfunction B: Byte; begin end;\n");
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "B@2 TFoo.Bar@1");
}

} // namespace
} // namespace quorvane
