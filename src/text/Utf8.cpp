// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include "text/Utf16.h"

#include <cstdint>
#include <cstring>

namespace quorvane {
namespace {

// What a lead byte announces. The bounds of the second byte are what keeps overlong forms (E0, F0), surrogates (ED)
// and values above U+10FFFF (F4) out; all later bytes are 80 to BF.
struct TLead {
  unsigned char Length; // of the whole sequence, 0 if the byte cannot begin one
  unsigned char SecondMin;
  unsigned char SecondMax;
};

constexpr TLead LeadOf(unsigned char byte) {
  if (byte < 0x80)
    return {1, 0, 0};
  if (byte < 0xC2)
    return {0, 0, 0};
  if (byte < 0xE0)
    return {2, 0x80, 0xBF};
  if (byte < 0xF0)
    return {3, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
  if (byte < 0xF5)
    return {4, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
  return {0, 0, 0};
}

struct TSequence {
  std::size_t Length; // of the part that was understood, at least 1
  char32_t CodePoint; // meaningless if malformed
  bool WellFormed;
};

// Reads the sequence that starts at `index`, which is below the size.
TSequence ReadSequence(std::string_view bytes, std::size_t index) {
  const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  const unsigned char first = byteAt(index);
  const TLead lead = LeadOf(first);
  if (lead.Length == 0)
    return {1, 0, false};
  if (lead.Length == 1)
    return {1, first, true};
  char32_t codePoint = first & (0x7F >> lead.Length);
  for (std::size_t offset = 1; offset < lead.Length; ++offset) {
    if (index + offset == bytes.size())
      return {offset, 0, false};
    const unsigned char byte = byteAt(index + offset);
    const unsigned char min = offset == 1 ? lead.SecondMin : 0x80;
    const unsigned char max = offset == 1 ? lead.SecondMax : 0xBF;
    if (byte < min || byte > max)
      return {offset, 0, false};
    codePoint = codePoint << 6 | (byte & 0x3F);
  }
  return {lead.Length, codePoint, true};
}

// The number of bytes that `text` takes; none if it holds a lone surrogate.
std::optional<std::size_t> EncodedLength(std::u16string_view text) {
  std::size_t length = 0;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char16_t unit = text[index];
    if (unit < 0x80) {
      length += 1;
    } else if (unit < 0x800) {
      length += 2;
    } else if (StartsPair(text, index)) {
      length += 4;
      ++index;
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      return std::nullopt;
    } else {
      length += 3;
    }
  }
  return length;
}

char* WriteCodePoint(char32_t codePoint, char* to) {
  const auto tail = [codePoint](int shift) { return static_cast<char>(0x80 | (codePoint >> shift & 0x3F)); };
  if (codePoint < 0x80) {
    *to++ = static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    *to++ = static_cast<char>(0xC0 | codePoint >> 6);
    *to++ = tail(0);
  } else if (codePoint < 0x10000) {
    *to++ = static_cast<char>(0xE0 | codePoint >> 12);
    *to++ = tail(6);
    *to++ = tail(0);
  } else {
    *to++ = static_cast<char>(0xF0 | codePoint >> 18);
    *to++ = tail(12);
    *to++ = tail(6);
    *to++ = tail(0);
  }
  return to;
}

} // namespace

std::size_t AsciiPrefix(std::string_view bytes) {
  constexpr std::uint64_t HighBits = 0x8080808080808080;
  std::size_t index = 0;
  for (; index + sizeof(std::uint64_t) <= bytes.size(); index += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + index, sizeof word);
    if (word & HighBits)
      break;
  }
  while (index < bytes.size() && static_cast<unsigned char>(bytes[index]) < 0x80)
    ++index;
  return index;
}

std::optional<std::size_t> FirstMalformedUtf8(std::string_view bytes) {
  std::size_t index = AsciiPrefix(bytes);
  while (index < bytes.size()) {
    const TSequence sequence = ReadSequence(bytes, index);
    if (!sequence.WellFormed)
      return index;
    index += sequence.Length;
    index += AsciiPrefix(bytes.substr(index));
  }
  return std::nullopt;
}

std::u16string DecodeUtf8(std::string_view bytes) {
  // No sequence takes more units than bytes.
  std::u16string text(bytes.size(), u'\0');
  char16_t* to = text.data();
  std::size_t index = 0;
  while (index < bytes.size()) {
    for (const char byte : bytes.substr(index, AsciiPrefix(bytes.substr(index)))) {
      *to++ = static_cast<char16_t>(byte);
      ++index;
    }
    if (index == bytes.size())
      break;
    const TSequence sequence = ReadSequence(bytes, index);
    index += sequence.Length;
    if (!sequence.WellFormed) {
      *to++ = ReplacementCharacter;
    } else if (sequence.CodePoint < 0x10000) {
      *to++ = static_cast<char16_t>(sequence.CodePoint);
    } else {
      *to++ = static_cast<char16_t>(0xD7C0 + (sequence.CodePoint >> 10));
      *to++ = static_cast<char16_t>(0xDC00 | (sequence.CodePoint & 0x3FF));
    }
  }
  text.resize(static_cast<std::size_t>(to - text.data()));
  return text;
}

std::optional<std::string> EncodeUtf8(std::u16string_view text) {
  const std::optional<std::size_t> length = EncodedLength(text);
  if (!length)
    return std::nullopt;
  std::string bytes(*length, '\0');
  char* to = bytes.data();
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (StartsPair(text, index)) {
      to = WriteCodePoint(PairCodePoint(text[index], text[index + 1]), to);
      ++index;
    } else {
      to = WriteCodePoint(text[index], to);
    }
  }
  return bytes;
}

} // namespace quorvane
