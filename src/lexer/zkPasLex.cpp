// SPDX-License-Identifier: MIT
#include "lexer/zkPasLex.h"

#include <utility>

#include "lexer/zkPasLexTables.h"

namespace quorvane {
namespace {

constexpr bool IsLineEnd(unsigned char c) {
  return c == '\n' || c == '\r';
}

} // namespace

TzkBasePasLex::TzkBasePasLex() : FOrigin(NoText), FProcTable(CharProcs), FIdentFuncTable(IdentFuncs) {}

void TzkBasePasLex::SetLine(const std::string& line) {
  GiveText(line.c_str());
  Next();
}

void TzkBasePasLex::SetOrigin(const char* text) {
  GiveText(text);
  Init();
  Next();
}

void TzkBasePasLex::SetOnCompDirect(TDirectiveEvent event) {
  FOnCompDirect = std::move(event);
}
void TzkBasePasLex::SetOnDefineDirect(TDirectiveEvent event) {
  FOnDefineDirect = std::move(event);
}
void TzkBasePasLex::SetOnElseDirect(TDirectiveEvent event) {
  FOnElseDirect = std::move(event);
}
void TzkBasePasLex::SetOnEndIfDirect(TDirectiveEvent event) {
  FOnEndIfDirect = std::move(event);
}
void TzkBasePasLex::SetOnIfDefDirect(TDirectiveEvent event) {
  FOnIfDefDirect = std::move(event);
}
void TzkBasePasLex::SetOnIfNDefDirect(TDirectiveEvent event) {
  FOnIfNDefDirect = std::move(event);
}
void TzkBasePasLex::SetOnIfOptDirect(TDirectiveEvent event) {
  FOnIfOptDirect = std::move(event);
}
void TzkBasePasLex::SetOnIncludeDirect(TDirectiveEvent event) {
  FOnIncludeDirect = std::move(event);
}
void TzkBasePasLex::SetOnResourceDirect(TDirectiveEvent event) {
  FOnResourceDirect = std::move(event);
}
void TzkBasePasLex::SetOnUnDefDirect(TDirectiveEvent event) {
  FOnUnDefDirect = std::move(event);
}

void TzkBasePasLex::SetOnMessage(TMessageEvent event) {
  FOnMessage = std::move(event);
}

void TzkBasePasLex::Init() {
  FCommentState = csNo;
  InitLine();
}

void TzkBasePasLex::InitLine() {
  FLineNumber = 0;
  FLinePos = 0;
  FRun = 0;
}

void TzkBasePasLex::SetRunPos(std::int32_t runPos) {
  FRun = runPos;
  Next();
}

std::string TzkBasePasLex::GetToken() const {
  return TextBetween(FTokenPos, FRun);
}

TptTokenKind TzkBasePasLex::GetGenID() const {
  return FTokenID == ptIdentifier && FExID != ptUnknown ? FExID : FTokenID;
}

bool TzkBasePasLex::GetIsOrdIdent() const {
  return FTokenID == ptIdentifier && OrdinalTypeIdents.Contains(FExID);
}

bool TzkBasePasLex::GetIsOrdinalType() const {
  return GetIsOrdIdent() || FTokenID == ptAsciiChar || FTokenID == ptIntegerConst;
}

bool TzkBasePasLex::GetIsRealType() const {
  return FTokenID == ptIdentifier && RealTypeIdents.Contains(FExID);
}

bool TzkBasePasLex::GetIsStringType() const {
  return FTokenID == ptString || FTokenID == ptStringConst ||
         (FTokenID == ptIdentifier && StringTypeIdents.Contains(FExID));
}

bool TzkBasePasLex::GetIsVarantType() const {
  return FTokenID == ptIdentifier && VariantTypeIdents.Contains(FExID);
}

void TzkBasePasLex::NextNoJunk() {
  do
    Next();
  while (GetIsJunk());
}

void TzkBasePasLex::NextNoSpace() {
  do
    Next();
  while (GetIsSpace());
}

void TzkBasePasLex::NextID(TptTokenKind kind) {
  do {
    if (FTokenID == ptNull)
      return;
    Next();
  } while (FTokenID != kind);
}

char TzkBasePasLex::CharAhead() {
  FAheadRun = FRun;
  while (CharAt(FAheadRun) >= 1 && CharAt(FAheadRun) <= ' ')
    ++FAheadRun;
  return FOrigin[FAheadRun];
}

bool TzkBasePasLex::FirstInLine() const {
  if (FTokenPos == 0)
    return true;
  std::int32_t index = FTokenPos - 1;
  while (index > 0 && Blanks[CharAt(index)])
    --index;
  return index == 0 || IsLineEnd(CharAt(index));
}

std::string TzkBasePasLex::GetStringContent() const {
  if (FTokenID != ptStringConst)
    return {};
  // Doubled quotes stand in pairs, so an odd number of quotes at the end means that the last one closes the string.
  std::int32_t end = FRun;
  while (end > FTokenPos + 1 && FOrigin[end - 1] == '\'')
    --end;
  const bool isClosed = (FRun - end) % 2 != 0;
  return TextBetween(FTokenPos + 1, isClosed ? FRun - 1 : FRun);
}

void TzkBasePasLex::GiveText(const char* text) {
  FOrigin = text != nullptr ? text : NoText;
  InitLine();
  FTokenPos = 0;
  FTokenID = ptNull;
  FExID = ptUnknown;
}

void TzkBasePasLex::Restore(const TzkPasLexStatus& status) {
  FCommentState = status.CommentState;
  FExID = status.ExID;
  FLineNumber = status.LineNumber;
  FLinePos = status.LinePos;
  FOrigin = status.Origin != nullptr ? status.Origin : NoText;
  FRun = status.RunPos;
  FTokenPos = status.TokenPos;
  FTokenID = status.TokenID;
}

std::string TzkBasePasLex::TextBetween(std::int32_t first, std::int32_t end) const {
  return first < end ? std::string(FOrigin + first, FOrigin + end) : std::string();
}

void TzkBasePasLex::Report(std::string_view msg) {
  if (!FOnMessage)
    return;
  const TzkPoint position = GetPosXY();
  FOnMessage(*this, msg, position.X, position.Y);
}

} // namespace quorvane
