// SPDX-License-Identifier: MIT
#include "tools/Process.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace quorvane {
namespace {

std::string Blocks(const std::string& text) {
  const TRunResult run = RunQuorvane({"blocks", "-"}, text);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  return run.Output;
}

TEST(Blocks, TellsTheWordsOfABlock) {
  EXPECT_EQ(
      Blocks("begin end"),
      R"json({"event":"block","elements":[{"pos":5,"line":1,"col":0,"kind":"ptBegin","text":"begin"},{"pos":9,"line":1,"col":6,"kind":"ptEnd","text":"end"}]}
)json");
}

TEST(Blocks, TellsParenthesesFromTheInsideOut) {
  EXPECT_EQ(
      Blocks("f(a, (b))"),
      R"json({"event":"round","elements":[{"pos":6,"line":1,"col":5,"kind":"ptRoundOpen","text":"("},{"pos":8,"line":1,"col":7,"kind":"ptRoundClose","text":")"}]}
{"event":"round","elements":[{"pos":2,"line":1,"col":1,"kind":"ptRoundOpen","text":"("},{"pos":9,"line":1,"col":8,"kind":"ptRoundClose","text":")"}]}
)json");
}

TEST(Blocks, KeepsTheOrderOfBothKindsOfEvents) {
  EXPECT_EQ(
      Blocks("begin (a) ; End"),
      R"json({"event":"round","elements":[{"pos":7,"line":1,"col":6,"kind":"ptRoundOpen","text":"("},{"pos":9,"line":1,"col":8,"kind":"ptRoundClose","text":")"}]}
{"event":"block","elements":[{"pos":5,"line":1,"col":0,"kind":"ptBegin","text":"begin"},{"pos":15,"line":1,"col":12,"kind":"ptEnd","text":"End"}]}
)json");
}

TEST(Blocks, TellsThreeWordsWhereThereAreThree) {
  const auto event = nlohmann::json::parse(Blocks("begin if a then b else c;").c_str());
  ASSERT_EQ(event["elements"].size(), 3U);
  EXPECT_EQ(event["elements"][2]["text"], "else");
}

TEST(Blocks, TellsAMissingMiddleWordAsAnUnfilledElement) {
  const std::string output = Blocks("begin try x end");
  EXPECT_NE(output.find(R"({"pos":0,"line":0,"col":0,"kind":"ptAbsolute","text":""})"), std::string::npos) << output;
}

TEST(Blocks, AnUnclosedBlockTellsNothing) {
  EXPECT_EQ(Blocks("begin ("), "");
  EXPECT_EQ(Blocks(""), "");
}

TEST(Blocks, DecodeCountsCharacters) {
  const TRunResult run = RunQuorvane({"blocks", "--decode", "-"}, "'\xC3\xA9' ()");
  EXPECT_NE(run.Output.find(R"("pos":5,"line":1,"col":4)"), std::string::npos) << run.Output;
}

} // namespace
} // namespace quorvane
