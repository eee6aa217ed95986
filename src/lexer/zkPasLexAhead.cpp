// SPDX-License-Identifier: MIT
// The lexer with a second scanner: what the two share, and looking ahead.
#include "lexer/zkPasLex.h"

#include <utility>

namespace quorvane {

// The first token may be a directive, and its handler may look ahead. So the second scanner has the new text before the
// first one scans; the old text need not be there any more.
void TzkPasLex::SetLine(const std::string& line) {
  FAheadLex.GiveText(line.c_str());
  TzkBasePasLex::SetLine(line);
  FAheadLex.SetLine(line);
}

void TzkPasLex::SetOrigin(const char* text) {
  FAheadLex.GiveText(text);
  TzkBasePasLex::SetOrigin(text);
  FAheadLex.SetOrigin(text);
}

void TzkPasLex::SetOnCompDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnCompDirect(event);
  FAheadLex.SetOnCompDirect(std::move(event));
}

void TzkPasLex::SetOnDefineDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnDefineDirect(event);
  FAheadLex.SetOnDefineDirect(std::move(event));
}

void TzkPasLex::SetOnElseDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnElseDirect(event);
  FAheadLex.SetOnElseDirect(std::move(event));
}

void TzkPasLex::SetOnEndIfDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnEndIfDirect(event);
  FAheadLex.SetOnEndIfDirect(std::move(event));
}

void TzkPasLex::SetOnIfDefDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnIfDefDirect(event);
  FAheadLex.SetOnIfDefDirect(std::move(event));
}

void TzkPasLex::SetOnIfNDefDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnIfNDefDirect(event);
  FAheadLex.SetOnIfNDefDirect(std::move(event));
}

void TzkPasLex::SetOnIfOptDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnIfOptDirect(event);
  FAheadLex.SetOnIfOptDirect(std::move(event));
}

void TzkPasLex::SetOnIncludeDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnIncludeDirect(event);
  FAheadLex.SetOnIncludeDirect(std::move(event));
}

void TzkPasLex::SetOnResourceDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnResourceDirect(event);
  FAheadLex.SetOnResourceDirect(std::move(event));
}

void TzkPasLex::SetOnUnDefDirect(TDirectiveEvent event) {
  TzkBasePasLex::SetOnUnDefDirect(event);
  FAheadLex.SetOnUnDefDirect(std::move(event));
}

void TzkPasLex::InitAhead() {
  FAheadLex.SetCommentState(GetCommentState());
  FAheadLex.SetRunPos(RunPos());
  while (FAheadLex.GetIsJunk())
    FAheadLex.Next();
}

void TzkPasLex::AheadNext() {
  FAheadLex.NextNoJunk();
}

void TzkPasLex::GetStatus(TzkPasLexStatus& status) const {
  status.CommentState = GetCommentState();
  status.ExID = ExID();
  status.LineNumber = LineNumber();
  status.LinePos = LinePos();
  status.Origin = Origin();
  status.RunPos = RunPos();
  status.TokenPos = TokenPos();
  status.TokenID = TokenID();
}

void TzkPasLex::SetStatus(const TzkPasLexStatus& status) {
  Restore(status);
  FAheadLex.SetOrigin(status.Origin);
}

} // namespace quorvane
