// SPDX-License-Identifier: MIT
#include "tools/Json.h"

#include "text/ShownText.h"
#include "text/Utf8.h"

#include <array>
#include <charconv>

namespace quorvane {
namespace {

void AppendEscaped(char16_t unit, std::string& out) {
  constexpr std::string_view HexDigits = "0123456789abcdef";
  switch (unit) {
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
    out += "\\u";
    for (const int shift : {12, 8, 4, 0})
      out += HexDigits[unit >> shift & 0xF];
  }
}

bool NeedsEscape(char16_t unit) {
  return unit == u'"' || unit == u'\\' || IsControl(unit);
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
  std::u16string plain;
  const auto appendPlain = [&plain, &out] {
    out += EncodeUtf8(plain).value_or(std::string());
    plain.clear();
  };
  for (const char16_t unit : DecodeUtf8(text)) {
    if (!NeedsEscape(unit)) {
      plain += unit;
      continue;
    }
    appendPlain();
    AppendEscaped(unit, out);
  }
  appendPlain();
  out += '"';
}

void AppendJsonNumber(std::int32_t number, std::string& out) {
  std::array<char, 12> digits{};
  out.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

void TJsonObject::Add(std::string_view key, std::int32_t value) {
  AddKey(key);
  AppendJsonNumber(value, FOut);
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
