// SPDX-License-Identifier: MIT
// INI files: values by section and key, kept beside whatever else people and programs have written there.
#pragma once

#include "platform/Errors.h"
#include "platform/Export.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// An INI file that could not be written, or a name or value that it cannot hold.
class VIRELLE_PLATFORM EIniFileException : public Exception {
public:
  using Exception::Exception;
  ~EIniFileException() override;
};

// One INI file (ini/IniDocument.h has its syntax). Nothing is kept open:
//
//   TIniFile file("/home/me/templates.ini");
//   file.WriteString("beg", "code", "begin\\end;");
//
// The file is read at the first call, by each ReadSections and by each write; ReadString answers from what was read
// last. So who lists the sections sees what other programs have changed, and reading all values costs one pass over the
// file. A file that is missing is empty. What cannot be read counts as empty, with a line in the debugger output.
//
// Every write is in the file when the call returns. The file is read again under a lock and replaced in one step (see
// SafeFile.h), so other programs' changes stay, and if writing fails the file is as it was. Only the written line or
// the erased section changes, every other byte stays.
//
// A missing file is made by the first write. Its folder must exist, or the write fails and names it; only the program's
// own, TApplication::ProgramDirectory, is made.
//
// All texts are UTF-8. The case of ASCII letters in the names of sections and keys does not count. An object is for one
// thread; several objects, threads and processes may use one file at the same time.
class VIRELLE_PLATFORM TIniFile {
public:
  // For a file that need not exist. A relative name counts from the working directory.
  explicit TIniFile(std::string_view fileName);
  ~TIniFile();

  TIniFile(const TIniFile&) = delete;
  TIniFile& operator=(const TIniFile&) = delete;

  const std::string& FileName() const;

  // The names of all sections in the file's order, each once, spelled as in its first line.
  std::vector<std::string> ReadSections();

  // The value of a key, or `defaultValue` if there is no such key. Of several sections, or keys, of one name the first
  // counts.
  std::string ReadString(std::string_view section, std::string_view key, std::string_view defaultValue);

  // Writes a value; section and key are made if they are missing. Raises EIniFileException if the file cannot be
  // written or cannot hold the text: a section's name must not be blank nor have "]", a key's must not be blank nor
  // have "=" nor begin with "[" or ";", and nothing may have a line break. Blanks around a name do not count; a value's
  // stay.
  void WriteString(std::string_view section, std::string_view key, std::string_view value);

  // Takes away all sections of this name, with all their lines. Raises EIniFileException if the file cannot be written.
  void EraseSection(std::string_view section);

private:
  struct TState;
  std::unique_ptr<TState> state_;
};

} // namespace platform
