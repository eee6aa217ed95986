// SPDX-License-Identifier: MIT
#include "tools/OutlineText.h"

#include "text/ShownText.h"
#include "tools/Json.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvane {
namespace {

// Appends `[a,b,...]`, each item by `append`.
template <typename TItems, typename TAppend>
void AppendArray(const TItems& items, std::string& out, const TAppend& append) {
  char separator = '[';
  for (const auto& item : items) {
    out += separator;
    append(item);
    separator = ',';
  }
  out += items.empty() ? "[]" : "]";
}

void AddNames(TJsonObject& object, std::string_view key, const TQVNameList& names, std::string& line) {
  object.AddKey(key);
  AppendArray(names, line, [&line](const auto& entry) {
    line += '[';
    AppendJsonString(entry.first, line);
    line += ',';
    AppendJsonNumber(entry.second, line);
    line += ']';
  });
}

void AddUses(TJsonObject& object, std::string_view key, const std::vector<std::string>& units, std::string& line) {
  object.AddKey(key);
  AppendArray(units, line, [&line](const std::string& unit) { AppendJsonString(unit, line); });
}

// The lines of a tree, each written at the depth it is given.
class TTree {
public:
  explicit TTree(TOutput& output) : FOutput(output) {}

  void Add(std::size_t depth, std::string_view text) {
    FOutput.Line().append(2 * depth, ' ') += text;
    FOutput.EndLine();
  }

  // A text with its line, which the outline counts from 0 and has as -1 where there is none.
  void Add(std::size_t depth, std::string_view text, std::int32_t line) {
    std::string& out = FOutput.Line();
    out.append(2 * depth, ' ') += text;
    if (line >= 0) {
      out += " (line ";
      AppendJsonNumber(line + 1, out);
      out += ')';
    }
    FOutput.EndLine();
  }

private:
  TOutput& FOutput;
};

void AddSection(TTree& tree, std::string_view name, std::int32_t line, const std::vector<std::string>& units,
                std::int32_t usesLine) {
  if (line < 0 && usesLine < 0)
    return;
  tree.Add(1, name, line);
  if (usesLine < 0)
    return;
  tree.Add(2, "uses", usesLine);
  for (const std::string& unit : units)
    tree.Add(3, ShownServed(unit));
}

void AddNames(TTree& tree, std::string_view title, const TQVNameList& names) {
  if (names.empty())
    return;
  tree.Add(1, title);
  for (const auto& [name, line] : names)
    tree.Add(2, ShownServed(name), line);
}

// The path of the classes, where there is one, stands before that of the routines.
std::string CaretText(const IQVPasInfo& info) {
  if (info.GetCurrentProc().empty())
    return "the caret is in no routine";
  std::string path = info.GetCurrentClass();
  if (!path.empty())
    path += '.';
  return "the caret is in " + ShownServed(path + info.GetCurrentProc());
}

} // namespace

void WriteOutlineAsJson(const TFileOutline& outline, TOutput& output) {
  const IQVPasInfo& info = *outline.Info;
  std::string& line = output.Line();
  {
    TJsonObject object(line);
    object.AddUtf8("file", outline.File);
    AddNames(object, "classes", info.GetClasses(), line);
    AddNames(object, "methods", info.GetMethods(), line);
    AddUses(object, "interfaceUses", info.GetInterfaceUses(), line);
    AddUses(object, "implementationUses", info.GetImplementationUses(), line);
    object.Add("interfaceLine", info.GetInterfaceLine());
    object.Add("implementationLine", info.GetImplementationLine());
    object.Add("interfaceUsesLine", info.GetInterfaceUsesLine());
    object.Add("implementationUsesLine", info.GetImplementationUsesLine());
    object.Add("currentClass", info.GetCurrentClass());
    object.Add("currentProc", info.GetCurrentProc());
    if (outline.Fatal)
      object.Add("fatal", *outline.Fatal);
    else
      object.AddNull("fatal");
  }
  output.EndLine();
}

void WriteOutlineAsTree(const TFileOutline& outline, TOutput& output) {
  const IQVPasInfo& info = *outline.Info;
  TTree tree(output);
  tree.Add(0, ShownName(outline.File));
  AddSection(tree, "interface", info.GetInterfaceLine(), info.GetInterfaceUses(), info.GetInterfaceUsesLine());
  AddSection(tree, "implementation", info.GetImplementationLine(), info.GetImplementationUses(),
             info.GetImplementationUsesLine());
  AddNames(tree, "classes", info.GetClasses());
  AddNames(tree, "methods", info.GetMethods());
  if (outline.HasCaret)
    tree.Add(1, CaretText(info));
  if (outline.Fatal)
    tree.Add(1, "ended early: " + ShownServed(ShortMessage(*outline.Fatal)));
}

} // namespace quorvane
