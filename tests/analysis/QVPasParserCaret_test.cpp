// SPDX-License-Identifier: MIT
// Which routine holds the caret.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>

#include "Outlines.h"

namespace quorvane {
namespace {

using support::Outlined;
using support::TOutlined;

// "TFoo/Bar": class path and routine path at the caret, which a bar in the text marks.
std::string AtCaret(std::string text) {
  support::TFakeParseThread thread;
  const std::size_t caret = text.find('|');
  EXPECT_NE(caret, std::string::npos);
  thread.Caret = static_cast<std::int32_t>(caret);
  text.erase(caret, 1);
  const TOutlined outlined = Outlined(text, &thread);
  return outlined.Info->GetCurrentClass() + "/" + outlined.Info->GetCurrentProc();
}

struct TRow {
  const char* Claim;
  const char* Declarations; // of an implementation
  const char* Routine;
};

std::ostream& operator<<(std::ostream& out, const TRow& row) {
  return out << row.Declarations;
}

class OutlineCaret : public testing::TestWithParam<TRow> {};

TEST_P(OutlineCaret, IsHeld) {
  EXPECT_EQ(AtCaret("unit U; interface implementation\n\n" + std::string(GetParam().Declarations) + "\nend."),
            GetParam().Routine);
}

std::string Claim(const testing::TestParamInfo<TRow>& info) {
  return info.param.Claim;
}

INSTANTIATE_TEST_SUITE_P(
    AtTheStart, OutlineCaret,
    testing::Values(TRow{"NotTwoBeforeAProcedure", "|  procedure A; begin end;", "/"},
                    TRow{"OneBehindTheFirstLetterOfAProcedure", "  p|rocedure A; begin end;", "/A"},
                    TRow{"NotTwoBeforeAFunction", "|  function A: Byte; begin end;", "/"},
                    TRow{"OneBehindTheFirstLetterOfAFunction", "  f|unction A: Byte; begin end;", "/A"},
                    TRow{"NotOnTheWordClass", "cl|ass procedure TFoo.Bar; begin end;", "/"},
                    TRow{"BehindTheWordClass", "class p|rocedure TFoo.Bar; begin end;", "TFoo/Bar"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(AtTheEnd, OutlineCaret,
                         testing::Values(TRow{"BeforeTheSemicolon", "procedure A; begin end|;", "/A"},
                                         TRow{"NotBehindTheSemicolon", "procedure A; begin end;|", "/"},
                                         TRow{"NotInFrontOfTheNext",
                                              "procedure A; begin end; |  procedure B; begin end;", "/"}),
                         Claim);

INSTANTIATE_TEST_SUITE_P(
    Within, OutlineCaret,
    testing::Values(
        TRow{"AHeading", "procedure A(B|: Byte); begin end;", "/A"},
        TRow{"ABody", "procedure A; begin end; function TFoo.B: Byte; begin b| end; procedure C; begin end;", "TFoo/B"},
        TRow{"DeclarationsOfARoutine", "procedure A; var |B: Byte; begin end;", "/A"},
        TRow{"NoForwardDeclaration", "procedure A; f|orward; procedure B; begin end;", "/"},
        TRow{"NoExternalRoutine", "procedure A; ext|ernal 'a'; procedure B; begin end;", "/"}),
    Claim);

// A body in assembler alone is no block, and so ends nothing.
INSTANTIATE_TEST_SUITE_P(NotInAssembler, OutlineCaret,
                         testing::Values(TRow{"Alone", "procedure A; asm n|op end;", "/"},
                                         TRow{"BehindABlock", "procedure B; begin end; procedure A; asm n|op end;",
                                              "/"}),
                         Claim);

// Only procedures and functions move the start.
INSTANTIATE_TEST_SUITE_P(
    InConstructors, OutlineCaret,
    testing::Values(TRow{"TheFirstRoutine", "constructor TFoo.Create; begin a| end;", "TFoo/Create"},
                    TRow{"FromTheStartOfTheText", "|constructor TFoo.Create; begin a end;", "TFoo/Create"},
                    TRow{"FromTheHeadingOfTheRoutineBefore",
                         "procedure A; begin end; | constructor TFoo.Create; begin end;", "TFoo/Create"},
                    TRow{"InsteadOfTheRoutineBefore", "procedure A; begin a| end; constructor TFoo.Create; begin end;",
                         "TFoo/Create"},
                    TRow{"AndInTheNextOnesToo",
                         "constructor TFoo.Create; begin a| end; destructor TFoo.Destroy; begin end;", "TFoo/Destroy"},
                    TRow{"NotInThoseBehindAProcedure", "constructor TFoo.Create; begin a| end; procedure A; begin end;",
                         "TFoo/Create"}),
    Claim);

INSTANTIATE_TEST_SUITE_P(
    OfNestedRoutines, OutlineCaret,
    testing::Values(
        TRow{"InTheBodyOfTheOuter", "procedure A; procedure B; begin end; begin a| end;", "/A"},
        TRow{"InTheInnerIsHeldByTheOuter", "procedure A; procedure B; begin b| end; begin end;", "/A"},
        TRow{"NotBetweenTheTwoHeadings", "procedure A; var |X: Byte; procedure B; begin end; begin end;", "/"},
        TRow{"InAnInnerThatAnotherFollows",
             "procedure A; procedure B; begin b| end; procedure C; begin end; begin end;", "/A.B"},
        TRow{"InAnInnerOfAMethod", "procedure TFoo.A; procedure B; begin b| end; procedure C; begin end; begin end;",
             "TFoo/A.B"},
        TRow{"InALaterInnerOfAMethod",
             "procedure TFoo.A; procedure B; begin end; procedure C; begin c| end; procedure D; begin end; "
             "begin end;",
             "/A.C"},
        TRow{"InAMethodWithinAMethod",
             "procedure TFoo.A; procedure TBar.B; begin b| end; procedure C; begin end; begin end;", "TFoo.TBar/A.B"},
        TRow{"InTheBodyOfAMethodWithThem",
             "procedure TFoo.A; procedure B; begin end; procedure C; begin end; begin a| end;", "TFoo/A"}),
    Claim);

TEST(OutlineCaret, IsHeldByTheInnerWhereTheParseEndsBeforeTheOuterDoes) {
  EXPECT_EQ(AtCaret("unit U; interface implementation procedure TFoo.A; procedure B; begin b| end; begin"), "TFoo/A.B");
}

TEST(OutlineCaret, IsHeldInAProgramAsWell) {
  EXPECT_EQ(AtCaret("program P; procedure A; begin a| end; begin end."), "/A");
  EXPECT_EQ(AtCaret("program P; procedure A; begin end; begin a| end."), "/");
}

TEST(OutlineCaret, IsNotLookedForWithoutAThread) {
  const TOutlined outlined = Outlined("program P; procedure A; begin end; begin end.");
  EXPECT_EQ(outlined.Info->GetCurrentProc(), "");
}

TEST(OutlineCaret, MakesNoDifferenceToTheLists) {
  support::TFakeParseThread thread;
  thread.Caret = 30;
  const std::string text = "program P; procedure A; procedure B; begin end; begin end; begin end.";
  EXPECT_EQ(Outlined(text, &thread).Info->GetMethods(), Outlined(text).Info->GetMethods());
}

} // namespace
} // namespace quorvane
