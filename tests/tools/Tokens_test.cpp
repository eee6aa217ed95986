// SPDX-License-Identifier: MIT
#include "tools/JsonLines.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {
namespace {

using namespace std::string_literals;

constexpr const char* EmptyText = R"({"kind":"ptNull","ex":"ptUnknown","pos":0,"len":0,"line":0,"col":0})"
                                  "\n";

std::string Tokens(const std::string& text) {
  const TRunResult run = RunQuorvane({"tokens", "-"}, text);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  return run.Output;
}

TEST(Tokens, ListsEveryTokenJunkAndTheFinalNullIncluded) {
  EXPECT_EQ(Tokens("begin x"), R"({"kind":"ptBegin","ex":"ptUnknown","pos":0,"len":5,"line":0,"col":0}
{"kind":"ptSpace","ex":"ptUnknown","pos":5,"len":1,"line":0,"col":5}
{"kind":"ptIdentifier","ex":"ptUnknown","pos":6,"len":1,"line":0,"col":6}
{"kind":"ptNull","ex":"ptUnknown","pos":7,"len":0,"line":0,"col":7}
)");
}

TEST(Tokens, PutsALineBreakOnTheLineThatItStarts) {
  EXPECT_EQ(Tokens("\r\n\n;"), R"({"kind":"ptCRLF","ex":"ptUnknown","pos":0,"len":2,"line":1,"col":-2}
{"kind":"ptCRLF","ex":"ptUnknown","pos":2,"len":1,"line":2,"col":-1}
{"kind":"ptSemiColon","ex":"ptUnknown","pos":3,"len":1,"line":2,"col":0}
{"kind":"ptNull","ex":"ptUnknown","pos":4,"len":0,"line":2,"col":1}
)");
}

TEST(Tokens, GivesTheExtendedKindOfADirectiveWord) {
  EXPECT_EQ(Tokens("virtual"), R"({"kind":"ptIdentifier","ex":"ptVirtual","pos":0,"len":7,"line":0,"col":0}
{"kind":"ptNull","ex":"ptUnknown","pos":7,"len":0,"line":0,"col":7}
)");
}

TEST(Tokens, PutsAMessageBeforeItsToken) {
  EXPECT_EQ(Tokens("\n 'abc"), R"({"kind":"ptCRLF","ex":"ptUnknown","pos":0,"len":1,"line":1,"col":-1}
{"kind":"ptSpace","ex":"ptUnknown","pos":1,"len":1,"line":1,"col":0}
{"msg":"Unterminated string","x":1,"y":1}
{"kind":"ptStringConst","ex":"ptUnknown","pos":2,"len":4,"line":1,"col":1}
{"kind":"ptNull","ex":"ptUnknown","pos":6,"len":0,"line":1,"col":5}
)");
}

TEST(Tokens, ReportsAMessageOfTheVeryFirstToken) {
  EXPECT_EQ(Tokens("}"), R"({"msg":"Illegal character","x":0,"y":0}
{"kind":"ptError","ex":"ptUnknown","pos":0,"len":1,"line":0,"col":0}
{"kind":"ptNull","ex":"ptUnknown","pos":1,"len":0,"line":0,"col":1}
)");
}

TEST(Tokens, ReportsAnOpenCommentOnceAtTheEnd) {
  EXPECT_EQ(Tokens("{ x"), R"({"kind":"ptBorComment","ex":"ptUnknown","pos":0,"len":3,"line":0,"col":0}
{"msg":"Unexpected file end","x":3,"y":0}
{"kind":"ptNull","ex":"ptUnknown","pos":3,"len":0,"line":0,"col":3}
)");
}

TEST(Tokens, AnEmptyTextIsOneNull) {
  EXPECT_EQ(Tokens(""), EmptyText);
}

TEST(Tokens, EndAtANul) {
  EXPECT_EQ(Tokens("\0begin"s), EmptyText);
}

TEST(Tokens, TakesTheBytesAsTheyAre) {
  const auto lines = JsonLines(Tokens("'\xC3\xA9'"));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["len"], 4);
  EXPECT_EQ(lines[0]["kind"], "ptStringConst");
}

TEST(Tokens, DecodeTakesTheFileAsTheEditorServesIt) {
  const TRunResult run = RunQuorvane({"tokens", "--decode", "-"}, "\xEF\xBB\xBF'\xC3\xA9'\n'\xF0\x9F\x98\x80'");
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, R"({"kind":"ptAsciiChar","ex":"ptUnknown","pos":0,"len":3,"line":0,"col":0}
{"kind":"ptCRLF","ex":"ptUnknown","pos":3,"len":2,"line":1,"col":-2}
{"kind":"ptAsciiChar","ex":"ptUnknown","pos":5,"len":3,"line":1,"col":0}
{"kind":"ptNull","ex":"ptUnknown","pos":8,"len":0,"line":1,"col":3}
)");
}

TEST(Tokens, DecodeReadsUtf16ByItsMark) {
  const TRunResult run = RunQuorvane({"tokens", "-", "--decode"}, "\xFE\xFF\0e\0n\0d"s);
  EXPECT_EQ(run.Output, R"({"kind":"ptEnd","ex":"ptUnknown","pos":0,"len":3,"line":0,"col":0}
{"kind":"ptNull","ex":"ptUnknown","pos":3,"len":0,"line":0,"col":3}
)");
}

TEST(Tokens, DecodeTakesTheNamedEncodingForAFileWithoutMark) {
  const TRunResult run = RunQuorvane({"tokens", "--decode", "--encoding", "utf-16le", "-"}, "e\0n\0d\0"s);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(JsonLines(run.Output).at(0)["kind"], "ptEnd");
}

TEST(Tokens, AMarkGoesBeforeTheNamedEncoding) {
  const TRunResult run = RunQuorvane({"tokens", "--decode", "--encoding", "windows-1252", "-"}, "\xEF\xBB\xBF"
                                                                                                "end");
  EXPECT_EQ(JsonLines(run.Output).at(0)["kind"], "ptEnd");
}

} // namespace
} // namespace quorvane
