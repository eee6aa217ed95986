// SPDX-License-Identifier: MIT
#include "tools/SarifReport.h"

#include "tools/Process.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace quorvane {
namespace {

using nlohmann::json;

json Log(const TRunResult& run) {
  return json::parse(run.Output);
}

TEST(Sarif, OfAFlawlessFileIsALogWithOneRunAndNoResult) {
  const TRunResult run = RunQuorvane({"check", "--format", "sarif", "-"}, "unit u; interface implementation end.");
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(Log(run), json::parse(R"({
    "$schema": "https://json.schemastore.org/sarif-2.1.0.json",
    "version": "2.1.0",
    "runs": [{
      "tool": {"driver": {
        "name": "quorvane",
        "semanticVersion": ")" VIRELLE_VERSION R"(",
        "rules": [{
          "id": "syntax-error",
          "shortDescription": {"text": "The source does not fit the grammar of Object Pascal."}
        }]
      }},
      "columnKind": "unicodeCodePoints",
      "results": [],
      "invocations": [{"executionSuccessful": true, "toolExecutionNotifications": []}]
    }]
  })"));
}

TEST(Sarif, HasAResultForEachFinding) {
  const TTempDir dir;
  dir.Write("a b.pas", "program p;\nbegin\nif '\xC3\xA9' whenever;\nif b c;\nend.");
  const TRunResult run = RunQuorvaneIn(dir, {"check", "--format", "sarif", "a b.pas"});
  EXPECT_EQ(run.ExitCode, 1);
  const json results = Log(run)["runs"][0]["results"];
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[0], json::parse(R"({
    "ruleId": "syntax-error",
    "ruleIndex": 0,
    "level": "error",
    "message": {"text": "Expected 'Then' found 'whenever'"},
    "locations": [{"physicalLocation": {
      "artifactLocation": {"uri": "a%20b.pas"},
      "region": {"startLine": 3, "startColumn": 8, "endColumn": 16}
    }}]
  })"));
  EXPECT_EQ(results[1]["locations"][0]["physicalLocation"]["region"]["startLine"], 4);
}

TEST(Sarif, NamesWhatCouldNotBeChecked) {
  const TTempDir dir;
  dir.Write("a.pas", "unit");
  const TRunResult run = RunQuorvaneIn(dir, {"check", "--format", "sarif", "none.pas", "a.pas"});
  EXPECT_EQ(run.ExitCode, 2);
  const json log = Log(run)["runs"][0];
  EXPECT_EQ(log["results"].size(), 1U);
  EXPECT_EQ(log["invocations"], json::parse(R"([{
    "executionSuccessful": false,
    "toolExecutionNotifications": [{
      "level": "error",
      "message": {"text": "No such file or directory"},
      "locations": [{"physicalLocation": {"artifactLocation": {"uri": "none.pas"}}}]
    }]
  }])"));
}

TEST(Sarif, SaysThatErrorsAreLeftOut) {
  std::string text = "program p; begin ";
  for (int count = 0; count < 10'001; ++count)
    text += "if a b; ";
  const json log = Log(RunQuorvane({"check", "--format", "sarif", "-"}, text + "end."))["runs"][0];
  EXPECT_EQ(log["results"].size(), 10'000U);
  EXPECT_EQ(log["invocations"][0]["executionSuccessful"], true);
  EXPECT_EQ(log["invocations"][0]["toolExecutionNotifications"][0]["level"], "warning");
}

TEST(Sarif, MarksTheErrorThatEndedTheParse) {
  const json results =
      Log(RunQuorvane({"check", "--format", "sarif", "-"}, "program p; begin if a b;"))["runs"][0]["results"];
  ASSERT_EQ(results.size(), 2U);
  EXPECT_FALSE(results[0].contains("properties"));
  EXPECT_EQ(results[1].at("properties"), json::parse(R"({"fatal": true})"));
}

TEST(Sarif, NamesStandardInputByAnAddressThatIsNoFile) {
  const json result = Log(RunQuorvane({"check", "--format", "sarif", "-"}, "unit"))["runs"][0]["results"][0];
  EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], "stdin:");
}

TEST(Sarif, NamesFilesWithControlCharacters) {
  const TTempDir dir;
  dir.Write("a\n\033.pas", "unit");
  const json result = Log(RunQuorvaneIn(dir, {"check", "--format", "sarif", "a\n\033.pas"}))["runs"][0]["results"][0];
  EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], "a%0A%1B.pas");
}

TEST(Sarif, HasNoArgumentsAndLinksInItsMessages) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"found '{'", "found '{{'"},
      {"found '{0}'", "found '{{0}}'"},
      {"found '['", "found '['"},
      {"found 'a\\b[1]'", "found 'a\\b[1]'"},
      {"found '[a](b)'", "found '\\[a\\](b)'"},
      {"found '[a\\](b)'", "found '\\[a\\\\\\](b)'"},
  };
  for (const auto& [text, message] : cases)
    EXPECT_EQ(SarifMessage(text), message);
}

TEST(Sarif, EscapesTheMessagesOfFindings) {
  const json result = Log(RunQuorvane({"check", "--format", "sarif", "-"},
                                      "program p; begin if a '{[a](b)}'; end."))["runs"][0]["results"][0];
  EXPECT_EQ(result["message"]["text"], "Expected 'Then' found ''{{\\[a\\](b)}}''");
}

struct TUriCase {
  std::string File;
  std::string Uri;
};

TEST(Sarif, NamesFilesByUri) {
  const std::vector<TUriCase> cases = {{"a.pas", "a.pas"},
                                       {"../a_b/c-d~1.pas", "../a_b/c-d~1.pas"},
                                       {"/tmp/a.pas", "file:///tmp/a.pas"},
                                       {"a:b?#%.pas", "a%3Ab%3F%23%25.pas"},
                                       {"\xC3\xA9\xFF", "%C3%A9%FF"},
                                       {"-", "stdin:"},
                                       {"./-", "./-"}};
  for (const TUriCase& row : cases)
    EXPECT_EQ(UriOfFile(row.File), row.Uri);
}

} // namespace
} // namespace quorvane
