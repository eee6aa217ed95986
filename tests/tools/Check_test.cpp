// SPDX-License-Identifier: MIT
#include "tools/JsonLines.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {
namespace {

using namespace std::string_literals;

constexpr const char* Flawless = "unit u; interface implementation end.\n";

// A program with one wrong word, the b, in the column that the text before it makes.
std::string WrongAfter(const std::string& before) {
  return "program p;\nbegin\n" + before + "b;\nend.\n";
}

TEST(Check, AFlawlessFileGivesNothingAndZero) {
  const TRunResult run = RunQuorvane({"check", "-"}, Flawless);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "");
}

TEST(Check, AFindingIsAPlaceAMessageTheSourceAndAMark) {
  const TRunResult run = RunQuorvane({"check", "-"}, WrongAfter("  if a "));
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Output, R"(-:3:8: error: Expected 'Then' found 'b'
  if a b;
       ^
)");
}

TEST(Check, MarksTheWholeToken) {
  const TRunResult run = RunQuorvane({"check", "-"}, "program p;\nbegin\n  if a whenever;\nend.\n");
  EXPECT_EQ(run.Output, R"(-:3:8: error: Expected 'Then' found 'whenever'
  if a whenever;
       ^~~~~~~~
)");
}

TEST(Check, KeepsTabsBeforeTheMark) {
  const TRunResult run = RunQuorvane({"check", "-"}, WrongAfter("\tif\ta "));
  EXPECT_EQ(run.Output, "-:3:7: error: Expected 'Then' found 'b'\n\tif\ta b;\n\t  \t  ^\n");
}

TEST(Check, CountsCharactersAndShowsThemAsTheyAre) {
  // A letter with an accent takes one cell, a Chinese one takes two.
  const TRunResult run = RunQuorvane({"check", "-"}, WrongAfter("if '\xC3\xA9\xE6\x97\xA5' "));
  EXPECT_EQ(run.Output, "-:3:9: error: Expected 'Then' found 'b'\nif '\xC3\xA9\xE6\x97\xA5' b;\n         ^\n");
}

TEST(Check, ReadsACodePageWhereTheBytesAreNotUtf8) {
  const TRunResult run = RunQuorvane({"check", "-"}, WrongAfter("if '\xE9\x80' "));
  EXPECT_EQ(run.Output, "-:3:9: error: Expected 'Then' found 'b'\nif '\xC3\xA9\xE2\x82\xAC' b;\n        ^\n");
}

TEST(Check, ReadsTheNamedEncoding) {
  const TRunResult run = RunQuorvane({"check", "--encoding", "windows-1251", "-"}, WrongAfter("if '\xE9' "));
  EXPECT_EQ(run.Output, "-:3:8: error: Expected 'Then' found 'b'\nif '\xD0\xB9' b;\n       ^\n");
}

TEST(Check, ReadsUtf16ByItsMark) {
  std::string wide = "\xFF\xFE";
  for (const char character : WrongAfter("if a "))
    (wide += character) += '\0';
  const TRunResult run = RunQuorvane({"check", "-"}, wide);
  EXPECT_EQ(run.Output, "-:3:6: error: Expected 'Then' found 'b'\nif a b;\n     ^\n");
}

TEST(Check, CountsLinesOfEveryEnd) {
  const TRunResult run = RunQuorvane({"check", "-"}, "program p;\r\nbegin\rif a\nb;\nend.");
  EXPECT_EQ(run.Output, "-:4:1: error: Expected 'Then' found 'b'\nb;\n^\n");
}

// The blank after the word is what is wrong, and the line break is part of no line.
TEST(Check, PutsALineBreakAtTheStartOfTheLineBehindIt) {
  const TRunResult run =
      RunQuorvane({"check", "-"}, "unit u; interface implementation\nprocedure p; deprecated\n;begin end;\nend.");
  ASSERT_EQ(run.ExitCode, 1);
  EXPECT_TRUE(
      run.Output.starts_with("-:3:1: error: Expected 'SemiColon' found '\xE2\x90\x8D\xE2\x90\x8A'\n;begin end;\n^\n"))
      << run.Output;
}

