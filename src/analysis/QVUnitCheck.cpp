// SPDX-License-Identifier: MIT
#include "analysis/QVUnitCheck.h"

#include "analysis/QVPasInfo.h"
#include "analysis/QVUnitParse.h"
#include "text/ServedText.h"
#include "text/ShownText.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace quorvane {
namespace {

constexpr std::size_t MaxFindings = 10'000;

// A thread without a caret or an editor, that may be asked to end.
class TCheckThread : public IQVParseThread {
public:
  explicit TCheckThread(const std::stop_token& stop) : FStop(stop) {}

  std::int32_t CaretPos() const override { return -1; }
  std::int32_t StillCount() const override { return 0; }
  bool IsEnding() const override { return FStop.stop_requested(); }
  void Synchronize(const std::function<void()>& call) override { call(); }
  void UnderlineErr(std::int32_t, std::int32_t, std::int32_t) override {}
  void ShowMessage(const std::string&) override {}

private:
  const std::stop_token& FStop;
};

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

void FitToLine(TFinding& finding, std::int32_t length) {
  finding.Column = std::min(finding.Column, length + 1);
  finding.Length = std::min(finding.Length, length + 1 - finding.Column);
}

void FitToLines(std::vector<TFinding>& findings, std::string_view served) {
  std::int32_t number = 1;
  std::size_t start = 0;
  for (TFinding& finding : findings) {
    std::size_t end = served.find(ServedLineEnd, start);
    for (; number < finding.Line && end != std::string_view::npos; ++number) {
      start = end + ServedLineEnd.size();
      end = served.find(ServedLineEnd, start);
    }
    if (number == finding.Line)
      FitToLine(finding, static_cast<std::int32_t>(std::min(end, served.size()) - start));
  }
}

} // namespace

// Whatever their number, a report that ended the parse is kept, and so is the one on a NUL.
TFindings FindingsIn(std::string served, const std::stop_token& stop) {
  TFindings result;
  std::vector<TFinding>& findings = result.Findings;
  if (const auto position = HidingNul(served))
    findings.push_back(HiddenTextFinding(served, *position));
  TCheckThread thread(stop);
  const std::size_t length = served.size(); // the parse puts a NUL behind it
  ParseUnit(served, std::make_shared<TQVPasInfo>(), &thread, [&](TSyntaxReport report) {
    if (findings.size() < MaxFindings || report.IsFatal)
      findings.push_back(FindingOf(std::move(report)));
    else
      ++result.LeftOut;
  });
  std::ranges::stable_sort(findings, {},
                           [](const TFinding& finding) { return std::tie(finding.Line, finding.Column); });
  FitToLines(findings, std::string_view(served).substr(0, length));
  return result;
}

} // namespace quorvane
