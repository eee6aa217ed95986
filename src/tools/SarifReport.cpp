// SPDX-License-Identifier: MIT
#include "tools/SarifReport.h"

#include "tools/Json.h"

#include <cstddef>

namespace quorvane {
namespace {

constexpr std::string_view Rule = "syntax-error";

// All up to the array of results, which is closed by Finish.
constexpr std::string_view Head =
    R"({"$schema":"https://json.schemastore.org/sarif-2.1.0.json","version":"2.1.0","runs":[{"tool":{"driver":{)"
    R"("name":"quorvane","semanticVersion":")" VIRELLE_VERSION R"(","rules":[{"id":"syntax-error",)"
    R"("shortDescription":{"text":"The source does not fit the grammar of Object Pascal."}}]}},)"
    R"("columnKind":"unicodeCodePoints","results":[)";

bool StandsInUri(char character) {
  constexpr std::string_view Marks = "/-._~";
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || Marks.find(character) != std::string_view::npos;
}

void AddMessage(TJsonObject& object, std::string& out, std::string_view text, bool isServed) {
  object.AddKey("message");
  TJsonObject message(out);
  if (isServed)
    message.Add("text", text);
  else
    message.AddUtf8("text", text);
}

void AddRegion(TJsonObject& place, std::string& out, const TFinding& finding) {
  place.AddKey("region");
  TJsonObject region(out);
  region.Add("startLine", finding.Line);
  region.Add("startColumn", finding.Column);
  region.Add("endColumn", finding.Column + finding.Length);
}

// One location: a file and, where there is one, a place in it.
void AddLocations(TJsonObject& object, std::string& out, std::string_view file, const TFinding* finding) {
  object.AddKey("locations");
  out += '[';
  {
    TJsonObject location(out);
    location.AddKey("physicalLocation");
    TJsonObject place(out);
    place.AddKey("artifactLocation");
    {
      TJsonObject artifact(out);
      artifact.Add("uri", UriOfFile(file));
    }
    if (finding)
      AddRegion(place, out, *finding);
  }
  out += ']';
}

} // namespace

std::string UriOfFile(std::string_view file) {
  constexpr std::string_view HexDigits = "0123456789ABCDEF";
  std::string uri = file.starts_with('/') ? "file://" : "";
  for (const char character : file) {
    if (StandsInUri(character)) {
      uri += character;
      continue;
    }
    const auto byte = static_cast<unsigned char>(character);
    uri += '%';
    uri += HexDigits[byte >> 4];
    uri += HexDigits[byte & 0xF];
  }
  return uri;
}

void TSarifReport::Start() {
  FOutput.Line() += Head;
  FOutput.EndLine();
}

void TSarifReport::Add(const std::string& file, const TFinding& finding) {
  std::string& out = FOutput.Line();
  if (FHasResults)
    out += ',';
  FHasResults = true;
  {
    TJsonObject result(out);
    result.Add("ruleId", Rule);
    result.Add("ruleIndex", 0);
    result.Add("level", "error");
    AddMessage(result, out, finding.Message, true);
    AddLocations(result, out, file, &finding);
  }
  FOutput.EndLine();
}

void TSarifReport::Note(const std::string& file, const std::string& text, bool isTrouble) {
  FNotes.push_back({file, text, isTrouble});
  FHasTrouble |= isTrouble;
}

void TSarifReport::AppendNotes(std::string& out) const {
  out += '[';
  for (const TNote& note : FNotes) {
    if (&note != &FNotes.front())
      out += ',';
    TJsonObject object(out);
    object.Add("level", note.IsTrouble ? "error" : "warning");
    AddMessage(object, out, note.Text, false);
    AddLocations(object, out, note.File, nullptr);
  }
  out += ']';
}

void TSarifReport::Finish() {
  std::string& out = FOutput.Line();
  out += R"(],"invocations":[)";
  {
    TJsonObject invocation(out);
    invocation.AddBool("executionSuccessful", !FHasTrouble);
    invocation.AddKey("toolExecutionNotifications");
    AppendNotes(out);
  }
  out += "]}]}";
  FOutput.EndLine();
}

} // namespace quorvane
