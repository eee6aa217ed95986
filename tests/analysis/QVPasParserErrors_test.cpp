// SPDX-License-Identifier: MIT
// What the outline parser does about errors: underline them if the user pauses, and move on to the next semicolon.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "Outlines.h"

namespace quorvane {
namespace {

using support::Listed;
using support::Outlined;
using support::TFakeParseThread;
using support::TOutlined;
using support::TSyntaxCheck;

using TUnderlines = std::vector<TFakeParseThread::TUnderline>;

// The condition of an if lacks its then; the word found stands in line 1 at column 7, both from 0.
const std::string Faulty = "program P; begin\n  if a bcd;\n  e; end.";

class OutlineErrors : public testing::Test {
protected:
  TSyntaxCheck FCheck{true};
  TFakeParseThread FThread;
};

TEST_F(OutlineErrors, AreUnderlinedOneColumnToTheLeftAndTwoCharactersLonger) {
  FThread.Still = 1001;
  EXPECT_EQ(Outlined(Faulty, &FThread).Reports, (std::vector<std::string>{"1:7 Expected 'Then' found 'bcd'"}));
  EXPECT_EQ(FThread.Underlines, (TUnderlines{{6, 2, 5, true}}));
}

TEST_F(OutlineErrors, AtTheStartOfALineAreUnderlinedFromTheColumnBefore) {
  FThread.Still = 1001;
  Outlined("program P; begin\nif a\n\nx; end.", &FThread);
  EXPECT_EQ(FThread.Underlines, (TUnderlines{{-1, 4, 3, true}}));
}

TEST_F(OutlineErrors, AreUnderlinedOnlyAboveAStillnessOfAThousand) {
  FThread.Still = 1000;
  Outlined(Faulty, &FThread);
  EXPECT_EQ(FThread.Underlines, TUnderlines{});
  FThread.Still = 1001;
  Outlined(Faulty, &FThread);
  EXPECT_EQ(FThread.Underlines.size(), 1U);
}

TEST_F(OutlineErrors, AreUnderlinedOneAfterTheOther) {
  FThread.Still = 5000;
  Outlined("program P; begin if a b;\nwhile c dd; repeat e; until; end.", &FThread);
  EXPECT_EQ(FThread.Underlines.at(0), (TFakeParseThread::TUnderline{21, 1, 3, true}));
  EXPECT_EQ(FThread.Underlines.at(1), (TFakeParseThread::TUnderline{7, 2, 4, true}));
}

TEST_F(OutlineErrors, AreNotUnderlinedWithTheOptionOff) {
  const TSyntaxCheck off(false);
  FThread.Still = 5000;
  EXPECT_EQ(Outlined(Faulty, &FThread).Reports.size(), 1U);
  EXPECT_EQ(FThread.Underlines, TUnderlines{});
}

TEST_F(OutlineErrors, AreNotUnderlinedWithoutAThread) {
  EXPECT_EQ(Outlined(Faulty).Reports.size(), 1U);
}

TEST_F(OutlineErrors, ThatEndTheParseAreNotUnderlined) {
  FThread.Still = 5000;
  EXPECT_EQ(Outlined("program P; begin", &FThread).Fatal, "Expected 'End' found 'end of file'");
  EXPECT_EQ(FThread.Underlines, TUnderlines{});
}

// Between the error and the semicolon stands what would be an error of its own.
TEST_F(OutlineErrors, AreSkippedToTheNextSemicolonWhetherTheyAreUnderlinedOrNot) {
  const std::string text = "unit U; interface implementation procedure A; begin if a b then ] else ( := ; end;\n"
                           "type TA = Byte; procedure B; begin end; end.";
  for (const bool isOn : {true, false}) {
    const TSyntaxCheck check(isOn);
    const TOutlined outlined = Outlined(text, &FThread);
    EXPECT_EQ(outlined.Reports, (std::vector<std::string>{"0:57 Expected 'Then' found 'b'"}));
    EXPECT_EQ(outlined.Fatal, "");
    EXPECT_EQ(Listed(outlined.Info->GetMethods()), "A@0 B@1");
    EXPECT_EQ(Listed(outlined.Info->GetClasses()), "TA@1");
  }
}

TEST_F(OutlineErrors, AreSkippedOverDirectivesAsWell) {
  const TOutlined outlined = Outlined("program P; begin if a b {$else} ; ] {$endif} ]; e; end.");
  EXPECT_EQ(outlined.Reports, (std::vector<std::string>{"0:22 Expected 'Then' found 'b'"}));
  EXPECT_EQ(outlined.Fatal, "");
}

TEST_F(OutlineErrors, AreSkippedToTheEndOfTheTextWhereNoSemicolonComes) {
  const TOutlined outlined = Outlined("program P; procedure A; begin end; begin if a b end.");
  EXPECT_EQ(outlined.Reports, (std::vector<std::string>{"0:46 Expected 'Then' found 'b'"}));
  EXPECT_EQ(outlined.Fatal, "Expected 'SemiColon' found 'end of file'");
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "A@0");
}

TEST_F(OutlineErrors, MayBeHeardOfBeforeTheParserSkips) {
  TQVPasParser parser;
  std::vector<std::string> found;
  parser.SetOnMessage([&found, own = parser.OnMessage()](TzkSimplePasPar& sender, const std::string& msg,
                                                         std::int32_t x, std::int32_t y) {
    found.push_back(sender.Lexer().GetToken());
    own(sender, msg, x, y);
    found.push_back(sender.Lexer().GetToken());
  });
  std::string text = Faulty;
  parser.Run("", &text);
  EXPECT_EQ(found, (std::vector<std::string>{"bcd", ";"}));
}

TEST_F(OutlineErrors, LeaveRunWithWhatTheirPaintingThrew) {
  class TFailing : public TFakeParseThread {
  public:
    void UnderlineErr(std::int32_t, std::int32_t, std::int32_t) override { throw std::logic_error("no view"); }
  } thread;
  thread.Still = 5000;
  EXPECT_THROW(Outlined(Faulty, &thread), std::logic_error);
}

TEST_F(OutlineErrors, AreLookedForNoLongerSoonAfterTheThreadIsToEnd) {
  std::string text = "program P; begin\n";
  for (int line = 0; line < 10'000; ++line)
    text += "  if a bcd;\n";
  class TEnding : public TFakeParseThread {
  public:
    void UnderlineErr(std::int32_t col, std::int32_t line, std::int32_t length) override {
      TFakeParseThread::UnderlineErr(col, line, length);
      Ending = true;
    }
    std::int32_t StillCount() const override { return Ending ? 0 : 5000; }
  } thread;
  const TOutlined outlined = Outlined(text + "end.", &thread);
  EXPECT_EQ(thread.Underlines.size(), 1U);
  EXPECT_LT(outlined.Reports.size(), 1024U);
  EXPECT_EQ(outlined.Fatal, "The thread of the parse is to end");
}

TEST_F(OutlineErrors, ArePaintedOnlyThroughTheThread) {
  TQVPasParser parser;
  EXPECT_NO_THROW(parser.PaintErr());
  parser.SetThread(&FThread);
  parser.PaintErr();
  EXPECT_EQ(FThread.Underlines, (TUnderlines{{0, 0, 2, false}}));
}

} // namespace
} // namespace quorvane
