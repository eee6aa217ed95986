// SPDX-License-Identifier: MIT
// What becomes of a run to which the system gives too little.
#include "tools/JsonLines.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace quorvane {
namespace {

using TArguments = std::vector<std::string>;

const std::string Deep = "program p; begin x := " + std::string(1'000'000, '(');

class MemoryLimit : public testing::TestWithParam<const char*> {};

// The large file takes no space on the disk.
TEST_P(MemoryLimit, OfOneFileSparesTheOthers) {
  if (VIRELLE_IS_SANITIZED)
    GTEST_SKIP() << "sanitizers reserve more memory than there is";
  const TTempDir dir;
  const std::string small = dir.Write("small.pas", "unit begin (x) end");
  const std::string large = dir.Write("large.pas", "");
  std::filesystem::resize_file(large, std::uintmax_t{1024} * 1024 * 1024);
  const std::string alone = RunQuorvane({GetParam(), small}).Output;
  const TRunResult run = RunQuorvaneWithin("--as=419430400", {GetParam(), small, large, small});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Output, alone + alone);
  EXPECT_EQ(run.Errors, "quorvane: " + large + ": Out of memory\n");
}

INSTANTIATE_TEST_SUITE_P(Commands, MemoryLimit, testing::Values("check", "outline", "messages", "tokens", "blocks"),
                         [](const auto& test) { return std::string(test.param); });

TEST(StackLimit, DoesNotBoundTheDepthOfAParse) {
  for (const char* command : {"check", "outline", "messages"}) {
    const TRunResult run = RunQuorvaneWithin("--stack=262144", {command, "-"}, Deep);
    EXPECT_NE(run.ExitCode, -1) << command;
    EXPECT_NE(run.Output.find("Nested more than 4000 levels deep"), std::string::npos) << command << run.Errors;
  }
}

class ThreadLimit : public testing::Test {
protected:
  // A sanitizer may have a thread of its own, which is started before all others.
  static constexpr int ForTheProgram = VIRELLE_IS_SANITIZED ? 3 : 2;

  void SetUp() override {
    if (geteuid() != 0)
      GTEST_SKIP() << "only the administrator can become a user without threads";
    if (RunQuorvaneWithThreads(100, {"--version"}).ExitCode != 0)
      GTEST_SKIP() << "the program lies where only the administrator may go";
  }

  // A command line that checks many files in as many threads.
  TArguments CheckOfMany(const TArguments& options) const {
    TArguments arguments = {"check", "--jobs", "64"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), 64, FWrong);
    return arguments;
  }

private:
  TTempDir FDir;
  std::string FWrong = FDir.Write("a.pas", "unit");
};

TEST_F(ThreadLimit, IsNoTroubleWhileAThreadIsAtWork) {
  const TRunResult run = RunQuorvaneWithThreads(ForTheProgram + 1, CheckOfMany({"--format", "json"}));
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(JsonLines(run.Output).size(), 64U);
}

TEST_F(ThreadLimit, ThatAllowsNoneIsTroubleOfTheWholeRun) {
  if (VIRELLE_IS_SANITIZED)
    GTEST_SKIP() << "which threads a sanitizer has differs";
  const TRunResult run = RunQuorvaneWithThreads(ForTheProgram, CheckOfMany({"--format", "sarif"}));
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: Resource temporarily unavailable\n");
  const auto log = nlohmann::json::parse(run.Output)["runs"][0];
  EXPECT_EQ(log["results"], nlohmann::json::array());
  EXPECT_EQ(log["invocations"], nlohmann::json::parse(R"([{
    "executionSuccessful": false,
    "toolExecutionNotifications": [{
      "level": "error",
      "message": {"text": "Resource temporarily unavailable"}
    }]
  }])"));
}

} // namespace
} // namespace quorvane
