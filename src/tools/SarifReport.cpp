// SPDX-License-Identifier: MIT
#include "tools/SarifReport.h"

#include "tools/Input.h"
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
  const std::string escaped = SarifMessage(text);
  if (isServed)
    message.Add("text", escaped);
  else
    message.AddUtf8("text", escaped);
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

// The format has no word for it, but a place for what is a tool's own.
void AddFatalMark(TJsonObject& result, std::string& out) {
  result.AddKey("properties");
  TJsonObject(out).AddBool("fatal", true);
}

} // namespace

std::string UriOfFile(std::string_view file) {
  constexpr std::string_view HexDigits = "0123456789ABCDEF";
  if (file == StandardInput)
    return "stdin:";
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

// Backslashes escape the brackets of a link only; without a link they and the brackets are characters like any other.
std::string SarifMessage(std::string_view text) {
  constexpr std::string_view Doubled = "{}";
  constexpr std::string_view Escaped = "\\[]";
  const bool hasLink = text.find("](") != std::string_view::npos;
  std::string message;
  for (const char character : text) {
    if (Doubled.find(character) != std::string_view::npos)
      message += character;
    else if (hasLink && Escaped.find(character) != std::string_view::npos)
      message += '\\';
    message += character;
  }
  return message;
}

void TSarifReport::Start() {
  FOutput.Line() += Head;
  FOutput.EndLine();
}

void TSarifReport::Add(const std::string& file, const TShownFinding& finding) {
  std::string& out = FOutput.Line();
  if (FHasResults)
    out += ',';
  {
    TJsonObject result(out);
    result.Add("ruleId", Rule);
    result.Add("ruleIndex", 0);
    result.Add("level", "error");
    AddMessage(result, out, finding.Message, true);
    AddLocations(result, out, file, &finding);
    if (finding.IsFatal)
      AddFatalMark(result, out);
  }
  FOutput.EndLine();
  FHasResults = true;
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
    if (!note.File.empty())
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
