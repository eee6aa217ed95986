// SPDX-License-Identifier: MIT
#include "platform/registry/RegistryText.h"

#include "platform/registry/RegistryHex.h"
#include "platform/registry/RegistryNames.h"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

constexpr std::size_t mostDigits = 8; // of a number
constexpr std::u16string_view numberWord = u"dword:";
constexpr std::u16string_view hexWord = u"hex";
constexpr std::u16string_view hexTextWord = u"hex(1):";

std::u16string_view WithoutLeadingBlanks(std::u16string_view text) {
  text.remove_prefix(static_cast<std::size_t>(std::ranges::find_if_not(text, IsBlank) - text.begin()));
  return text;
}

std::u16string_view WithoutTrailingBlanks(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

std::u16string_view WithoutLineEnd(std::u16string_view line) {
  for (const char16_t unit : {u'\n', u'\r'})
    if (line.ends_with(unit))
      line.remove_suffix(1);
  return line;
}

// Whether a line says nothing more: blanks, or a comment.
bool IsOver(std::u16string_view rest) {
  rest = WithoutLeadingBlanks(rest);
  return rest.empty() || rest.front() == u';';
}

// What a line holds at some place, and how many characters that takes there.
template <class TContent> struct TPart {
  TContent Content;
  std::size_t Length;
};

// The text in quotes at the start of `line`; none if there is none or the line does not close it. A backslash before
// any character but a quote or a backslash stands for itself, as people write it who edit the file by hand.
std::optional<TPart<std::u16string>> ParseQuoted(std::u16string_view line) {
  if (!line.starts_with(u'"'))
    return std::nullopt;
  std::u16string content;
  for (std::size_t index = 1; index < line.size(); ++index) {
    if (line[index] == u'"')
      return TPart<std::u16string>{std::move(content), index + 1};
    const bool escape = line[index] == u'\\' && index + 1 < line.size();
    if (escape && (line[index + 1] == u'"' || line[index + 1] == u'\\'))
      ++index;
    content += line[index];
  }
  return std::nullopt;
}

// The name at the start of `line`, which is empty for "@".
std::optional<TPart<std::u16string>> ParseName(std::u16string_view line) {
  if (line.starts_with(u'@'))
    return TPart<std::u16string>{{}, 1};
  return ParseQuoted(line);
}

std::optional<TPart<std::uint32_t>> ParseNumber(std::u16string_view line) {
  if (!StartsWithName(line, numberWord))
    return std::nullopt;
  std::uint32_t number = 0;
  std::size_t end = numberWord.size();
  for (; end < line.size() && end < numberWord.size() + mostDigits; ++end) {
    const std::optional<unsigned> digit = HexDigit(line[end]);
    if (!digit)
      break;
    number = number * 16 + *digit;
  }
  if (end == numberWord.size())
    return std::nullopt;
  return TPart<std::uint32_t>{number, end};
}

std::u16string Quoted(std::u16string_view content) {
  std::u16string line = u"\"";
  for (const char16_t unit : content) {
    if (unit == u'"' || unit == u'\\')
      line += u'\\';
    line += unit;
  }
  return line + u'"';
}

std::u16string FormatNumber(std::uint32_t number) {
  std::u16string line(mostDigits, u'0');
  for (auto digit = line.rbegin(); number != 0; ++digit, number /= 16)
    *digit = HexDigits[number % 16];
  line.insert(0, numberWord);
  return line;
}

// Whether a number that takes `length` characters from `begin` on may be the part of one that was left of a file.
bool MayBeCut(std::u16string_view text, std::size_t begin, std::size_t length) {
  return begin + length == text.size() && length < numberWord.size() + mostDigits;
}

// Reads a list of bytes that is a text.
void ParseHexText(std::u16string_view list, bool endsFile, TRegistryValueLine& result) {
  std::optional<THexText> text = TextOfHex(list);
  if (!text)
    return;
  const bool whole = text->Closed || !(endsFile || list.ends_with(u'\\'));
  if (whole)
    result.Value = std::move(text->Content);
  result.Cut = !whole && endsFile;
}

// Reads what is written at `result.DataBegin`, where the line goes on as `line`.
void ParseData(std::u16string_view text, std::u16string_view line, TRegistryValueLine& result) {
  result.DataEnd = result.DataBegin + WithoutTrailingBlanks(line).size();
  if (StartsWithName(line, hexWord)) {
    result.DataEnd = EndOfHex(text, result.DataBegin);
    const std::u16string_view data = text.substr(result.DataBegin, result.DataEnd - result.DataBegin);
    if (StartsWithName(data, hexTextWord))
      ParseHexText(data.substr(hexTextWord.size()), result.DataEnd == text.size(), result);
    return;
  }
  const auto take = [&](std::size_t length) {
    if (!IsOver(line.substr(length)))
      return false;
    result.DataEnd = result.DataBegin + length;
    return true;
  };
  if (line.starts_with(u'-')) {
    result.Deleted = take(1);
  } else if (std::optional<TPart<std::u16string>> content = ParseQuoted(line)) {
    if (take(content->Length))
      result.Value = std::move(content->Content);
  } else if (const std::optional<TPart<std::uint32_t>> number = ParseNumber(line)) {
    result.Cut = MayBeCut(text, result.DataBegin, number->Length);
    if (!result.Cut && take(number->Length))
      result.Value = number->Content;
  }
}

} // namespace

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

