// SPDX-License-Identifier: MIT
#include "tools/Json.h"

#include "tools/ShownText.h"

#include <array>
#include <charconv>

namespace quorvane {
namespace {

void AppendEscaped(unsigned char byte, std::string& out) {
  constexpr std::string_view HexDigits = "0123456789abcdef";
  switch (byte) {
  case '"':
    out += "\\\"";
    break;
  case '\\':
    out += "\\\\";
    break;
  case '\b':
    out += "\\b";
    break;
  case '\t':
    out += "\\t";
    break;
  case '\n':
    out += "\\n";
    break;
  case '\f':
    out += "\\f";
    break;
  case '\r':
    out += "\\r";
    break;
  default:
    out += "\\u00";
    out += HexDigits[byte >> 4];
    out += HexDigits[byte & 0xF];
  }
}

bool NeedsEscape(unsigned char byte) {
  return byte < 0x20 || byte == '"' || byte == '\\';
}

} // namespace

void AppendJsonString(std::string_view text, std::string& out) {
  out += '"';
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (NeedsEscape(byte)) {
      AppendEscaped(byte, out);
    } else if (byte < 0x80) {
      out += character;
    } else {
      out += static_cast<char>(0xC0 | byte >> 6);
      out += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  out += '"';
}

void AppendJsonUtf8(std::string_view text, std::string& out) {
  out += '"';
  for (const char character : ValidUtf8(text)) {
    if (const auto byte = static_cast<unsigned char>(character); NeedsEscape(byte))
      AppendEscaped(byte, out);
    else
      out += character;
  }
  out += '"';
}

void TJsonObject::Add(std::string_view key, std::int32_t value) {
  AddKey(key);
  std::array<char, 12> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  FOut.append(digits.data(), end);
}

void TJsonObject::Add(std::string_view key, std::string_view value) {
  AddKey(key);
  AppendJsonString(value, FOut);
}

void TJsonObject::AddUtf8(std::string_view key, std::string_view value) {
  AddKey(key);
  AppendJsonUtf8(value, FOut);
}

void TJsonObject::AddBool(std::string_view key, bool value) {
  AddKey(key);
  FOut += value ? "true" : "false";
}

void TJsonObject::AddNull(std::string_view key) {
  AddKey(key);
  FOut += "null";
}

void TJsonObject::AddKey(std::string_view key) {
  FOut += FEmpty ? "\"" : ",\"";
  FEmpty = false;
  FOut += key;
  FOut += "\":";
}

} // namespace quorvane
