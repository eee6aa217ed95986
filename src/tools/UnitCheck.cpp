// SPDX-License-Identifier: MIT
#include "tools/UnitCheck.h"

#include "analysis/QVPasInfo.h"
#include "text/LineEnds.h"
#include "tools/Failure.h"
#include "tools/Input.h"
#include "tools/ShownText.h"
#include "tools/UnitParse.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace quorvane {
namespace {

constexpr std::size_t MaxFindings = 10'000;

// A token that is a line break has a negative column on the line that it starts; what of it lies there is its end.
TFinding FindingOf(TSyntaxReport report) {
  TFinding finding;
  finding.Line = report.Y + 1;
  finding.Column = std::max(report.X, 0) + 1;
  finding.Length = std::max(report.TokenLength + std::min(report.X, 0), 0);
  finding.Message = ShortMessage(std::move(report.Msg));
  finding.IsFatal = report.IsFatal;
  return finding;
}

// The index of the first NUL, which a parse takes for the end of the text, if it hides anything. NULs at the very end,
// as blocks of a disk leave them, hide nothing.
std::optional<std::size_t> HidingNul(std::string_view served) {
  const std::size_t position = served.find('\0');
  if (position == std::string_view::npos || served.find_first_not_of('\0', position) == std::string_view::npos)
    return {};
  return position;
}

TFinding HiddenTextFinding(std::string_view served, std::size_t position) {
  const std::string_view before = served.substr(0, position);
  TFinding finding;
  finding.Line = static_cast<std::int32_t>(std::ranges::count(before, '\n')) + 1;
  finding.Column = static_cast<std::int32_t>(position - (before.rfind('\n') + 1)) + 1;
  finding.Length = 1;
  finding.Message = "The text ends at a NUL character; what follows it was not checked";
  finding.IsFatal = true;
  return finding;
}

// Whatever their number, a report that ended the parse is kept, and so is the one on a NUL.
TCheckResult FindingsIn(std::string served) {
  TCheckResult result;
  if (const auto position = HidingNul(served))
    result.Findings.push_back(HiddenTextFinding(served, *position));
  ParseUnit(served, std::make_shared<TQVPasInfo>(), nullptr, [&result](TSyntaxReport report) {
    if (result.Findings.size() < MaxFindings || report.IsFatal)
      result.Findings.push_back(FindingOf(std::move(report)));
    else
      ++result.LeftOut;
  });
  return result;
}

void FitToLine(TFinding& finding, TExcerptLine& line, bool wantsExcerpt) {
  const auto length = static_cast<std::int32_t>(line.Length());
  finding.Column = std::min(finding.Column, length + 1);
  finding.Length = std::min(finding.Length, length + 1 - finding.Column);
  if (wantsExcerpt)
    finding.Excerpt = line.At(static_cast<std::size_t>(finding.Column) - 1, static_cast<std::size_t>(finding.Length));
}

void FitToLines(std::vector<TFinding>& findings, std::u16string_view text, bool wantsExcerpts) {
  const auto place = [](const TFinding& finding) { return std::tie(finding.Line, finding.Column); };
  std::ranges::stable_sort(findings, {}, place);
  auto next = findings.begin();
  std::int32_t number = 1;
  for (const TLine& line : TLines(text)) {
    if (next == findings.end())
      break;
    if (next->Line == number) {
      TExcerptLine excerptLine(line.Text);
      for (; next != findings.end() && next->Line == number; ++next)
        FitToLine(*next, excerptLine, wantsExcerpts);
    }
    ++number;
  }
}

TCheckResult Check(const std::string& file, const TCheckOptions& options) {
  const TDecodedText text = DecodeFile(ReadFile(file), options.EncodingName);
  TCheckResult result = FindingsIn(ServeDecoded(text));
  FitToLines(result.Findings, text.Text, options.WantsExcerpts);
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
