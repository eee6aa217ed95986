// SPDX-License-Identifier: MIT
// The store of code templates: named pieces of source text in an INI file. A template is a section whose name is the
// template's; its only key, "code", holds the text on one line, every line break as one backslash:
//
//   [beg]
//   code=begin\end;
//
// So a text cannot hold a backslash of its own: when it is read, each one becomes a line break. That is the rule of the
// format.
//
// All texts are UTF-8. Names are compared without regard to the case of ASCII letters; other letters must match as they
// are. The text before the caret that is looked up as a name consists of ASCII letters, digits and "_" only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// What the templates need of their file. Sections and keys are compared without case; strings are UTF-8 without line
// breaks and keep blanks at both ends. A write is in the file when the call returns. What an implementation throws
// passes through to the caller.
class IQVTemplateFile {
public:
  virtual ~IQVTemplateFile() = default;

  // The names of all sections as the file is now, each once, in its order. Other programs' changes are seen by this
  // call and by the reads that follow it.
  virtual std::vector<std::string> ReadSections() = 0;
  // The value of a key, or `defaultValue` if there is no such key.
  virtual std::string ReadString(std::string_view section, std::string_view key, std::string_view defaultValue) = 0;
  // Writes a value; section and key are made if they are missing.
  virtual void WriteString(std::string_view section, std::string_view key, std::string_view value) = 0;
  // Takes away a section with all its keys. A missing one is none the less away.
  virtual void EraseSection(std::string_view section) = 0;
};

// Where the templates are: "templates.ini" put behind `storageDir` as it stands, without a separator, so that a
// directory without one at its end gives the start of the file's name ("/home/me/my" means /home/me/mytemplates.ini).
// This is intended. A result that is not absolute counts from `programDir`, never from the working directory; a
// backslash is a character like any other. Without a directory in the settings: the file in `programDir`, which ends in
// "/".
std::string TemplateFileName(const std::optional<std::string>& storageDir, std::string_view programDir);

// What a user has typed as a template's name, without blanks and line breaks around it.
std::string TrimmedTemplateName(std::string_view typed);

// Why a trimmed name cannot be a template's, as a sentence for the user; none if it can.
std::optional<std::string> TemplateNameError(std::string_view name);

// A text with line breaks as its stored value. A line break is CR LF as the editor's memo has it; a CR or an LF alone,
// which no line of the file could hold, counts as one too.
std::string StoredTemplateText(std::string_view text);
// A stored value as text for the memo: every "\" is CR LF.
std::string TemplateMemoText(std::string_view stored);
// A stored value as text for expansion: every "\" is CR alone.
std::string TemplateExpansionText(std::string_view stored);

// The templates of one file, with the list of their names. The list is as the last LoadTemplates has left it; contents
// come from the file at every call. Main thread only.
class TQVTemplateStore {
public:
  // The list is empty at first. `file` must live longer.
  explicit TQVTemplateStore(IQVTemplateFile& file) : file_(file) {}

  // Fills the list from the file.
  void LoadTemplates();
  // The list: spelled as in the file, in alphabetical order without case as a sorted list box has it.
  const std::vector<std::string>& Names() const { return names_; }
  // The index of a name in the list, from 0; none if it is not there.
  std::optional<std::size_t> IndexOf(std::string_view name) const;
  // Whether the list has this name. Logarithmic in its length.
  bool IsTemplateName(std::string_view name) const { return IndexOf(name).has_value(); }

  // The stored value of a template; empty if there is no such template.
  std::string GetTemplateContent(std::string_view name) const;
  // Stores a text with line breaks, making the template if it is missing.
  void SetTemplateContent(std::string_view name, std::string_view text);
  // Whether a text with line breaks is other than what is stored for the template; case counts.
  bool DiffersFromTemplate(std::string_view name, std::string_view text) const;
  // The template's text for expansion; empty if there is no such template.
  std::string GetTemplateText(std::string_view name) const;

  // The members below change the file and load the list again. The names that they make must be free of errors.

  // Makes a template with an empty text. One that is there under this name loses its text; that is intended.
  void AddTemplate(std::string_view name);
  // Gives the text of a template to a second name. The old one stays, and a template that is there under the new name
  // loses its text; both are intended.
  void RenameTemplate(std::string_view name, std::string_view newName);
  void DeleteTemplate(std::string_view name);
  // Adds those examples (QVTemplateExamples.h) whose names are not taken in the file.
  void AddExamples();

private:
  IQVTemplateFile& file_;
  std::vector<std::string> names_;
};

} // namespace quorvane
