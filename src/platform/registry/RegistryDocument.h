// SPDX-License-Identifier: MIT
// The registry's file as text whose values can be read and changed.
#pragma once

#include "platform/registry/RegistryNames.h"
#include "platform/registry/RegistryText.h"
#include "text/Encoding.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Values by their names, each name spelled as it is in the file.
using TRegistryValues = std::map<std::u16string, TRegistryValue, TNoCaseLess>;

// What is to be written into one key, which is made if it is missing.
struct TRegistryWrite {
  std::u16string Name;
  TRegistryValue Value; // not nothing
};
struct TRegistryKeyWrites {
  std::u16string Key;                 // from the root's name on
  std::vector<TRegistryWrite> Writes; // no name twice
};

// A registry export (RegistryText.h has its syntax). What it says holds in the order of its lines: of two values with
// one name the later counts, and a deletion takes away what stands before it.
//
// Writing changes the text that stands for the written values and nothing else: comments, other values, lines that are
// no part of the syntax, encoding and line ends stay as they are. A value that is new goes to the end of its key, a key
// that is new to the end of the file. A new file is UTF-8 with LF. A damaged value that ends the file becomes a comment
// when something is written behind it: nobody knows how it would have gone on.
class TRegistryDocument {
public:
  // Without keys: what a user has who has never saved anything.
  TRegistryDocument() = default;
  // Understands `bytes` as far as possible. UTF-8 and UTF-16 with a byte-order mark, else UTF-8, else windows-1252 as
  // in exports of the old version. Linear in the number of bytes.
  explicit TRegistryDocument(std::string_view bytes);

  // Whether saving would lose something of the bytes: they are no registry export at all (this then has no keys), or
  // some of them are no text in the encoding that they are marked with.
  bool Damaged() const { return damaged_; }

  // Whether there is a key of this path, from the root's name on, or one below it.
  bool HasKey(std::u16string_view key) const;
  // The values of a key, empty if it is missing; damaged ones included. Linear in the length of its part of the text,
  // but for the order of the names.
  TRegistryValues Values(std::u16string_view key) const;

  // Writes values. Their names must be free of control characters. Linear in the length of the text.
  void Write(const TRegistryKeyWrites& writes);

  // The file's bytes. A code page that lacks a character of a written value gives way to UTF-8.
  std::string Bytes() const;

private:
  // A key's line and those below it, by their indexes in the text. A path that is not empty is the key's.
  struct TSection {
    std::size_t PathBegin;
    std::size_t PathSize;
    bool Deleted;
    std::size_t Begin; // of the first line below the key's
    std::size_t End;
  };

  struct TChange {
    std::size_t Begin; // what the text has between these two becomes NewText
    std::size_t End;
    std::u16string NewText;
  };

  void FindSections();
  std::u16string_view PathOf(const TSection& section) const;
  // The sections that make up a key, those that a deletion has taken away left out.
  std::vector<TSection> SectionsOf(std::u16string_view key) const;
  // Calls `visit` with each value line of a section in their order.
  template <class TVisit> void ForEachValue(const TSection& section, TVisit visit) const;

  void Apply(std::vector<TChange> changes);
  // Adds what makes a cut value at the end of the file a comment if the last of `changes`, which come in the order of
  // their calls, is written behind it.
  void HideCutValue(std::vector<TChange>& changes) const;
  TChange AddedTo(const TSection& section, const std::vector<std::u16string>& lines) const;
  TChange AddedKey(std::u16string_view key, const std::vector<std::u16string>& lines) const;
  std::u16string_view LineEnd() const;
  // `key` with as many of its parts as possible spelled as in the keys that are there.
  std::u16string Spelled(std::u16string_view key) const;

  std::u16string text_;
  quorvane::TEncoding encoding_;
  std::vector<TSection> sections_;
  bool damaged_ = false;
};

} // namespace platform