std::optional<unsigned> HexDigit(char16_t unit) {
  if (unit >= u'0' && unit <= u'9')
    return unit - u'0';
  if (unit >= u'A' && unit <= u'F')
    return unit - u'A' + 10U;
  if (unit >= u'a' && unit <= u'f')
    return unit - u'a' + 10U;
  return std::nullopt;
}

std::u16string_view LineAt(std::u16string_view text, std::size_t begin) {
  const std::size_t lineBreak = text.find(u'\n', begin);
  return text.substr(begin, lineBreak == std::u16string_view::npos ? lineBreak : lineBreak + 1 - begin);
}

bool IsBlankLine(std::u16string_view line) {
  return std::ranges::all_of(line, IsBlank);
}

bool IsHeaderLine(std::u16string_view line) {
  line = WithoutTrailingBlanks(WithoutLeadingBlanks(line));
  return SameName(line, RegistryHeader) || SameName(line, u"REGEDIT4");
}

std::optional<TRegistryKeyLine> ParseKeyLine(std::u16string_view line) {
  line = WithoutLeadingBlanks(line);
  if (!line.starts_with(u'['))
    return std::nullopt;
  TRegistryKeyLine result;
  std::size_t end = line.find(u']');
  while (end != std::u16string_view::npos && !IsOver(line.substr(end + 1)))
    end = line.find(u']', end + 1); // a bracket of the name
  if (end == std::u16string_view::npos)
    return result;
  result.Deleted = line[1] == u'-';
  result.Path = line.substr(0, end).substr(result.Deleted ? 2 : 1);
  return result;
}

bool IsKeyPath(std::u16string_view path) {
  const std::u16string line = u'[' + std::u16string(path) + u']';
  const std::optional<TRegistryKeyLine> key = ParseKeyLine(line);
  return !HasControls(path) && !key->Deleted && key->Path == path;
}

std::optional<TRegistryValueLine> ParseValueLine(std::u16string_view text, std::size_t begin) {
  const std::u16string_view line = WithoutLeadingBlanks(WithoutLineEnd(LineAt(text, begin)));
  std::optional<TPart<std::u16string>> name = ParseName(line);
  if (!name)
    return std::nullopt;
  std::u16string_view rest = WithoutLeadingBlanks(line.substr(name->Length));
  if (!rest.starts_with(u'='))
    return std::nullopt;
  rest = WithoutLeadingBlanks(rest.substr(1));

  TRegistryValueLine result;
  result.Name = std::move(name->Content);
  result.DataBegin = static_cast<std::size_t>(rest.data() - text.data());
  ParseData(text, rest, result);
  return result;
}

std::u16string FormatName(std::u16string_view name) {
  return name.empty() ? u"@" : Quoted(name);
}

std::u16string FormatValue(const TRegistryValue& value) {
  if (const auto* number = std::get_if<std::uint32_t>(&value))
    return FormatNumber(*number);
  const auto* content = std::get_if<std::u16string>(&value);
  if (content == nullptr)
    return u"-";
  return HasControls(*content) ? std::u16string(hexTextWord) + HexOfText(*content) : Quoted(*content);
}

bool HasControls(std::u16string_view text) {
  return std::ranges::any_of(text, [](char16_t unit) { return unit < u' '; });
}

} // namespace platform