TEST(Check, TellsTheEndOfTheTextBehindItsLastCharacter) {
  const TRunResult run = RunQuorvane({"check", "-"}, "unit u;\ninterface");
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, "-:2:10: error: Expected 'Implementation' found 'end of file'\ninterface\n         ^\n");
}

TEST(Check, AnEmptyFileIsAFinding) {
  const TRunResult run = RunQuorvane({"check", "-"});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, "-:1:1: error: Expected 'Unit' found 'end of file'\n\n^\n");
}

TEST(Check, ABinaryFileCannotMoveTheCursor) {
  std::string bytes;
  for (int count = 0; count < 256 * 64; ++count)
    bytes += static_cast<char>(1 + count * 7 % 255);
  const TRunResult run = RunQuorvane({"check", "-"}, bytes);
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_NE(run.Output, "");
  EXPECT_TRUE(std::ranges::none_of(run.Output, [](char character) {
    return (character >= 0 && character < ' ' && character != '\n' && character != '\t') || character == '\x7F';
  }));
}

TEST(Check, CutsALongLineAroundTheToken) {
  const std::string blanks(1'000'000, ' ');
  const TRunResult run = RunQuorvane({"check", "-"}, WrongAfter(blanks + "if a ") + blanks);
  EXPECT_EQ(run.Output, "-:3:1000006: error: Expected 'Then' found 'b'\n..." + std::string(153, ' ') + "if a b;\n" +
                            std::string(161, ' ') + "^\n");
}

TEST(Check, ShortensALongTokenInTheMessageOfEveryFormat) {
  const std::string text = "program p; begin if a " + std::string(1'000'000, 'n') + "; end.";
  const std::string message = "Expected 'Then' found '" + std::string(174, 'n') + "...";
  EXPECT_EQ(JsonLines(RunQuorvane({"check", "--format", "json", "-"}, text).Output).at(0)["message"], message);
  const TRunResult sarif = RunQuorvane({"check", "--format", "sarif", "-"}, text);
  EXPECT_EQ(nlohmann::json::parse(sarif.Output)["runs"][0]["results"][0]["message"]["text"], message);
}

TEST(Check, ShortensALongTokenInTheMessage) {
  const std::string name(1'000'000, 'n');
  const TRunResult run = RunQuorvane({"check", "-"}, "program p;\nbegin\nif a " + name + ";\nend.\n");
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_LT(run.Output.size(), 700U);
  EXPECT_TRUE(run.Output.starts_with("-:3:6: error: Expected 'Then' found 'nnnn")) << run.Output;
  EXPECT_NE(run.Output.find("nnn...\n"), std::string::npos) << run.Output;
}

