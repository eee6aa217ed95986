// SPDX-License-Identifier: MIT
#include "tools/UnitCheck.h"

#include "analysis/QVPasInfo.h"
#include "text/LineEnds.h"
#include "tools/Input.h"
#include "tools/UnitParse.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <string_view>
#include <system_error>
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
  finding.Message = std::move(report.Msg);
  finding.IsFatal = report.IsFatal;
  return finding;
}

// A report that ended the parse is kept whatever the number.
TCheckResult FindingsIn(std::string served) {
  TCheckResult result;
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
  TCheckResult result;
  try {
    result = Check(file, options);
  } catch (const std::system_error& error) {
    result.Trouble = error.code().message();
  } catch (const std::bad_alloc&) {
    result.Trouble = "Out of memory";
  } catch (const std::exception& error) {
    result.Trouble = error.what();
  }
  return result;
}

} // namespace quorvane
