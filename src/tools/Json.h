// SPDX-License-Identifier: MIT
// JSON written straight into a line: a dump of tokens is many times the size of its source, so no tree is built for it.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quorvane {

// Appends a quoted JSON string. Each byte of `text` is one character by its code, so bytes over 127 come out as Latin-1
// characters in UTF-8. What acts on a terminal or ends a line, in ASCII or beyond it, is escaped.
void AppendJsonString(std::string_view text, std::string& out);

// The same for bytes that are UTF-8 as they stand, the name of a file for one; U+FFFD stands for what is not.
void AppendJsonUtf8(std::string_view text, std::string& out);

void AppendJsonNumber(std::int32_t number, std::string& out);

// One object, written while it lives: the constructor opens it, the destructor closes it. Keys stand in the order in
// which they are added and are plain words that need no escaping.
//
// An exception that passes through leaves it open, since closing it could fail once more.
class TJsonObject {
public:
  explicit TJsonObject(std::string& out) : FOut(out) { FOut += '{'; }
  ~TJsonObject() noexcept(false) {
    if (std::uncaught_exceptions() == FExceptions)
      FOut += '}';
  }
  TJsonObject(const TJsonObject&) = delete;
  TJsonObject& operator=(const TJsonObject&) = delete;

  void Add(std::string_view key, std::int32_t value);
  void Add(std::string_view key, std::string_view value);
  void AddUtf8(std::string_view key, std::string_view value);
  void AddBool(std::string_view key, bool value);
  void AddNull(std::string_view key);

  // Appends the key alone; the caller appends the value.
  void AddKey(std::string_view key);

private:
  std::string& FOut;
  bool FEmpty = true;
  int FExceptions = std::uncaught_exceptions();
};

} // namespace quorvane
