// SPDX-License-Identifier: MIT
#include "tools/CheckReport.h"

#include "text/ShownText.h"
#include "tools/Json.h"
#include "tools/SarifReport.h"

namespace quorvane {
namespace {

class TTextReport : public ICheckReport {
public:
  explicit TTextReport(TOutput& output) : FOutput(output) {}

  void Add(const std::string& file, const TShownFinding& finding) override {
    FOutput.Line() += ShownName(file);
    FOutput.Line() += ':' + std::to_string(finding.Line) + ':' + std::to_string(finding.Column) + ": error: ";
    Write(ShownServed(finding.Message));
    Write(finding.Excerpt.Source);
    Write(finding.Excerpt.Marks);
  }

private:
  void Write(const std::string& line) {
    FOutput.Line() += line;
    FOutput.EndLine();
  }

  TOutput& FOutput;
};

class TJsonReport : public ICheckReport {
public:
  explicit TJsonReport(TOutput& output) : FOutput(output) {}

  void Add(const std::string& file, const TShownFinding& finding) override {
    {
      TJsonObject object(FOutput.Line());
      object.AddUtf8("file", file);
      object.Add("line", finding.Line);
      object.Add("column", finding.Column);
      object.Add("length", finding.Length);
      object.Add("message", finding.Message);
      if (finding.IsFatal)
        object.AddBool("fatal", true);
    }
    FOutput.EndLine();
  }

private:
  TOutput& FOutput;
};

} // namespace

std::unique_ptr<ICheckReport> MakeCheckReport(TCheckFormat format, TOutput& output) {
  switch (format) {
  case TCheckFormat::Json:
    return std::make_unique<TJsonReport>(output);
  case TCheckFormat::Sarif:
    return std::make_unique<TSarifReport>(output);
  case TCheckFormat::Text:
    break;
  }
  return std::make_unique<TTextReport>(output);
}

} // namespace quorvane
