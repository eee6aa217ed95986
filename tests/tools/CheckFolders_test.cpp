// SPDX-License-Identifier: MIT
#include "tools/JsonLines.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

// Ends at once, so each file that is checked is found.
constexpr const char* Wrong = "unit";

std::vector<std::string> FilesOf(const TRunResult& run) {
  std::vector<std::string> files;
  for (const nlohmann::json& finding : JsonLines(run.Output))
    files.push_back(finding["file"]);
  return files;
}

TRunResult CheckIn(const TTempDir& dir, const std::string& name) {
  return RunQuorvaneIn(dir, {"check", "--format", "json", name});
}

TEST(CheckFolders, FindsPascalFilesOfAnyCaseInTheOrderOfTheirNames) {
  const TTempDir dir;
  fs::create_directories(dir.Path("in/deep"));
  for (const char* name : {"in/z.pas", "in/a.PAS", "in/deep/x.pp", "in/deep/y.Dpr", "in/b.dpk", "in/c.txt", "in/pas",
                           "in/.pas", "in/d.pas.bak"})
    dir.Write(name, Wrong);
  const TRunResult run = CheckIn(dir, "in");
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(FilesOf(run),
            (std::vector<std::string>{"in/a.PAS", "in/b.dpk", "in/deep/x.pp", "in/deep/y.Dpr", "in/z.pas"}));
}

TEST(CheckFolders, AFileThatIsNamedMayHaveAnyName) {
  const TTempDir dir;
  dir.Write("c.txt", Wrong);
  EXPECT_EQ(FilesOf(CheckIn(dir, "c.txt")), std::vector<std::string>{"c.txt"});
}

TEST(CheckFolders, AFolderWithoutPascalFilesIsFlawless) {
  const TTempDir dir;
  const TRunResult run = CheckIn(dir, ".");
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "");
}

TEST(CheckFolders, ACycleOfLinksEnds) {
  const TTempDir dir;
  fs::create_directories(dir.Path("in/deep"));
  dir.Write("in/a.pas", Wrong);
  fs::create_directory_symlink(dir.Path("in"), dir.Path("in/deep/up"));
  EXPECT_EQ(FilesOf(CheckIn(dir, "in")), std::vector<std::string>{"in/a.pas"});
}

TEST(CheckFolders, ALinkToAFolderIsWalkedIfItIsNamed) {
  const TTempDir dir;
  fs::create_directories(dir.Path("in"));
  dir.Write("in/a.pas", Wrong);
  fs::create_directory_symlink(dir.Path("in"), dir.Path("link"));
  EXPECT_EQ(FilesOf(CheckIn(dir, "link")), std::vector<std::string>{"link/a.pas"});
}

TEST(CheckFolders, ALinkToAFileIsFollowedAndADeadOneIsNoFile) {
  const TTempDir dir;
  fs::create_directories(dir.Path("in"));
  dir.Write("a.txt", Wrong);
  fs::create_symlink(dir.Path("a.txt"), dir.Path("in/a.pas"));
  fs::create_symlink(dir.Path("none"), dir.Path("in/lock.pas"));
  const TRunResult run = CheckIn(dir, "in");
  EXPECT_EQ(FilesOf(run), std::vector<std::string>{"in/a.pas"});
  EXPECT_EQ(run.Errors, "");
}

TEST(CheckFolders, AFolderThatCannotBeReadIsTroubleAndTheOthersAreChecked) {
  if (RunQuorvaneAsNobody({"--version"}).ExitCode != 0)
    GTEST_SKIP() << "the program lies where only the administrator may go";
  const TTempDir dir;
  fs::create_directories(dir.Path("in/secret"));
  const std::string path = dir.Write("in/z.pas", Wrong);
  fs::permissions(dir.Path("in/secret"), fs::perms::none);
  const TRunResult run = RunQuorvaneAsNobody({"check", "--format", "json", dir.Path("in")});
  fs::permissions(dir.Path("in/secret"), fs::perms::owner_all);
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: " + dir.Path("in/secret") + ": Permission denied\n");
  EXPECT_EQ(FilesOf(run), std::vector<std::string>{path});
}

} // namespace
} // namespace quorvane
