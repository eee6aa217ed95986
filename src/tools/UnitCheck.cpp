// SPDX-License-Identifier: MIT
#include "tools/UnitCheck.h"

#include "text/LineEnds.h"
#include "tools/Failure.h"
#include "tools/Input.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace quorvane {
namespace {

void AddExcerpts(std::vector<TShownFinding>& findings, std::u16string_view text) {
  auto next = findings.begin();
  std::int32_t number = 1;
  for (const TLine& line : TLines(text)) {
    if (next == findings.end())
      break;
    if (next->Line == number) {
      TExcerptLine excerptLine(line.Text);
      for (; next != findings.end() && next->Line == number; ++next)
        next->Excerpt =
            excerptLine.At(static_cast<std::size_t>(next->Column) - 1, static_cast<std::size_t>(next->Length));
    }
    ++number;
  }
}

TCheckResult Check(const std::string& file, const TCheckOptions& options) {
  const TDecodedText text = DecodeFile(ReadFile(file), options.EncodingName);
  TFindings found = FindingsIn(ServeDecoded(text));
  TCheckResult result;
  result.LeftOut = found.LeftOut;
  for (TFinding& finding : found.Findings)
    result.Findings.push_back({std::move(finding), {}});
  if (options.WantsExcerpts)
    AddExcerpts(result.Findings, text.Text);
  return result;
}

} // namespace

TCheckResult CheckFile(const std::string& file, const TCheckOptions& options) noexcept {
  try {
    return Check(file, options);
  } catch (...) {
    TCheckResult result;
    result.Trouble = FailureReason();
    return result;
  }
}

} // namespace quorvane
