// SPDX-License-Identifier: MIT
// The character procedures of the lexer, but for those of words and comments.
#include "lexer/zkPasLex.h"

#include "lexer/zkPasLexTables.h"

namespace quorvane {
namespace {

constexpr TCharSet HexDigits =
    MakeCharSet([](unsigned c) { return Digits[c] || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); });

constexpr TCharSet StringStops = MakeCharSet([](unsigned c) { return LineStops[c] || c == '\''; });

// The first index, from one on, at which a NUL-terminated text has a character of a set, or has none.
std::int32_t Find(const TCharSet& set, const char* text, std::int32_t index) {
  while (!set[static_cast<unsigned char>(text[index])])
    ++index;
  return index;
}

std::int32_t Skip(const TCharSet& set, const char* text, std::int32_t index) {
  while (set[static_cast<unsigned char>(text[index])])
    ++index;
  return index;
}

} // namespace

// Each kind has a procedure of its own, though they differ in nothing else: the processor foresees the next token by
// the procedures that ran before.
template <TptTokenKind Kind> void TzkBasePasLex::SingleCharProc(TzkBasePasLex& lex) {
  lex.Take(1, Kind);
}

constinit const TzkBasePasLex::TProcTable TzkBasePasLex::CharProcs = [] {
  TProcTable procs{};
  procs.fill(UnknownProc);
  for (unsigned c = 0; c < procs.size(); ++c)
    if (Blanks[c])
      procs[c] = SpaceProc;
    else if (Digits[c])
      procs[c] = NumberProc;
    else if (Letters[c])
      procs[c] = IdentProc;
#define PT_SINGLE_CHAR(character, kind) procs[character] = SingleCharProc<kind>;
#include "lexer/TokenKinds.def"
  procs['\0'] = NullProc;
  procs['\n'] = LineFeedProc;
  procs['\r'] = CarriageReturnProc;
  procs['#'] = CharCodeProc;
  procs['$'] = HexNumberProc;
  procs['\''] = StringProc;
  procs['('] = RoundOpenProc;
  procs['.'] = PointProc;
  procs['/'] = SlashProc;
  procs[':'] = ColonProc;
  procs['<'] = LowerProc;
  procs['>'] = GreaterProc;
  procs['@'] = AddressProc;
  procs['_'] = IdentProc;
  procs['{'] = BraceOpenProc;
  procs['}'] = BraceCloseProc;
  return procs;
}();

void TzkBasePasLex::NullProc(TzkBasePasLex& lex) {
  lex.FTokenID = ptNull;
}

void TzkBasePasLex::SpaceProc(TzkBasePasLex& lex) {
  lex.FRun = Skip(Blanks, lex.FOrigin, lex.FRun + 1);
  lex.FTokenID = ptSpace;
}

void TzkBasePasLex::TakeLineEnd(std::int32_t length) {
  Take(length, FCommentState == csNo ? ptCRLF : ptCRLFCo);
  ++FLineNumber;
  FLinePos = FRun;
}

void TzkBasePasLex::LineFeedProc(TzkBasePasLex& lex) {
  lex.TakeLineEnd(1);
}

void TzkBasePasLex::CarriageReturnProc(TzkBasePasLex& lex) {
  lex.TakeLineEnd(lex.CharAt(lex.FRun + 1) == '\n' ? 2 : 1);
}

void TzkBasePasLex::CharCodeProc(TzkBasePasLex& lex) {
  const std::int32_t next = lex.FRun + 1;
  lex.FRun = lex.CharAt(next) == '$' ? Skip(HexDigits, lex.FOrigin, next + 1) : Skip(Digits, lex.FOrigin, next);
  lex.FTokenID = ptAsciiChar;
}

void TzkBasePasLex::HexNumberProc(TzkBasePasLex& lex) {
  lex.FRun = Skip(HexDigits, lex.FOrigin, lex.FRun + 1);
  lex.FTokenID = ptIntegerConst;
}

// A string never reads past its line. A literal of one character is a character only if it is closed.
void TzkBasePasLex::StringProc(TzkBasePasLex& lex) {
  lex.FTokenID = ptStringConst;
  std::int32_t run = Find(StringStops, lex.FOrigin, lex.FRun + 1);
  while (lex.CharAt(run) == '\'' && lex.CharAt(run + 1) == '\'')
    run = Find(StringStops, lex.FOrigin, run + 2);
  if (lex.CharAt(run) != '\'') {
    lex.FRun = run;
    lex.Report("Unterminated string");
    return;
  }
  lex.FRun = run + 1;
  if (lex.GetTokenLen() == 3)
    lex.FTokenID = ptAsciiChar;
}

// A point that another follows ends the number, so that a range between two numbers scans; a sign never belongs to it.
void TzkBasePasLex::NumberProc(TzkBasePasLex& lex) {
  TptTokenKind kind = ptIntegerConst;
  std::int32_t run = lex.FRun + 1;
  for (;; ++run) {
    const unsigned char c = lex.CharAt(run);
    if (c == '.' && lex.CharAt(run + 1) != '.')
      kind = ptFloat;
    else if (!Digits[c] && c != 'E' && c != 'e')
      break;
  }
  lex.FRun = run;
  lex.FTokenID = kind;
}

void TzkBasePasLex::BraceCloseProc(TzkBasePasLex& lex) {
  lex.Take(1, ptError);
  lex.Report("Illegal character");
}

void TzkBasePasLex::PointProc(TzkBasePasLex& lex) {
  const unsigned char second = lex.CharAt(lex.FRun + 1);
  if (second == ')')
    lex.Take(2, ptSquareClose);
  else if (second == '.')
    lex.Take(2, ptDotDot);
  else
    lex.Take(1, ptPoint);
}

void TzkBasePasLex::SlashProc(TzkBasePasLex& lex) {
  if (lex.CharAt(lex.FRun + 1) != '/') {
    lex.Take(1, ptSlash);
    return;
  }
  lex.FRun = Find(LineStops, lex.FOrigin, lex.FRun + 2);
  lex.FTokenID = ptSlashesComment;
}

void TzkBasePasLex::ColonProc(TzkBasePasLex& lex) {
  if (lex.CharAt(lex.FRun + 1) == '=')
    lex.Take(2, ptAssign);
  else
    lex.Take(1, ptColon);
}

void TzkBasePasLex::LowerProc(TzkBasePasLex& lex) {
  const unsigned char second = lex.CharAt(lex.FRun + 1);
  if (second == '=')
    lex.Take(2, ptLowerEqual);
  else if (second == '>')
    lex.Take(2, ptNotEqual);
  else
    lex.Take(1, ptLower);
}

void TzkBasePasLex::GreaterProc(TzkBasePasLex& lex) {
  if (lex.CharAt(lex.FRun + 1) == '=')
    lex.Take(2, ptGreaterEqual);
  else
    lex.Take(1, ptGreater);
}

void TzkBasePasLex::AddressProc(TzkBasePasLex& lex) {
  if (lex.CharAt(lex.FRun + 1) == '@')
    lex.Take(2, ptDoubleAddressOp);
  else
    lex.Take(1, ptAddressOp);
}

void TzkBasePasLex::UnknownProc(TzkBasePasLex& lex) {
  lex.Take(1, ptUnknown);
  lex.Report("Unknown Character");
}

} // namespace quorvane
