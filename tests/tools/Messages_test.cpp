// SPDX-License-Identifier: MIT
#include "tools/JsonLines.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {
namespace {

std::string Messages(const std::string& text) {
  const TRunResult run = RunQuorvane({"messages", "-"}, text);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  return run.Output;
}

TEST(Messages, AreTheParsersWordsAndPlaces) {
  EXPECT_EQ(
      Messages("unit u;\ninterface\nimplementation\nprocedure p;\nbegin\n  if a then b;\n  if a\n   x;\nend;\nend."),
      R"({"msg":"Expected 'Then' found 'x'","x":3,"y":7}
)");
}

TEST(Messages, MarkTheOneThatEndedTheParse) {
  EXPECT_EQ(Messages("unit u;\ninterface"),
            R"({"msg":"Expected 'Implementation' found 'end of file'","x":9,"y":1,"fatal":true}
)");
}

TEST(Messages, AreHeardBeforeTheParserMovesOnToTheNextSemicolon) {
  EXPECT_EQ(Messages("program p; begin if a b else c; if d e; end."),
            R"({"msg":"Expected 'Then' found 'b'","x":22,"y":0}
{"msg":"Expected 'Then' found 'e'","x":37,"y":0}
)");
}

TEST(Messages, OfAFlawlessFileAreNone) {
  EXPECT_EQ(Messages("unit u; interface implementation end."), "");
}

TEST(Messages, TellOfTheInitializationSectionToo) {
  EXPECT_EQ(Messages("unit u; interface implementation initialization if a b; end."),
            R"({"msg":"Expected 'Then' found 'b'","x":53,"y":0}
)");
}

TEST(Messages, AreNotMadeForDirectives) {
  EXPECT_EQ(Messages("unit u; interface {$R *.res} {$ifdef X} implementation {$else} ( {$endif} end."), "");
}

TEST(Messages, TellThatTheNestingIsTooDeep) {
  const auto lines = JsonLines(Messages("program p; begin x := " + std::string(1'000'000, '(')));
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0]["msg"], "Nested more than 4000 levels deep");
  EXPECT_EQ(lines[0]["fatal"], true);
}

TEST(Messages, CountBytesUnlessDecoded) {
  const std::string text = "program p; begin if '\xC3\xA9' b; end.";
  EXPECT_EQ(JsonLines(Messages(text)).at(0)["x"], 25);
  const TRunResult run = RunQuorvane({"messages", "--decode", "-"}, text);
  EXPECT_EQ(JsonLines(run.Output).at(0)["x"], 24);
}

TEST(Messages, OnAFullDiskAreTrouble) {
  const TTempDir dir;
  const TRunResult run = RunQuorvaneInto("/dev/full", {"messages", dir.Write("a.pas", "unit")});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: standard output: No space left on device\n");
}

// Far more of them than a pipe holds.
TEST(Messages, EndQuietlyWhenTheirReaderGoesAway) {
  const TTempDir dir;
  std::string text = "program p; begin ";
  for (int count = 0; count < 20'000; ++count)
    text += "if a b; ";
  const TRunResult run = RunQuorvaneIntoShortReader({"messages", dir.Write("a.pas", text + "end.")});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Output.size(), 100U);
}

TEST(Messages, OfSeveralFilesFollowEachOther) {
  const TTempDir dir;
  const TRunResult run = RunQuorvane({"messages", dir.Write("a.pas", "unit"), dir.Write("b.pas", "program")});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, R"({"msg":"Expected 'Identifier' found 'end of file'","x":4,"y":0,"fatal":true}
{"msg":"Expected 'Identifier' found 'end of file'","x":7,"y":0,"fatal":true}
)");
}

} // namespace
} // namespace quorvane
