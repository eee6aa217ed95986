// SPDX-License-Identifier: MIT
#include "platform/ini/IniText.h"

#include "text/Encoding.h"
#include "text/Utf8.h"

#include <algorithm>

namespace platform {
namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view lineEnds = "\r\n";
constexpr std::string_view hasLineBreak = "has a line break";
constexpr std::string_view isBlank = "is blank";

constexpr char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view WithoutLineEnd(std::string_view line) {
  line.remove_suffix(LineEndOf(line).size());
  return line;
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && value.front() == '"' && value.back() == '"';
}

bool HasLineBreak(std::string_view text) {
  return text.find_first_of(lineEnds) != std::string_view::npos;
}

} // namespace

std::string_view TrimmedBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string FoldedName(std::string_view name) {
  std::string folded(name);
  std::ranges::transform(folded, folded.begin(), Lower);
  return folded;
}

std::string_view LineAt(std::string_view text, std::size_t begin) {
  std::size_t end = std::min(text.find_first_of(lineEnds, begin), text.size());
  if (end < text.size())
    end += text.substr(end).starts_with("\r\n") ? 2 : 1;
  return text.substr(begin, end - begin);
}

bool IsBlankLine(std::string_view line) {
  return TrimmedBlanks(WithoutLineEnd(line)).empty();
}

std::string_view LineEndOf(std::string_view line) {
  return line.substr(line.find_last_not_of(lineEnds) + 1);
}

std::optional<std::string_view> ParseSectionLine(std::string_view line) {
  const std::string_view content = TrimmedBlanks(WithoutLineEnd(line));
  if (!content.starts_with('['))
    return std::nullopt;
  const std::size_t end = content.find(']');
  return end == std::string_view::npos ? std::string_view() : TrimmedBlanks(content.substr(1, end - 1));
}

std::optional<TIniKeyLine> ParseKeyLine(std::string_view line) {
  const std::string_view content = TrimmedBlanks(WithoutLineEnd(line));
  const std::size_t equals = content.find('=');
  if (equals == std::string_view::npos || content.starts_with(';') || content.starts_with('['))
    return std::nullopt;
  const std::string_view name = TrimmedBlanks(content.substr(0, equals));
  if (name.empty())
    return std::nullopt;
  return TIniKeyLine{name, TrimmedBlanks(content.substr(equals + 1))};
}

std::string_view UnquotedValue(std::string_view written) {
  return IsQuoted(written) ? written.substr(1, written.size() - 2) : written;
}

std::string WrittenValue(std::string_view value) {
  const bool needsQuotes = IsQuoted(value) || TrimmedBlanks(value).size() != value.size();
  return needsQuotes ? '"' + std::string(value) + '"' : std::string(value);
}

std::string Utf8Of(std::string_view bytes) {
  if (!quorvane::FirstMalformedUtf8(bytes))
    return std::string(bytes);
  const quorvane::TDecodedText decoded =
      quorvane::DecodeAs(bytes, quorvane::CodePageEncoding(quorvane::DefaultCodePage));
  return quorvane::EncodeUtf8(decoded.Text).value_or(std::string());
}

std::optional<std::string_view> SectionNameError(std::string_view name) {
  if (TrimmedBlanks(name).empty())
    return isBlank;
  if (HasLineBreak(name))
    return hasLineBreak;
  if (name.find(']') != std::string_view::npos)
    return "has a \"]\"";
  return std::nullopt;
}

std::optional<std::string_view> KeyNameError(std::string_view name) {
  const std::string_view trimmed = TrimmedBlanks(name);
  if (trimmed.empty())
    return isBlank;
  if (HasLineBreak(name))
    return hasLineBreak;
  if (trimmed.find('=') != std::string_view::npos)
    return "has an \"=\"";
  if (trimmed.starts_with('['))
    return "begins with \"[\"";
  if (trimmed.starts_with(';'))
    return "begins with \";\"";
  return std::nullopt;
}

std::optional<std::string_view> ValueError(std::string_view value) {
  return HasLineBreak(value) ? std::optional(hasLineBreak) : std::nullopt;
}

} // namespace platform
