// SPDX-License-Identifier: MIT
// Comments, what continues them on the next line, and the compiler directives that are written as comments.
#include "lexer/zkPasLex.h"

#include "lexer/zkPasLexTables.h"

namespace quorvane {
namespace {

constexpr TCharSet BraceStops = MakeCharSet([](unsigned c) { return LineStops[c] || c == '}'; });
constexpr TCharSet RoundStops = MakeCharSet([](unsigned c) { return LineStops[c] || c == '*'; });

constexpr bool IsSwitch(char c) {
  return c == '+' || c == '-';
}

constexpr bool IsSwitchOrComma(char c) {
  return IsSwitch(c) || c == ',';
}

std::string UpperCase(std::string text) {
  for (char& c : text)
    if (c >= 'a' && c <= 'z')
      c = static_cast<char>(c - 'a' + 'A');
  return text;
}

} // namespace

// A directive leaves the comment state alone. So where it is not closed on its line, the next line is code again; that
// is intended.
void TzkBasePasLex::BraceOpenProc(TzkBasePasLex& lex) {
  if (lex.CharAt(lex.FRun + 1) == '$') {
    lex.FTokenID = lex.GetDirectiveKind();
  } else {
    lex.FTokenID = ptBorComment;
    lex.FCommentState = csBor;
  }
  ++lex.FRun;
  lex.RunToBraceEnd();
  lex.CallDirectiveEvent();
}

void TzkBasePasLex::RoundOpenProc(TzkBasePasLex& lex) {
  const unsigned char second = lex.CharAt(lex.FRun + 1);
  if (second == '.') {
    lex.Take(2, ptSquareOpen);
    return;
  }
  lex.Take(1, ptRoundOpen);
  if (second != '*')
    return;
  if (lex.CharAt(lex.FRun + 1) == '$') {
    lex.FTokenID = lex.GetDirectiveKind();
  } else {
    lex.FTokenID = ptAnsiComment;
    lex.FCommentState = csAnsi;
  }
  ++lex.FRun;
  lex.RunToRoundEnd();
  lex.CallDirectiveEvent();
}

void TzkBasePasLex::NextInComment() {
  const bool isBrace = FCommentState == csBor;
  FTokenID = isBrace ? ptBorComment : ptAnsiComment;
  switch (CharAt(FRun)) {
  case '\0':
    NullProc(*this);
    Report("Unexpected file end");
    return;
  case '\n':
    LineFeedProc(*this);
    return;
  case '\r':
    CarriageReturnProc(*this);
    return;
  default:
    if (isBrace)
      RunToBraceEnd();
    else
      RunToRoundEnd();
  }
}

void TzkBasePasLex::RunToBraceEnd() {
  std::int32_t run = FRun;
  while (!BraceStops[CharAt(run)])
    ++run;
  if (CharAt(run) == '}') {
    ++run;
    FCommentState = csNo;
  }
  FRun = run;
}

void TzkBasePasLex::RunToRoundEnd() {
  std::int32_t run = FRun;
  for (;; ++run) {
    while (!RoundStops[CharAt(run)])
      ++run;
    if (CharAt(run) != '*')
      break;
    if (CharAt(run + 1) == ')') {
      run += 2;
      FCommentState = csNo;
      break;
    }
  }
  FRun = run;
}

// Leaves the run position on the last character of the directive's name, or on the $ where it has none; the caller
// scans on from the one after. $I is an include even as the switch $I+, while $R knows its switch; both are intended.
TptTokenKind TzkBasePasLex::GetDirectiveKind() {
  const std::int32_t tokenPos = FTokenPos;
  FTokenPos += FOrigin[tokenPos] == '(' ? 3 : 2;
  FRun = FTokenPos;
  const TWordSum sum = KeyHash();
  TptTokenKind kind = ptCompDirect;
  for (const TKeyword& name : DirectiveNames)
    if (name.Hash == sum.Hash && KeyComp(sum, name)) {
      const bool isSwitch = name.Word == "R" && IsSwitch(FOrigin[FRun]);
      kind = isSwitch ? ptCompDirect : name.Kind;
      break;
    }
  FTokenPos = tokenPos;
  --FRun;
  return kind;
}

void TzkBasePasLex::CallDirectiveEvent() {
  const TDirectiveEvent* event = nullptr;
  switch (FTokenID) {
  case ptCompDirect:
    event = &FOnCompDirect;
    break;
  case ptDefineDirect:
    event = &FOnDefineDirect;
    break;
  case ptElseDirect:
    event = &FOnElseDirect;
    break;
  case ptEndIfDirect:
    event = &FOnEndIfDirect;
    break;
  case ptIfDefDirect:
    event = &FOnIfDefDirect;
    break;
  case ptIfNDefDirect:
    event = &FOnIfNDefDirect;
    break;
  case ptIfOptDirect:
    event = &FOnIfOptDirect;
    break;
  case ptIncludeDirect:
    event = &FOnIncludeDirect;
    break;
  case ptResourceDirect:
    event = &FOnResourceDirect;
    break;
  case ptUndefDirect:
    event = &FOnUnDefDirect;
    break;
  default:
    return;
  }
  if (*event)
    (*event)(*this);
}

std::string TzkBasePasLex::GetCompilerDirective() const {
  if (FTokenID == ptEndIfDirect)
    return "endif";
  if (FTokenID != ptCompDirect)
    return {};
  const std::int32_t delimiter = FOrigin[FTokenPos] == '(' ? 2 : 1;
  return UpperCase(TextBetween(FTokenPos + delimiter, FRun - delimiter));
}

std::string TzkBasePasLex::GetDirectiveParam() {
  const std::int32_t delimiter = FOrigin[FTokenPos] == '(' ? 2 : 1;
  const auto skipName = [this] {
    while (IdentChars[CharAt(FParamRun)])
      ++FParamRun;
  };
  const auto skipBlank = [this] {
    if (FOrigin[FParamRun] == ' ')
      ++FParamRun;
  };
  // No other token is as short as the opener of a directive and ends the text; there the end of the token is far
  // enough.
  FParamRun = std::min(FTokenPos + delimiter + 1, FRun);
  skipName();
  while (IsSwitchOrComma(FOrigin[FParamRun])) {
    ++FParamRun;
    skipName();
    if (IsSwitchOrComma(FOrigin[FParamRun - 1]))
      skipBlank();
  }
  skipBlank();
  return UpperCase(TextBetween(FParamRun, FRun - delimiter));
}

} // namespace quorvane
