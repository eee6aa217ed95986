// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include "text/Utf16.h"

#include <cstdint>
#include <cstring>

namespace quorvane {
namespace {

/// What a lead byte announces. The bounds of the second byte are what keeps overlong forms (E0, F0), surrogates (ED)
/// and values above U+10FFFF (F4) out; all later bytes are 80 to BF.
struct TLead {
  unsigned char Length; ///< of the whole sequence, 0 if the byte cannot begin one
  unsigned char SecondMin;
  unsigned char SecondMax;
};

constexpr TLead LeadOf(unsigned char Byte) {
  if (Byte < 0x80)
    return {1, 0, 0};
  if (Byte < 0xC2)
    return {0, 0, 0};
  if (Byte < 0xE0)
    return {2, 0x80, 0xBF};
  if (Byte < 0xF0)
    return {3, static_cast<unsigned char>(Byte == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(Byte == 0xED ? 0x9F : 0xBF)};
  if (Byte < 0xF5)
    return {4, static_cast<unsigned char>(Byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(Byte == 0xF4 ? 0x8F : 0xBF)};
  return {0, 0, 0};
}

struct TSequence {
  std::size_t Length; ///< of the part that was understood, at least 1
  char32_t CodePoint; ///< meaningless if malformed
  bool WellFormed;
};

/// Reads the sequence that starts at Index, which is below the size.
TSequence ReadSequence(std::string_view Bytes, std::size_t Index) {
  const auto ByteAt = [&](std::size_t At) { return static_cast<unsigned char>(Bytes[At]); };
  const unsigned char First = ByteAt(Index);
  const TLead Lead = LeadOf(First);
  if (Lead.Length == 0)
    return {1, 0, false};
  if (Lead.Length == 1)
    return {1, First, true};
  char32_t CodePoint = First & (0x7F >> Lead.Length);
  for (std::size_t Offset = 1; Offset < Lead.Length; ++Offset) {
    if (Index + Offset == Bytes.size())
      return {Offset, 0, false};
    const unsigned char Byte = ByteAt(Index + Offset);
    const unsigned char Min = Offset == 1 ? Lead.SecondMin : 0x80;
    const unsigned char Max = Offset == 1 ? Lead.SecondMax : 0xBF;
    if (Byte < Min || Byte > Max)
      return {Offset, 0, false};
    CodePoint = CodePoint << 6 | (Byte & 0x3F);
  }
  return {Lead.Length, CodePoint, true};
}

/// The number of bytes that Text takes; none if it holds a lone surrogate.
std::optional<std::size_t> EncodedLength(std::u16string_view Text) {
  std::size_t Length = 0;
  for (std::size_t Index = 0; Index < Text.size(); ++Index) {
    const char16_t Unit = Text[Index];
    if (Unit < 0x80) {
      Length += 1;
    } else if (Unit < 0x800) {
      Length += 2;
    } else if (StartsPair(Text, Index)) {
      Length += 4;
      ++Index;
    } else if (IsHighSurrogate(Unit) || IsLowSurrogate(Unit)) {
      return std::nullopt;
    } else {
      Length += 3;
    }
  }
  return Length;
}

char* WriteCodePoint(char32_t CodePoint, char* To) {
  const auto Tail = [CodePoint](int Shift) { return static_cast<char>(0x80 | (CodePoint >> Shift & 0x3F)); };
  if (CodePoint < 0x80) {
    *To++ = static_cast<char>(CodePoint);
  } else if (CodePoint < 0x800) {
    *To++ = static_cast<char>(0xC0 | CodePoint >> 6);
    *To++ = Tail(0);
  } else if (CodePoint < 0x10000) {
    *To++ = static_cast<char>(0xE0 | CodePoint >> 12);
    *To++ = Tail(6);
    *To++ = Tail(0);
  } else {
    *To++ = static_cast<char>(0xF0 | CodePoint >> 18);
    *To++ = Tail(12);
    *To++ = Tail(6);
    *To++ = Tail(0);
  }
  return To;
}

} // namespace

std::size_t AsciiPrefix(std::string_view Bytes) {
  constexpr std::uint64_t HighBits = 0x8080808080808080;
  std::size_t Index = 0;
  for (; Index + sizeof(std::uint64_t) <= Bytes.size(); Index += sizeof(std::uint64_t)) {
    std::uint64_t Word = 0;
    std::memcpy(&Word, Bytes.data() + Index, sizeof Word);
    if (Word & HighBits)
      break;
  }
  while (Index < Bytes.size() && static_cast<unsigned char>(Bytes[Index]) < 0x80)
    ++Index;
  return Index;
}

std::optional<std::size_t> FirstMalformedUtf8(std::string_view Bytes) {
  std::size_t Index = AsciiPrefix(Bytes);
  while (Index < Bytes.size()) {
    const TSequence Sequence = ReadSequence(Bytes, Index);
    if (!Sequence.WellFormed)
      return Index;
    Index += Sequence.Length;
    Index += AsciiPrefix(Bytes.substr(Index));
  }
  return std::nullopt;
}

std::u16string DecodeUtf8(std::string_view Bytes) {
  // No sequence takes more units than bytes.
  std::u16string Text(Bytes.size(), u'\0');
  char16_t* To = Text.data();
  std::size_t Index = 0;
  while (Index < Bytes.size()) {
    for (const char Byte : Bytes.substr(Index, AsciiPrefix(Bytes.substr(Index)))) {
      *To++ = static_cast<char16_t>(Byte);
      ++Index;
    }
    if (Index == Bytes.size())
      break;
    const TSequence Sequence = ReadSequence(Bytes, Index);
    Index += Sequence.Length;
    if (!Sequence.WellFormed) {
      *To++ = ReplacementCharacter;
    } else if (Sequence.CodePoint < 0x10000) {
      *To++ = static_cast<char16_t>(Sequence.CodePoint);
    } else {
      *To++ = static_cast<char16_t>(0xD7C0 + (Sequence.CodePoint >> 10));
      *To++ = static_cast<char16_t>(0xDC00 | (Sequence.CodePoint & 0x3FF));
    }
  }
  Text.resize(static_cast<std::size_t>(To - Text.data()));
  return Text;
}

std::optional<std::string> EncodeUtf8(std::u16string_view Text) {
  const std::optional<std::size_t> Length = EncodedLength(Text);
  if (!Length)
    return std::nullopt;
  std::string Bytes(*Length, '\0');
  char* To = Bytes.data();
  for (std::size_t Index = 0; Index < Text.size(); ++Index) {
    if (StartsPair(Text, Index)) {
      To = WriteCodePoint(PairCodePoint(Text[Index], Text[Index + 1]), To);
      ++Index;
    } else {
      To = WriteCodePoint(Text[Index], To);
    }
  }
  return Bytes;
}

} // namespace quorvane