// Each of them is found on the same long line, of which only the parts around them are looked at.
TEST(Check, LeavesOutErrorsWithoutEndAndSaysHowMany) {
  std::string text = "program p; begin ";
  for (int count = 0; count < 10'003; ++count)
    text += "if a b; ";
  const TRunResult run = RunQuorvane({"check", "--format", "json", "-"}, text + "end.");
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Errors, "quorvane: -: 3 more errors are left out\n");
  EXPECT_EQ(std::ranges::count(run.Output, '\n'), 10'000);
}

TEST(Check, TellsTheErrorThatEndedTheParseWhateverTheirNumber) {
  std::string text = "program p; begin ";
  for (int count = 0; count < 10'003; ++count)
    text += "if a b; ";
  const TRunResult run = RunQuorvane({"check", "--format", "json", "-"}, text);
  const auto lines = JsonLines(run.Output);
  ASSERT_EQ(lines.size(), 10'001U);
  EXPECT_EQ(lines.back()["fatal"], true);
}

TEST(Check, DeepNestingEndsAtTheLimitInAThreadToo) {
  const TRunResult run = RunQuorvane({"check", "-"}, "program p; begin x := " + std::string(1'000'000, '('));
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_NE(run.Output.find(": error: Nested more than 4000 levels deep\n"), std::string::npos);
}

TEST(Check, TellsThatANulHidesTheRest) {
  const TRunResult run = RunQuorvane({"check", "-"}, "unit u; interface\nimplementation end.\0 if a b"s);
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, "-:2:20: error: The text ends at a NUL character; what follows it was not checked\n"
                        "implementation end.\xE2\x90\x80 if a b\n"
                        "                   ^\n");
}

TEST(Check, TellsOfTheNulBeforeTheErrorThatItMakes) {
  const auto lines = JsonLines(RunQuorvane({"check", "--format", "json", "-"}, "unit\0 u;"s).Output);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["message"], "The text ends at a NUL character; what follows it was not checked");
  EXPECT_EQ(lines[0]["fatal"], true);
  EXPECT_EQ(lines[1]["message"], "Expected 'Identifier' found 'end of file'");
}

TEST(Check, NulsThatPadTheEndHideNothing) {
  const TRunResult run = RunQuorvane({"check", "-"}, Flawless + std::string(500, '\0'));
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, "");
}

TEST(Check, ANameCannotDisturbATerminalOrForgeAFinding) {
  const TTempDir dir;
  const std::string name = "a.pas:1:1: error: b\n\033[2J.pas";
  dir.Write(name, "unit");
  const TRunResult run = RunQuorvaneIn(dir, {"check", name, name + "\r"});
  EXPECT_TRUE(run.Output.starts_with("a.pas:1:1: error: b\xE2\x90\x8A\xE2\x90\x9B[2J.pas:1:5: error: ")) << run.Output;
  EXPECT_EQ(run.Errors,
            "quorvane: a.pas:1:1: error: b\xE2\x90\x8A\xE2\x90\x9B[2J.pas\xE2\x90\x8D: No such file or directory\n");
}

TEST(Check, JsonNamesAFileWithControlCharacters) {
  const TTempDir dir;
  const std::string name = "a\n\033\x7F.pas";
  dir.Write(name, "unit");
  EXPECT_EQ(JsonLines(RunQuorvaneIn(dir, {"check", "--format", "json", name}).Output).at(0)["file"], name);
}

TEST(Check, TheSourceCannotTurnItselfAround) {
  const TRunResult run = RunQuorvane({"check", "-"}, WrongAfter("if '\xE2\x80\xAE' "));
  EXPECT_EQ(run.Output, "-:3:8: error: Expected 'Then' found 'b'\nif '\xEF\xBF\xBD' b;\n       ^\n");
}

TEST(Check, PackagesAndLibrariesAreCheckedToo) {
  const TTempDir dir;
  const std::string package = dir.Write("a.dpk", "package a;\nrequires b\ncontains c;\nend.");
  const std::string library = dir.Write("b.dpr", "library b;\nuses c\nbegin\nend.");
  const TRunResult run = RunQuorvane({"check", package, library});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_NE(run.Output.find(package + ":3:1: error: "), std::string::npos) << run.Output;
  EXPECT_NE(run.Output.find(library + ":3:1: error: "), std::string::npos) << run.Output;
}

TEST(Check, JsonIsOneObjectAFinding) {
  const TTempDir dir;
  dir.Write("\xC3\xA9.pas", WrongAfter("if '\xC3\xA9' "));
  dir.Write("z.pas", "unit");
  const TRunResult run = RunQuorvaneIn(dir, {"check", "--format", "json", "\xC3\xA9.pas", "z.pas"});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, "{\"file\":\"\xC3\xA9.pas\",\"line\":3,\"column\":8,\"length\":1,"
                        "\"message\":\"Expected 'Then' found 'b'\"}\n"
                        "{\"file\":\"z.pas\",\"line\":1,\"column\":5,\"length\":0,"
                        "\"message\":\"Expected 'Identifier' found 'end of file'\",\"fatal\":true}\n");
}

