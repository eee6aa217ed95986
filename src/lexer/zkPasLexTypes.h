// SPDX-License-Identifier: MIT
// The vocabulary that the lexer, the parsers and the painters share: token kinds, the comment state, the record that a
// scan is resumed from, and the sets of kinds that the classifications test.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvane {

// The kind of a token. The ordinals, 0 to 190, are part of the design: light parser elements store them, and the sets
// below are indexed by them.
enum TptTokenKind : unsigned char {
#define PT_KIND(kind, group) kind,
#include "lexer/TokenKinds.def"
};

inline constexpr int TokenKindCount = ptXor + 1;

// What a kind is; each kind is of exactly one group.
enum class TTokenGroup : unsigned char {
  Reserved,  // a reserved word: the kind of the token itself
  Word,      // a directive or predefined type: only ever the extended kind of an identifier
  Symbol,    // punctuation; ptBraceOpen, ptBraceClose and ptAmpersand are never scanned
  Literal,   // numbers, strings, characters and plain identifiers
  Junk,      // comments, blanks and line breaks
  Directive, // a comment that starts with $
  Special    // end of text, unknown and illegal characters, and the kinds that only parsers use
};

// Whether a scan stands in a comment that continues past the end of a line, and in which.
enum TCommentState : unsigned char { csAnsi, csBor, csNo };

// Everything that is needed to resume lexing at a token. Positions are character indexes from 0, lines count from 0.
struct TzkPasLexStatus {
  TCommentState CommentState = csNo;
  TptTokenKind ExID = ptUnknown;
  std::int32_t LineNumber = 0;
  std::int32_t LinePos = 0;     // where that line starts
  const char* Origin = nullptr; // the NUL-terminated text, not owned; null when there is none
  std::int32_t RunPos = 0;      // just past the token
  std::int32_t TokenPos = 0;    // the token's first character
  TptTokenKind TokenID = ptNull;
};

// The name of a kind without its prefix: "Begin" for ptBegin.
std::string_view TokenName(TptTokenKind kind);

// The full name of a kind: "ptBegin".
std::string_view ptTokenName(TptTokenKind kind);

inline constexpr std::array<TTokenGroup, TokenKindCount> TokenGroups = {
#define PT_KIND(kind, group) TTokenGroup::group,
#include "lexer/TokenKinds.def"
};

// The group that a kind belongs to.
constexpr TTokenGroup TokenGroup(TptTokenKind kind) {
  return TokenGroups[kind];
}

// A constant set of token kinds: a mark for each ordinal. A test is one load, where bits would take several steps; the
// parser tests sets several times a token.
class TTokenKindSet {
public:
  constexpr TTokenKindSet(std::initializer_list<TptTokenKind> kinds) {
    for (const TptTokenKind kind : kinds)
      FMarks[kind] = true;
  }

  constexpr bool Contains(TptTokenKind kind) const { return FMarks[kind]; }

private:
  std::array<bool, TokenKindCount> FMarks{};
};

// Tested against the extended kind of an identifier. PChar is in and Cardinal and the sized Booleans are out: the
// parsers rely on exactly these members.
inline constexpr TTokenKindSet OrdinalTypeIdents{ptBoolean,  ptByte,     ptChar,     ptDWORD, ptInt64,
                                                 ptInteger,  ptLongint,  ptLongword, ptPChar, ptShortint,
                                                 ptSmallint, ptWideChar, ptWord};
inline constexpr TTokenKindSet RealTypeIdents{ptComp, ptCurrency, ptDouble, ptExtended, ptReal, ptReal48, ptSingle};
inline constexpr TTokenKindSet StringTypeIdents{ptAnsiString, ptWideString};
inline constexpr TTokenKindSet VariantTypeIdents{ptOleVariant, ptVariant};

// Tested against the kind of the token. That ptAs multiplies as well as relates is intended.
inline constexpr TTokenKindSet MulOperators{ptAnd, ptAs, ptDiv, ptMod, ptShl, ptShr, ptSlash, ptStar};
inline constexpr TTokenKindSet RelativeOperators{ptAs, ptEqual, ptGreater,    ptGreaterEqual, ptIn,
                                                 ptIs, ptLower, ptLowerEqual, ptNotEqual};
inline constexpr TTokenKindSet AddOperators{ptMinus, ptOr, ptPlus, ptXor};
inline constexpr TTokenKindSet CompilerDirectives{ptCompDirect,     ptDefineDirect, ptElseDirect,  ptEndIfDirect,
                                                  ptIfDefDirect,    ptIfNDefDirect, ptIfOptDirect, ptIncludeDirect,
                                                  ptResourceDirect, ptUndefDirect};
inline constexpr TTokenKindSet JunkTokens{ptAnsiComment, ptBorComment, ptCRLF, ptCRLFCo, ptSlashesComment, ptSpace};

// Whether a kind is a comment, a line break or blanks. Directives are not junk.
constexpr bool IsTokenIDJunk(TptTokenKind kind) {
  return JunkTokens.Contains(kind);
}

} // namespace quorvane
