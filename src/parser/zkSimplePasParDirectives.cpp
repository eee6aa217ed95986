// SPDX-License-Identifier: MIT
// Compiler directives: how they reach their handlers, and what those do here.
#include "parser/zkSimplePasPar.h"

#include <utility>

#include "parser/zkSimplePasParSets.h"

namespace quorvane {

// The handler is part of the event's type, so that the event is small enough to need no memory of its own: there are
// twenty of them for each text, and most texts are short.
template <TzkSimplePasPar::TDirectiveHandler Handler> TDirectiveEvent TzkSimplePasPar::EventOf() {
  return [this](TzkBasePasLex& lex) { HandleDirective(lex, Handler); };
}

void TzkSimplePasPar::BindDirectiveEvents() {
  FLexer.SetOnCompDirect(EventOf<&TzkSimplePasPar::HandlePtCompDirect>());
  FLexer.SetOnDefineDirect(EventOf<&TzkSimplePasPar::HandlePtDefineDirect>());
  FLexer.SetOnElseDirect(EventOf<&TzkSimplePasPar::HandlePtElseDirect>());
  FLexer.SetOnEndIfDirect(EventOf<&TzkSimplePasPar::HandlePtEndIfDirect>());
  FLexer.SetOnIfDefDirect(EventOf<&TzkSimplePasPar::HandlePtIfDefDirect>());
  FLexer.SetOnIfNDefDirect(EventOf<&TzkSimplePasPar::HandlePtIfNDefDirect>());
  FLexer.SetOnIfOptDirect(EventOf<&TzkSimplePasPar::HandlePtIfOptDirect>());
  FLexer.SetOnIncludeDirect(EventOf<&TzkSimplePasPar::HandlePtIncludeDirect>());
  FLexer.SetOnResourceDirect(EventOf<&TzkSimplePasPar::HandlePtResourceDirect>());
  FLexer.SetOnUnDefDirect(EventOf<&TzkSimplePasPar::HandlePtUndefDirect>());
}

// A handler moves its scanner on, and so may meet the next directive while it is still at work. That one waits until
// the first is done, instead of being handled inside of it, where a long row of directives would overflow the stack.
void TzkSimplePasPar::HandleDirective(TzkBasePasLex& lex, TDirectiveHandler handler) {
  TDirectiveRun& run = RunOf(lex);
  if (run.IsRunning) {
    run.Waiting = handler;
    run.WaitingPos = lex.TokenPos();
    return;
  }
  run.IsRunning = true;
  (this->*handler)(lex);
  HandleWaiting(lex);
  run.IsRunning = false;
}

// One that the scanner no longer stands on has been skipped by whoever moved it.
void TzkSimplePasPar::HandleWaiting(TzkBasePasLex& lex) {
  TDirectiveRun& run = RunOf(lex);
  while (const TDirectiveHandler handler = std::exchange(run.Waiting, nullptr))
    if (run.WaitingPos == lex.TokenPos())
      (this->*handler)(lex);
}

void TzkSimplePasPar::NextIn(TzkBasePasLex& lex) {
  lex.Next();
  HandleWaiting(lex);
}

void TzkSimplePasPar::ReportDirective(TzkBasePasLex& lex) {
  if (FOnMessage)
    Report("Currently not supported " + std::string(TokenText()));
  lex.Next();
}

void TzkSimplePasPar::HandlePtCompDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtDefineDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtElseDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtEndIfDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtIfDefDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtIfNDefDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtIfOptDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtIncludeDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtResourceDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

void TzkSimplePasPar::HandlePtUndefDirect(TzkBasePasLex& lex) {
  ReportDirective(lex);
}

} // namespace quorvane
