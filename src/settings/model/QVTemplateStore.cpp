// SPDX-License-Identifier: MIT
#include "settings/model/QVTemplateStore.h"

#include "settings/model/QVTemplateExamples.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::string_view fileName = "templates.ini";
constexpr std::string_view codeKey = "code";
constexpr std::string_view blanks = " \t\r\n";
constexpr char breakMark = '\\';

// Unsigned, so that letters beyond ASCII come after the others.
constexpr unsigned char Lower(char c) {
  return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

bool NameLess(std::string_view left, std::string_view right) {
  return std::ranges::lexicographical_compare(left, right, {}, Lower, Lower);
}

std::string WithBreaks(std::string_view stored, std::string_view lineBreak) {
  std::string text;
  text.reserve(stored.size());
  for (const char c : stored) {
    if (c == breakMark)
      text += lineBreak;
    else
      text += c;
  }
  return text;
}

} // namespace

std::string TemplateFileName(const std::optional<std::string>& storageDir, std::string_view programDir) {
  const std::string joined = storageDir.value_or(std::string()).append(fileName);
  return joined.starts_with('/') ? joined : std::string(programDir) + joined;
}

std::string TrimmedTemplateName(std::string_view typed) {
  typed.remove_prefix(std::min(typed.find_first_not_of(blanks), typed.size()));
  return std::string(typed.substr(0, typed.find_last_not_of(blanks) + 1));
}

std::optional<std::string> TemplateNameError(std::string_view name) {
  if (name.empty())
    return "The name of a template cannot be blank.";
  if (name.find_first_of("\r\n") != std::string_view::npos)
    return "The name of a template cannot have a line break.";
  if (name.find(']') != std::string_view::npos)
    return "The name of a template cannot have a \"]\".";
  return std::nullopt;
}

std::string StoredTemplateText(std::string_view text) {
  std::string stored;
  stored.reserve(text.size());
  for (std::size_t index = 0; index < text.size(); ++index) {
    const bool isBreak = text[index] == '\r' || text[index] == '\n';
    stored += isBreak ? breakMark : text[index];
    if (text.substr(index).starts_with("\r\n"))
      ++index;
  }
  return stored;
}

std::string TemplateMemoText(std::string_view stored) {
  return WithBreaks(stored, "\r\n");
}

std::string TemplateExpansionText(std::string_view stored) {
  return WithBreaks(stored, "\r");
}

void TQVTemplateStore::LoadTemplates() {
  names_ = file_.ReadSections();
  std::ranges::sort(names_, NameLess);
}

std::optional<std::size_t> TQVTemplateStore::IndexOf(std::string_view name) const {
  const auto found = std::ranges::lower_bound(names_, name, NameLess);
  if (found == names_.end() || NameLess(name, *found))
    return std::nullopt;
  return static_cast<std::size_t>(found - names_.begin());
}

std::string TQVTemplateStore::GetTemplateContent(std::string_view name) const {
  return file_.ReadString(name, codeKey, {});
}

void TQVTemplateStore::SetTemplateContent(std::string_view name, std::string_view text) {
  file_.WriteString(name, codeKey, StoredTemplateText(text));
}

bool TQVTemplateStore::DiffersFromTemplate(std::string_view name, std::string_view text) const {
  return StoredTemplateText(text) != GetTemplateContent(name);
}

std::string TQVTemplateStore::GetTemplateText(std::string_view name) const {
  return TemplateExpansionText(GetTemplateContent(name));
}

void TQVTemplateStore::AddTemplate(std::string_view name) {
  file_.WriteString(name, codeKey, {});
  LoadTemplates();
}

void TQVTemplateStore::RenameTemplate(std::string_view name, std::string_view newName) {
  file_.WriteString(newName, codeKey, GetTemplateContent(name));
  LoadTemplates();
}

void TQVTemplateStore::DeleteTemplate(std::string_view name) {
  file_.EraseSection(name);
  LoadTemplates();
}

void TQVTemplateStore::AddExamples() {
  LoadTemplates(); // another program may have taken a name meanwhile
  for (const TQVTemplateExample& example : TemplateExamples())
    if (!IsTemplateName(example.Name))
      file_.WriteString(example.Name, codeKey, example.Code);
  LoadTemplates();
}

} // namespace quorvane
