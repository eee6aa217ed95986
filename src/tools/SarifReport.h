// SPDX-License-Identifier: MIT
// Findings as a SARIF 2.1.0 log, which code hosts and editors read.
#pragma once

#include "tools/CheckReport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// The URI reference of a file's name: absolute names as file:///..., others relative to where the check runs. Standard
// input, which is no file, is "stdin:".
std::string UriOfFile(std::string_view file);

// A text, served or UTF-8, as a message of a log, in which braces stand for arguments and [text](target) for a link:
// those of the text are escaped, so that a reader shows the text as it is.
std::string SarifMessage(std::string_view text);

// One log with one run. Results are written as they come; what is told of the run itself stands behind them.
class TSarifReport : public ICheckReport {
public:
  explicit TSarifReport(TOutput& output) : FOutput(output) {}

  void Start() override;
  void Add(const std::string& file, const TShownFinding& finding) override;
  void Note(const std::string& file, const std::string& text, bool isTrouble) override;
  void Finish() override;

private:
  struct TNote {
    std::string File; // empty for the whole run
    std::string Text;
    bool IsTrouble;
  };

  void AppendNotes(std::string& out) const;

  TOutput& FOutput;
  bool FHasResults = false;
  bool FHasTrouble = false;
  std::vector<TNote> FNotes;
};

} // namespace quorvane
