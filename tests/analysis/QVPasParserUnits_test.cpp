// SPDX-License-Identifier: MIT
// Outlines of whole files, held against files that were checked by hand. To write them anew after a change that is
// meant, and then to read what has changed:
//
//   VIRELLE_REWRITE_GOLDEN=1 build/dev/bin/qv_outline_test --gtest_filter='*OutlineOf*'
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

#include "Outlines.h"
#include "support/PascalUnits.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using support::TOutlined;

std::string Section(const char* title, const TQVNameList& names) {
  std::string text = std::string(title) + "\n";
  for (const auto& [name, line] : names)
    text += "  " + std::to_string(line) + " " + std::string(name) + "\n";
  return text;
}

std::string Section(const char* title, const std::vector<std::string>& entries) {
  std::string text = std::string(title) + "\n";
  for (const std::string& entry : entries)
    text += "  " + entry + "\n";
  return text;
}

std::string Lines(const char* title, std::int32_t line, std::int32_t usesLine) {
  return std::string(title) + " " + std::to_string(line) + ", uses " + std::to_string(usesLine) + "\n";
}

// Everything that a parse finds, with all lines and columns from 0, as the outline has them.
std::string Described(const TOutlined& outlined) {
  const TQVPasInfo& info = *outlined.Info;
  return Lines("interface", info.GetInterfaceLine(), info.GetInterfaceUsesLine()) +
         Lines("implementation", info.GetImplementationLine(), info.GetImplementationUsesLine()) +
         Section("interface uses", info.GetInterfaceUses()) +
         Section("implementation uses", info.GetImplementationUses()) + Section("types", info.GetClasses()) +
         Section("routines", info.GetMethods()) + Section("reports", outlined.Reports) + "end " +
         (outlined.Fatal.empty() ? "of the text" : outlined.Fatal) + "\n";
}

// The first line of each file, which tells how to write it anew.
std::string Heading(const std::string& caseName) {
  return "VIRELLE_REWRITE_GOLDEN=1 build/dev/bin/qv_outline_test --gtest_filter='*." + caseName + "'\n";
}

// Compares a description with the one in a file, or writes that file if the environment asks for it.
void CheckGolden(const std::string& description, const fs::path& path) {
  const std::string text = Heading(testing::UnitTest::GetInstance()->current_test_info()->name()) + description;
  if (std::getenv("VIRELLE_REWRITE_GOLDEN") != nullptr) {
    std::ofstream(path, std::ios::binary) << text;
    GTEST_SKIP() << "written: " << path;
  }
  ASSERT_TRUE(fs::exists(path)) << path;
  EXPECT_EQ(support::ReadFile(path), text);
}

const fs::path Folder = fs::path(VIRELLE_TEST_DATA) / "outline";

std::string CaseName(const testing::TestParamInfo<const char*>& info) {
  std::string name = fs::path(info.param).filename().string();
  std::ranges::replace_if(
      name, [](char c) { return c == '.' || c == '-'; }, '_');
  return name;
}

// A file among the test data, with its outline beside it.
class OutlineOfSample : public testing::TestWithParam<const char*> {};

TEST_P(OutlineOfSample, IsAsChecked) {
  const fs::path path = Folder / GetParam();
  ASSERT_TRUE(fs::exists(path)) << path;
  CheckGolden(Described(support::Outlined(support::ReadFile(path))), path.string() + ".outline");
}

INSTANTIATE_TEST_SUITE_P(Samples, OutlineOfSample,
                         testing::Values("Accounts.pas", "Assembled.pas", "Broken.pas", "Bulletin.pas", "Callbacks.pas",
                                         "Conditions.pas", "Cut.pas", "Exporter.dpr", "Figures.pas", "Fragment.inc",
                                         "Headless.pas", "Hinted.pas", "Jumble.pas", "Nested.pas", "Overloads.pas",
                                         "Records.pas", "Services.pas", "Toolbox.dpk", "TurboList.pas", "Wizard.dpr"),
                         CaseName);

// A real unit of the Free Pascal sources.
class OutlineOfRealUnit : public testing::TestWithParam<const char*> {};

TEST_P(OutlineOfRealUnit, IsAsChecked) {
  const fs::path path = fs::path("/usr/share/fpcsrc/3.2.2") / GetParam();
  if (!fs::exists(path))
    GTEST_SKIP() << "not installed: " << path << " of the package fpc-source";
  const fs::path golden = Folder / "fpcsrc" / (path.filename().string() + ".outline");
  CheckGolden(Described(support::Outlined(support::ReadFile(path))), golden);
}

INSTANTIATE_TEST_SUITE_P(Sources, OutlineOfRealUnit,
                         testing::Values("packages/fcl-base/src/base64.pp", "packages/fcl-base/src/cachecls.pp",
                                         "packages/fcl-base/src/csvdocument.pp", "packages/fcl-base/src/custapp.pp",
                                         "packages/fcl-base/src/eventlog.pp", "packages/fcl-base/src/uriparser.pp",
                                         "packages/fcl-image/src/pixtools.pp", "packages/fcl-xml/src/sax.pp",
                                         "packages/fv/src/dialogs.pas", "packages/fv/src/validate.pas",
                                         "packages/pasjpeg/src/jcdctmgr.pas", "packages/rtl-console/src/unix/crt.pp"),
                         CaseName);

} // namespace
} // namespace quorvane
