// SPDX-License-Identifier: MIT
// An INI file as text whose values can be read and changed.
#pragma once

#include "text/Encoding.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The text of an INI file (IniText.h has its syntax). All names and values here are UTF-8. Of several sections of one
// name, and of several keys of one name in it, the first counts; what the others say is never read, but kept.
//
// Writing changes the text that stands for the value and nothing else: comments, other values, lines that mean nothing,
// line ends and bytes that are no UTF-8 stay as they are. What is written is UTF-8, a UTF-16 file apart. A key that is
// new goes to the end of its section, a section that is new to the end of the file. A new file has LF.
class TIniDocument {
public:
  // Without sections.
  TIniDocument() = default;
  // Understands `bytes` as far as possible: UTF-16 if a byte-order mark says so, else UTF-8, and as code page 1252 the
  // names and values that are none. Linear in the number of bytes but for the order of the sections' names.
  explicit TIniDocument(std::string_view bytes);

  // Whether the bytes are marked as UTF-16 and are none. There are no sections then, and nothing may be written.
  bool Damaged() const { return damaged_; }

  // The names of all sections in the order of the file, each once, spelled as in its first line.
  std::vector<std::string> Sections() const;
  // A key's value; none if it is missing. Linear in the length of its section.
  std::optional<std::string> Value(std::string_view section, std::string_view key) const;

  // Writes a value, making key and section if they are missing. IniText.h says what names and values must be free of.
  // Linear in the length of the text, as is erasing.
  void Write(std::string_view section, std::string_view key, std::string_view value);
  // Takes away all sections of this name: from each one's line to the next line that begins with "[".
  void Erase(std::string_view section);

  // The file's bytes.
  std::string Bytes() const;

private:
  // A line that begins with "[" and those below it, by their indexes in the text.
  struct TSection {
    std::string Name; // empty if the line is damaged
    std::size_t Line;
    std::size_t Begin; // of the first line below it
    std::size_t End;
  };

  // Where a value stands in the text, without the blanks around it.
  struct TPlace {
    std::size_t Begin;
    std::size_t End;
  };

  void FindSections();
  std::size_t ContentBegin() const;
  const TSection* FindSection(std::string_view name) const;
  std::optional<TPlace> FindValue(const TSection& section, std::string_view key) const;
  void AddKey(const TSection& section, std::string_view line);
  void AddSection(std::string_view name, std::string_view line);
  // The line end that new lines get: that of the file's first line.
  std::string_view NewLineEnd() const;

  std::string text_;             // the bytes, a mark included; of a UTF-16 file, its text in UTF-8
  quorvane::TEncoding encoding_; // UTF-8 or, with a mark, UTF-16
  bool damaged_ = false;
  std::vector<TSection> sections_;                              // in their order
  std::map<std::string, std::size_t, std::less<>> firstOfName_; // indexes in sections_ by folded names
};

} // namespace platform
