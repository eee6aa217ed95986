// SPDX-License-Identifier: MIT
#include "text/Encoding.h"

#include "text/Utf16.h"
#include "text/Utf8.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

std::string_view MarkOf(TEncodingKind Kind) {
  switch (Kind) {
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

std::string LettersAndDigits(std::string_view Name) {
  std::string Result;
  for (const char Char : Name) {
    if (Char >= 'A' && Char <= 'Z')
      Result += static_cast<char>(Char - 'A' + 'a');
    else if ((Char >= 'a' && Char <= 'z') || (Char >= '0' && Char <= '9'))
      Result += Char;
  }
  return Result;
}

/// The two bytes of a unit lie at these offsets.
struct TByteOrder {
  std::size_t Low;
  std::size_t High;
};

TByteOrder ByteOrderOf(TEncodingKind Kind) {
  return Kind == TEncodingKind::Utf16LE ? TByteOrder{0, 1} : TByteOrder{1, 0};
}

/// An odd last byte is left out.
std::u16string DecodeUtf16(std::string_view Bytes, TByteOrder Order) {
  std::u16string Text(Bytes.size() / 2, u'\0');
  for (std::size_t Index = 0; Index < Text.size(); ++Index) {
    const auto Low = static_cast<unsigned char>(Bytes[2 * Index + Order.Low]);
    const auto High = static_cast<unsigned char>(Bytes[2 * Index + Order.High]);
    Text[Index] = static_cast<char16_t>(Low | High << 8);
  }
  return Text;
}

std::u16string DecodeCodePage(std::string_view Bytes, TCodePage CodePage) {
  const TCodePageTable& Table = CodePageTable(CodePage);
  std::u16string Text(Bytes.size(), u'\0');
  std::ranges::transform(Bytes, Text.begin(), [&](char Byte) { return Table[static_cast<unsigned char>(Byte)]; });
  return Text;
}

std::optional<std::size_t> FirstLoneSurrogate(std::u16string_view Text) {
  for (std::size_t Index = 0; Index < Text.size(); ++Index) {
    if (StartsPair(Text, Index))
      ++Index;
    else if (IsHighSurrogate(Text[Index]) || IsLowSurrogate(Text[Index]))
      return Index;
  }
  return std::nullopt;
}

TEncodedText EncodeAsUtf8(std::u16string_view Text, std::string_view Mark) {
  std::optional<std::string> Bytes = EncodeUtf8(Text);
  if (!Bytes)
    return {{}, FirstLoneSurrogate(Text)};
  if (!Mark.empty())
    Bytes->insert(0, Mark);
  return {std::move(*Bytes), std::nullopt};
}

TEncodedText EncodeAsUtf16(std::u16string_view Text, std::string_view Mark, TByteOrder Order) {
  std::string Bytes(Mark);
  Bytes.resize(Mark.size() + 2 * Text.size());
  char* To = Bytes.data() + Mark.size();
  for (const char16_t Unit : Text) {
    To[Order.Low] = static_cast<char>(Unit & 0xFF);
    To[Order.High] = static_cast<char>(Unit >> 8);
    To += 2;
  }
  return {std::move(Bytes), std::nullopt};
}

TEncodedText EncodeAsCodePage(std::u16string_view Text, TCodePage CodePage) {
  std::string Bytes(Text.size(), '\0');
  for (std::size_t Index = 0; Index < Text.size(); ++Index) {
    const std::optional<unsigned char> Byte = CodePageByte(CodePage, Text[Index]);
    if (!Byte)
      return {{}, Index};
    Bytes[Index] = static_cast<char>(*Byte);
  }
  return {std::move(Bytes), std::nullopt};
}

} // namespace

std::string_view EncodingName(const TEncoding& Encoding) {
  switch (Encoding.Kind) {
  case TEncodingKind::Utf8:
    return "UTF-8";
  case TEncodingKind::Utf16LE:
    return "UTF-16LE";
  case TEncodingKind::Utf16BE:
    return "UTF-16BE";
  case TEncodingKind::CodePage:
    break;
  }
  return CodePageName(Encoding.CodePage);
}

std::optional<TEncoding> FindEncoding(std::string_view Name) {
  const std::string Wanted = LettersAndDigits(Name);
  const auto Found = std::ranges::find_if(
      AllEncodings, [&](const TEncoding& Encoding) { return LettersAndDigits(EncodingName(Encoding)) == Wanted; });
  if (Found == AllEncodings.end())
    return std::nullopt;
  return *Found;
}

std::optional<TEncoding> MarkedEncoding(std::string_view Bytes) {
  for (const TEncodingKind Kind : {TEncodingKind::Utf8, TEncodingKind::Utf16LE, TEncodingKind::Utf16BE})
    if (Bytes.starts_with(MarkOf(Kind)))
      return TEncoding{Kind, true};
  return std::nullopt;
}

TEncoding DetectEncoding(std::string_view Bytes, TCodePage UserCodePage) {
  if (const std::optional<TEncoding> Marked = MarkedEncoding(Bytes))
    return *Marked;
  return FirstMalformedUtf8(Bytes) ? CodePageEncoding(UserCodePage) : TEncoding{TEncodingKind::Utf8};
}

TDecodedText Decode(std::string_view Bytes, TCodePage UserCodePage) {
  return DecodeAs(Bytes, DetectEncoding(Bytes, UserCodePage));
}

TDecodedText DecodeAs(std::string_view Bytes, TEncoding Encoding) {
  const std::string_view Mark = MarkOf(Encoding.Kind);
  Encoding.ByteOrderMark = !Mark.empty() && Bytes.starts_with(Mark);
  const std::string_view Body = Encoding.ByteOrderMark ? Bytes.substr(Mark.size()) : Bytes;

  TDecodedText Result;
  Result.Encoding = Encoding;
  switch (Encoding.Kind) {
  case TEncodingKind::Utf8:
    Result.Text = DecodeUtf8(Body);
    Result.FirstLostByte = FirstMalformedUtf8(Body);
    break;
  case TEncodingKind::Utf16LE:
  case TEncodingKind::Utf16BE:
    Result.Text = DecodeUtf16(Body, ByteOrderOf(Encoding.Kind));
    if (Body.size() % 2 != 0) {
      Result.Text += ReplacementCharacter;
      Result.FirstLostByte = Body.size() - 1;
    }
    break;
  case TEncodingKind::CodePage:
    Result.Text = DecodeCodePage(Body, Encoding.CodePage);
    break;
  }
  if (Result.FirstLostByte)
    *Result.FirstLostByte += Bytes.size() - Body.size();
  Result.AsciiOnly = AsciiPrefix(Bytes) == Bytes.size();
  return Result;
}

TEncodedText Encode(std::u16string_view Text, const TEncoding& Encoding) {
  const std::string_view Mark = Encoding.ByteOrderMark ? MarkOf(Encoding.Kind) : std::string_view{};
  switch (Encoding.Kind) {
  case TEncodingKind::Utf8:
    return EncodeAsUtf8(Text, Mark);
  case TEncodingKind::Utf16LE:
  case TEncodingKind::Utf16BE:
    return EncodeAsUtf16(Text, Mark, ByteOrderOf(Encoding.Kind));
  case TEncodingKind::CodePage:
    break;
  }
  return EncodeAsCodePage(Text, Encoding.CodePage);
}

} // namespace quorvane
