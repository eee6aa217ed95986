// SPDX-License-Identifier: MIT
// From a file's bytes to text and back. A byte-order mark decides the encoding; without one, bytes that are strict
// UTF-8 are UTF-8, and all others are the user's code page. Decoding never fails: what it could not keep is said in the
// result, and such a text must not be written over its file.
#pragma once

#include "text/CodePages.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

enum class TEncodingKind : unsigned char { Utf8, Utf16LE, Utf16BE, CodePage };

// How a file's text is written as bytes.
struct TEncoding {
  TEncodingKind Kind = TEncodingKind::Utf8;
  bool ByteOrderMark = false;           // written before the text; never for code pages
  TCodePage CodePage = DefaultCodePage; // counts for TEncodingKind::CodePage only

  friend constexpr bool operator==(const TEncoding& left, const TEncoding& right) {
    return left.Kind == right.Kind && left.ByteOrderMark == right.ByteOrderMark &&
           (left.Kind != TEncodingKind::CodePage || left.CodePage == right.CodePage);
  }
};

// The encoding of a code page.
constexpr TEncoding CodePageEncoding(TCodePage codePage) {
  return {TEncodingKind::CodePage, false, codePage};
}

// All encodings without a byte-order mark, in the order in which a menu lists them.
inline constexpr std::array AllEncodings = {
    TEncoding{TEncodingKind::Utf8},           TEncoding{TEncodingKind::Utf16LE},
    TEncoding{TEncodingKind::Utf16BE},        CodePageEncoding(TCodePage::Windows1250),
    CodePageEncoding(TCodePage::Windows1251), CodePageEncoding(TCodePage::Windows1252),
    CodePageEncoding(TCodePage::Windows1254), CodePageEncoding(TCodePage::Latin1)};

// The registered name, as in "UTF-8", "UTF-16LE" or "windows-1252"; a byte-order mark is not told.
std::string_view EncodingName(const TEncoding& encoding);

// The encoding of a name, without a byte-order mark; case and punctuation do not count ("utf8" is UTF-8). None if
// there is no such encoding.
std::optional<TEncoding> FindEncoding(std::string_view name);

// The encoding that a byte-order mark at the start of `bytes` decides; none without a mark.
std::optional<TEncoding> MarkedEncoding(std::string_view bytes);

// The encoding of a file's bytes, as told at the top of this file. Bytes that are all ASCII are UTF-8, so a character
// beyond ASCII typed into them later is written as UTF-8.
TEncoding DetectEncoding(std::string_view bytes, TCodePage userCodePage = DefaultCodePage);

struct TDecodedText {
  std::u16string Text; // without the byte-order mark; lone surrogates of a UTF-16 file are kept
  TEncoding Encoding;  // what Text was decoded from, and what gives the same bytes back

  // All bytes are ASCII, so they would be the same in UTF-8 and in every code page, and the encoding is a choice.
  bool AsciiOnly = false;

  // The index (from 0, mark included) of the first byte that Text does not hold: malformed UTF-8, or the odd last byte
  // of a UTF-16 file. U+FFFD stands in its place. None if encoding Text gives the very bytes back.
  std::optional<std::size_t> FirstLostByte;
};

// Decodes a file in the encoding that DetectEncoding finds. Linear in the number of bytes, as are all functions here.
TDecodedText Decode(std::string_view bytes, TCodePage userCodePage = DefaultCodePage);

// Decodes in a given encoding. Whether there is a byte-order mark is seen in the bytes: one that belongs to the
// encoding is taken off and recorded, whatever `encoding` says; the mark of another encoding is text.
TDecodedText DecodeAs(std::string_view bytes, TEncoding encoding);

struct TEncodedText {
  std::string Bytes; // with the byte-order mark if the encoding has one; empty if a character is missing

  // The UTF-16 index (from 0) of the first character that the encoding lacks. Nothing is ever replaced silently.
  std::optional<std::size_t> FirstMissing;
};

// Encodes a text. UTF-8 lacks lone surrogates, UTF-16 lacks nothing, a code page all but its 256 characters.
TEncodedText Encode(std::u16string_view text, const TEncoding& encoding);

} // namespace quorvane
