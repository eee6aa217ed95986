// SPDX-License-Identifier: MIT
#include "text/Encoding.h"

#include "text/Utf16.h"
#include "text/Utf8.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

std::string_view MarkOf(TEncodingKind kind) {
  switch (kind) {
  case TEncodingKind::Utf8:
    return "\xEF\xBB\xBF";
  case TEncodingKind::Utf16LE:
    return "\xFF\xFE";
  case TEncodingKind::Utf16BE:
    return "\xFE\xFF";
  case TEncodingKind::CodePage:
    break;
  }
  return {};
}

std::string LettersAndDigits(std::string_view name) {
  std::string result;
  for (const char symbol : name) {
    if (symbol >= 'A' && symbol <= 'Z')
      result += static_cast<char>(symbol - 'A' + 'a');
    else if ((symbol >= 'a' && symbol <= 'z') || (symbol >= '0' && symbol <= '9'))
      result += symbol;
  }
  return result;
}

// The two bytes of a unit lie at these offsets.
struct TByteOrder {
  std::size_t Low;
  std::size_t High;
};

TByteOrder ByteOrderOf(TEncodingKind kind) {
  return kind == TEncodingKind::Utf16LE ? TByteOrder{0, 1} : TByteOrder{1, 0};
}

// An odd last byte is left out.
std::u16string DecodeUtf16(std::string_view bytes, TByteOrder order) {
  std::u16string text(bytes.size() / 2, u'\0');
  for (std::size_t index = 0; index < text.size(); ++index) {
    const auto low = static_cast<unsigned char>(bytes[2 * index + order.Low]);
    const auto high = static_cast<unsigned char>(bytes[2 * index + order.High]);
    text[index] = static_cast<char16_t>(low | high << 8);
  }
  return text;
}

std::u16string DecodeCodePage(std::string_view bytes, TCodePage codePage) {
  const TCodePageTable& table = CodePageTable(codePage);
  std::u16string text(bytes.size(), u'\0');
  std::ranges::transform(bytes, text.begin(), [&](char byte) { return table[static_cast<unsigned char>(byte)]; });
  return text;
}

std::optional<std::size_t> FirstLoneSurrogate(std::u16string_view text) {
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (StartsPair(text, index))
      ++index;
    else if (IsHighSurrogate(text[index]) || IsLowSurrogate(text[index]))
      return index;
  }
  return std::nullopt;
}

TEncodedText EncodeAsUtf8(std::u16string_view text, std::string_view mark) {
  std::optional<std::string> bytes = EncodeUtf8(text);
  if (!bytes)
    return {{}, FirstLoneSurrogate(text)};
  if (!mark.empty())
    bytes->insert(0, mark);
  return {std::move(*bytes), std::nullopt};
}

TEncodedText EncodeAsUtf16(std::u16string_view text, std::string_view mark, TByteOrder order) {
  std::string bytes(mark);
  bytes.resize(mark.size() + 2 * text.size());
  char* to = bytes.data() + mark.size();
  for (const char16_t unit : text) {
    to[order.Low] = static_cast<char>(unit & 0xFF);
    to[order.High] = static_cast<char>(unit >> 8);
    to += 2;
  }
  return {std::move(bytes), std::nullopt};
}

TEncodedText EncodeAsCodePage(std::u16string_view text, TCodePage codePage) {
  std::string bytes(text.size(), '\0');
  for (std::size_t index = 0; index < text.size(); ++index) {
    const std::optional<unsigned char> byte = CodePageByte(codePage, text[index]);
    if (!byte)
      return {{}, index};
    bytes[index] = static_cast<char>(*byte);
  }
  return {std::move(bytes), std::nullopt};
}

} // namespace

std::string_view EncodingName(const TEncoding& encoding) {
  switch (encoding.Kind) {
  case TEncodingKind::Utf8:
    return "UTF-8";
  case TEncodingKind::Utf16LE:
    return "UTF-16LE";
  case TEncodingKind::Utf16BE:
    return "UTF-16BE";
  case TEncodingKind::CodePage:
    break;
  }
  return CodePageName(encoding.CodePage);
}

std::optional<TEncoding> FindEncoding(std::string_view name) {
  const std::string wanted = LettersAndDigits(name);
  const auto found = std::ranges::find_if(
      AllEncodings, [&](const TEncoding& encoding) { return LettersAndDigits(EncodingName(encoding)) == wanted; });
  if (found == AllEncodings.end())
    return std::nullopt;
  return *found;
}

std::optional<TEncoding> MarkedEncoding(std::string_view bytes) {
  for (const TEncodingKind kind : {TEncodingKind::Utf8, TEncodingKind::Utf16LE, TEncodingKind::Utf16BE})
    if (bytes.starts_with(MarkOf(kind)))
      return TEncoding{kind, true};
  return std::nullopt;
}

TEncoding DetectEncoding(std::string_view bytes, TCodePage userCodePage) {
  if (const std::optional<TEncoding> marked = MarkedEncoding(bytes))
    return *marked;
  return FirstMalformedUtf8(bytes) ? CodePageEncoding(userCodePage) : TEncoding{TEncodingKind::Utf8};
}

TDecodedText Decode(std::string_view bytes, TCodePage userCodePage) {
  return DecodeAs(bytes, DetectEncoding(bytes, userCodePage));
}

TDecodedText DecodeAs(std::string_view bytes, TEncoding encoding) {
  const std::string_view mark = MarkOf(encoding.Kind);
  encoding.ByteOrderMark = !mark.empty() && bytes.starts_with(mark);
  const std::string_view body = encoding.ByteOrderMark ? bytes.substr(mark.size()) : bytes;

  TDecodedText result;
  result.Encoding = encoding;
  switch (encoding.Kind) {
  case TEncodingKind::Utf8:
    result.Text = DecodeUtf8(body);
    result.FirstLostByte = FirstMalformedUtf8(body);
    break;
  case TEncodingKind::Utf16LE:
  case TEncodingKind::Utf16BE:
    result.Text = DecodeUtf16(body, ByteOrderOf(encoding.Kind));
    if (body.size() % 2 != 0) {
      result.Text += ReplacementCharacter;
      result.FirstLostByte = body.size() - 1;
    }
    break;
  case TEncodingKind::CodePage:
    result.Text = DecodeCodePage(body, encoding.CodePage);
    break;
  }
  if (result.FirstLostByte)
    *result.FirstLostByte += bytes.size() - body.size();
  result.AsciiOnly = AsciiPrefix(bytes) == bytes.size();
  return result;
}

TEncodedText Encode(std::u16string_view text, const TEncoding& encoding) {
  const std::string_view mark = encoding.ByteOrderMark ? MarkOf(encoding.Kind) : std::string_view{};
  switch (encoding.Kind) {
  case TEncodingKind::Utf8:
    return EncodeAsUtf8(text, mark);
  case TEncodingKind::Utf16LE:
  case TEncodingKind::Utf16BE:
    return EncodeAsUtf16(text, mark, ByteOrderOf(encoding.Kind));
  case TEncodingKind::CodePage:
    break;
  }
  return EncodeAsCodePage(text, encoding.CodePage);
}

} // namespace quorvane
