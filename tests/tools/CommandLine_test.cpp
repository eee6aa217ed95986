// SPDX-License-Identifier: MIT
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace quorvane {
namespace {

constexpr const char* EmptyText = R"({"kind":"ptNull","ex":"ptUnknown","pos":0,"len":0,"line":0,"col":0})"
                                  "\n";

TEST(CommandLine, HelpNamesTheCommands) {
  const TRunResult run = RunQuorvane({"--help"});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  for (const char* command : {"check", "outline", "messages", "tokens", "blocks"})
    EXPECT_NE(run.Output.find(std::string("\n  ") + command + " "), std::string::npos) << command;
}

TEST(CommandLine, HelpTellsTheExitCodes) {
  const TRunResult run = RunQuorvane({"--help"});
  EXPECT_NE(run.Output.find("Exit code: 0 done, 1 a check found errors, 2 something"), std::string::npos) << run.Output;
}

TEST(CommandLine, EachCommandHasHelpOfItsOwn) {
  for (const char* command : {"messages", "tokens", "blocks"}) {
    const TRunResult run = RunQuorvane({command, "--help"});
    EXPECT_EQ(run.ExitCode, 0);
    EXPECT_NE(run.Output.find("--decode"), std::string::npos);
    EXPECT_NE(run.Output.find("give one FILE a\ncall."), std::string::npos) << run.Output;
  }
}

TEST(CommandLine, CommandsForPeopleAlwaysDecode) {
  for (const char* command : {"check", "outline"}) {
    const TRunResult run = RunQuorvane({command, "--help"});
    EXPECT_EQ(run.ExitCode, 0);
    EXPECT_EQ(run.Output.find("--decode"), std::string::npos);
    EXPECT_NE(run.Output.find("--encoding"), std::string::npos);
  }
}

TEST(CommandLine, VersionIsTheProjects) {
  const TRunResult run = RunQuorvane({"--version"});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, "quorvane " VIRELLE_VERSION "\n");
}

TEST(CommandLine, WithoutACommandItSaysSo) {
  const TRunResult run = RunQuorvane({});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "quorvane: A subcommand is required\nTry quorvane --help.\n");
}

TEST(CommandLine, ACommandWithoutFilesIsRefused) {
  const TRunResult run = RunQuorvane({"tokens"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: FILE is required\nTry quorvane --help.\n");
}

TEST(CommandLine, AnUnknownCommandIsNamed) {
  const TRunResult run = RunQuorvane({"chek", "a.pas"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "quorvane: unknown command chek\nTry quorvane --help.\n");
}

TEST(CommandLine, AnUnknownOptionIsNamedWithAndWithoutAFile) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"tokens", "--decod"}, {"tokens", "--decod", "-"}, {"--decod", "tokens", "-"}}) {
    const TRunResult run = RunQuorvane(arguments);
    EXPECT_EQ(run.ExitCode, 2);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Errors, "quorvane: unknown option --decod\nTry quorvane --help.\n");
  }
}

TEST(CommandLine, AComplaintCannotDisturbATerminal) {
  EXPECT_EQ(RunQuorvane({"\033[2J"}).Errors, "quorvane: unknown command \xE2\x90\x9B[2J\nTry quorvane --help.\n");
}

TEST(CommandLine, StandardInputCanBeNamedOnce) {
  for (const char* command : {"check", "outline", "messages", "tokens", "blocks"}) {
    const TRunResult run = RunQuorvane({command, "-", "-"});
    EXPECT_EQ(run.ExitCode, 2) << command;
    EXPECT_EQ(run.Output, "") << command;
    EXPECT_EQ(run.Errors, "quorvane: FILE: standard input is given more than once\nTry quorvane --help.\n") << command;
  }
}