TEST(Check, AnUnknownFormatIsRefused) {
  const TRunResult run = RunQuorvane({"check", "--format", "xml", "-"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: --format: unknown format xml\nTry quorvane --help.\n");
}

TEST(Check, HasNoDecodingToAskFor) {
  const TRunResult run = RunQuorvane({"check", "--decode", "-"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: unknown option --decode\nTry quorvane --help.\n");
}

TEST(Check, JobsMustBeAPositiveNumber) {
  for (const char* jobs : {"0", "-1", "x", "1025"})
    EXPECT_EQ(RunQuorvane({"check", "--jobs", jobs, "-"}, Flawless).ExitCode, 2) << jobs;
  for (const char* jobs : {"1", "1024"})
    EXPECT_EQ(RunQuorvane({"check", "--jobs", jobs, "-"}, Flawless).ExitCode, 0) << jobs;
}

TEST(Check, KeepsTheOrderOfTheFilesWhateverTheJobs) {
  const TTempDir dir;
  std::vector<std::string> arguments = {"check", "--format", "json", "--jobs", "1"};
  for (int index = 0; index < 300; ++index) {
    // Early files take longest, so the later ones are done before them.
    const std::string padding(static_cast<std::size_t>(300 - index) * 1000, ' ');
    arguments.push_back(dir.Write(std::to_string(index) + ".pas", WrongAfter(padding + "if a ")));
  }
  const TRunResult one = RunQuorvane(arguments);
  const auto lines = JsonLines(one.Output);
  ASSERT_EQ(lines.size(), 300U);
  for (std::size_t index = 0; index < lines.size(); ++index)
    ASSERT_EQ(lines[index]["file"], arguments[index + 5]);
  arguments[4] = "8";
  EXPECT_EQ(RunQuorvane(arguments).Output, one.Output);
}

TEST(Check, TroubleGoesBeforeFindings) {
  const TTempDir dir;
  const TRunResult run = RunQuorvane({"check", dir.Write("a.pas", WrongAfter("if a ")), dir.Path("none.pas")});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_NE(run.Output, "");
  EXPECT_EQ(run.Errors, "quorvane: " + dir.Path("none.pas") + ": No such file or directory\n");
}

TEST(Check, AFileWithoutPermissionIsTrouble) {
  if (RunQuorvaneAsNobody({"--version"}).ExitCode != 0)
    GTEST_SKIP() << "the program lies where only the administrator may go";
  const TTempDir dir;
  const std::string path = dir.Write("secret.pas", Flawless);
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const TRunResult run = RunQuorvaneAsNobody({"check", dir.Path("")});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: " + path + ": Permission denied\n");
}

TEST(Check, AFullDiskIsTrouble) {
  const TTempDir dir;
  const TRunResult run = RunQuorvaneInto("/dev/full", {"check", dir.Write("a.pas", "unit")});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: standard output: No space left on device\n");
}

TEST(Check, AReaderThatGoesAwayEndsItWithTheFindingsSoFar) {
  const TTempDir dir;
  std::vector<std::string> arguments = {"check", "--jobs", "4"};
  for (int index = 0; index < 200; ++index) {
    std::string text = "program p; begin\n";
    for (int count = 0; count < 50; ++count)
      text += "if a b;\n";
    arguments.push_back(dir.Write(std::to_string(index) + ".pas", text));
  }
  const TRunResult run = RunQuorvaneIntoShortReader(arguments);
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Errors, "");
}

TEST(Check, ShowsProgressOnATerminalAndTakesItAway) {
  const TTempDir dir;
  dir.Write("a.pas", Flawless);
  dir.Write("b.pas", Flawless);
  const TRunResult run = RunQuorvaneOnTerminal({"check", dir.Path("")});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "\r0 of 2 files (0%)\r1 of 2 files (50%)\r\033[K");
}

} // namespace
} // namespace quorvane