TEST(CommandLine, AnUnknownEncodingIsRefused) {
  const TRunResult run = RunQuorvane({"tokens", "--decode", "--encoding", "klingon", "-"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: --encoding: unknown encoding klingon\nTry quorvane --help.\n");
}

TEST(CommandLine, AnEncodingWithoutDecodingIsRefused) {
  const TRunResult run = RunQuorvane({"tokens", "--encoding", "utf-8", "-"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: --encoding requires --decode\nTry quorvane --help.\n");
}

TEST(CommandLine, AMissingFileIsReported) {
  const TTempDir dir;
  const TRunResult run = RunQuorvane({"tokens", dir.Path("none.pas")});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "quorvane: " + dir.Path("none.pas") + ": No such file or directory\n");
}

TEST(CommandLine, AFolderIsReported) {
  for (const char* command : {"outline", "messages", "tokens", "blocks"}) {
    const TRunResult run = RunQuorvane({command, "/"});
    EXPECT_EQ(run.ExitCode, 2) << command;
    EXPECT_EQ(run.Output, "") << command;
    EXPECT_EQ(run.Errors, "quorvane: /: Is a directory\n") << command;
  }
}

TEST(CommandLine, AFileWithoutPermissionIsReported) {
  if (RunQuorvaneAsNobody({"--version"}).ExitCode != 0)
    GTEST_SKIP() << "the program lies where only the administrator may go";
  const TTempDir dir;
  const std::string path = dir.Write("secret.pas", "begin");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const TRunResult run = RunQuorvaneAsNobody({"tokens", path});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: " + path + ": Permission denied\n");
}

TEST(CommandLine, TheOtherFilesAreStillDone) {
  const TTempDir dir;
  const std::string empty = dir.Write("empty.pas", "");
  const TRunResult run = RunQuorvane({"tokens", empty, dir.Path("none.pas"), empty});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Output, std::string(EmptyText) + EmptyText);
  EXPECT_EQ(run.Errors, "quorvane: " + dir.Path("none.pas") + ": No such file or directory\n");
}

// Each name is given as it would be typed in the folder of the file; the files beside it must stay unread.
TEST(CommandLine, ANameInBracketsIsOneFile) {
  const TTempDir dir;
  for (const char* name : {"a", "b", "x"})
    dir.Write(name, ";;");
  for (const char* name : {"[x]", "[a,b]", "[]"}) {
    dir.Write(name, "");
    const TRunResult run = RunQuorvaneIn(dir, {"tokens", name, name});
    EXPECT_EQ(run.ExitCode, 0) << name;
    EXPECT_EQ(run.Output, std::string(EmptyText) + EmptyText) << name;
    EXPECT_EQ(run.Errors, "") << name;
  }
}

TEST(CommandLine, WhatFollowsTwoDashesIsAFile) {
  const TTempDir dir;
  dir.Write("--decode", "");
  const TRunResult run = RunQuorvaneIn(dir, {"tokens", "--", "--decode"});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, EmptyText);
}

TEST(CommandLine, AFileAndStandardInputGiveTheSame) {
  const TTempDir dir;
  const std::string text = "begin (x) end.\r\n";
  EXPECT_EQ(RunQuorvane({"tokens", dir.Write("a.pas", text)}).Output, RunQuorvane({"tokens", "-"}, text).Output);
}

TEST(CommandLine, AReaderThatGoesAwayEndsItQuietly) {
  const TTempDir dir;
  // Far more output than a pipe holds.
  const std::string path = dir.Write("long.pas", std::string(100'000, ';'));
  const TRunResult run = RunQuorvaneIntoShortReader({"tokens", path});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Output.size(), 100U);
}

TEST(CommandLine, AFullDiskIsReported) {
  const TTempDir dir;
  for (const std::size_t size : {0U, 100'000U}) {
    const TRunResult run = RunQuorvaneInto("/dev/full", {"tokens", dir.Write("a.pas", std::string(size, ';'))});
    EXPECT_EQ(run.ExitCode, 2);
    EXPECT_EQ(run.Errors, "quorvane: standard output: No space left on device\n");
  }
}

TEST(CommandLine, AFullDiskIsReportedForHelpAndVersionToo) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"--help"}, {"--version"}, {"tokens", "--help"}}) {
    const TRunResult run = RunQuorvaneInto("/dev/full", arguments);
    EXPECT_EQ(run.ExitCode, 2);
    EXPECT_EQ(run.Errors, "quorvane: standard output: No space left on device\n");
  }
}

TEST(CommandLine, ALongTextIsWrittenWhole) {
  const TRunResult run = RunQuorvane({"tokens", "-"}, std::string(200'000, ';'));
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(std::count(run.Output.begin(), run.Output.end(), '\n'), 200'001);
  EXPECT_TRUE(run.Output.ends_with("\n"));
}

} // namespace
} // namespace quorvane
