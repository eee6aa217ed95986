// SPDX-License-Identifier: MIT
// Statements.
#include "parser/zkSimplePasPar.h"

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

// What a designator starts with where it stands at the start of a statement.
constexpr TTokenKindSet DesignatorStarts{ptAddressOp, ptDoubleAddressOp, ptIdentifier, ptPointerSymbol, ptRoundOpen};

// An assembler block that lost its end stops here instead of swallowing the rest of the unit.
constexpr TTokenKindSet AsmStops{ptBegin, ptCase, ptFunction, ptIf, ptProcedure, ptRepeat, ptWhile};

} // namespace

void TzkSimplePasPar::CompoundStatement() {
  Expected(ptBegin);
  StatementList();
  Expected(ptEnd);
}

void TzkSimplePasPar::StatementList() {
  TRounds rounds(FLexer);
  while (StatementStarts.Contains(TokenID()) && rounds.Next()) {
    Statement();
    SEMICOLON();
  }
}

void TzkSimplePasPar::Statement() {
  const TNesting nesting(*this);
  switch (TokenID()) {
  case ptAsm:
    AsmStatement();
    break;
  case ptBegin:
    CompoundStatement();
    break;
  case ptCase:
    CaseStatement();
    break;
  case ptFor:
    ForStatement();
    break;
  case ptIdentifier:
    if (IsColonAhead())
      LabeledStatement();
    else
      SimpleStatement();
    break;
  case ptIf:
    IfStatement();
    break;
  case ptInherited:
    InheritedStatement();
    break;
  case ptInline:
    InlineStatement();
    break;
  case ptIntegerConst:
    if (IsColonAhead())
      LabeledStatement();
    else
      SynError(InvalidLabeledStatement);
    break;
  case ptRaise:
    RaiseStatement();
    break;
  case ptRepeat:
    RepeatStatement();
    break;
  case ptSemiColon:
    EmptyStatement();
    break;
  case ptString:
    StringStatement();
    break;
  case ptTry:
    TryStatement();
    break;
  case ptWhile:
    WhileStatement();
    break;
  case ptWith:
    WithStatement();
    break;
  default:
    SimpleStatement();
  }
}

void TzkSimplePasPar::EmptyStatement() {}

void TzkSimplePasPar::SimpleStatement() {
  if (DesignatorStarts.Contains(TokenID())) {
    Designator();
    if (TokenID() == ptAssign) {
      NextToken();
      if (TokenID() == ptInherited)
        NextToken();
      Expression();
    }
  } else if (TokenID() == ptGoto) {
    NextToken();
    LabelId();
  }
}

void TzkSimplePasPar::LabeledStatement() {
  if (TokenID() != ptIdentifier && TokenID() != ptIntegerConst) {
    SynError(InvalidLabeledStatement);
    return;
  }
  NextToken();
  Expected(ptColon);
  Statement();
}

void TzkSimplePasPar::InheritedStatement() {
  Expected(ptInherited);
  if (TokenID() != ptSemiColon)
    Statement();
}

// The word may open a statement, as in a cast; intended.
void TzkSimplePasPar::StringStatement() {
  Expected(ptString);
  Statement();
}

void TzkSimplePasPar::IfStatement() {
  Expected(ptIf);
  Expression();
  Expected(ptThen);
  Statement();
  if (TokenID() == ptElse) {
    NextToken();
    Statement();
  }
}

void TzkSimplePasPar::CaseStatement() {
  Expected(ptCase);
  Expression();
  Expected(ptOf);
  CaseSelector();
  while (TokenID() == ptSemiColon) {
    SEMICOLON();
    if (TokenID() != ptElse && TokenID() != ptEnd)
      CaseSelector();
  }
  if (TokenID() == ptElse) {
    NextToken();
    StatementList();
    SEMICOLON();
  }
  Expected(ptEnd);
}

void TzkSimplePasPar::CaseSelector() {
  CaseLabel();
  while (TokenID() == ptComma) {
    NextToken();
    CaseLabel();
  }
  Expected(ptColon);
  if (TokenID() != ptSemiColon)
    Statement();
}

void TzkSimplePasPar::CaseLabel() {
  ConstantExpression();
  if (TokenID() == ptDotDot) {
    NextToken();
    ConstantExpression();
  }
}

void TzkSimplePasPar::ForStatement() {
  Expected(ptFor);
  QualifiedIdentifier();
  Expected(ptAssign);
  Expression();
  if (TokenID() == ptTo || TokenID() == ptDownto)
    NextToken();
  else
    SynError(InvalidForStatement);
  Expression();
  Expected(ptDo);
  Statement();
}

void TzkSimplePasPar::WhileStatement() {
  Expected(ptWhile);
  Expression();
  Expected(ptDo);
  Statement();
}

void TzkSimplePasPar::RepeatStatement() {
  Expected(ptRepeat);
  StatementList();
  Expected(ptUntil);
  Expression();
}

void TzkSimplePasPar::WithStatement() {
  Expected(ptWith);
  VariableList();
  Expected(ptDo);
  Statement();
}

void TzkSimplePasPar::VariableList() {
  VariableReference();
  while (TokenID() == ptComma) {
    NextToken();
    VariableReference();
  }
}

void TzkSimplePasPar::TryStatement() {
  Expected(ptTry);
  StatementList();
  switch (TokenID()) {
  case ptExcept:
    NextToken();
    ExceptBlock();
    Expected(ptEnd);
    break;
  case ptFinally:
    NextToken();
    StatementList();
    Expected(ptEnd);
    break;
  default:
    SynError(InvalidTryStatement);
  }
}

void TzkSimplePasPar::ExceptBlock() {
  if (ExID() == ptOn) {
    ExceptionHandlerList();
    ExceptionBlockElseBranch();
  } else {
    StatementList();
  }
}

void TzkSimplePasPar::ExceptionHandlerList() {
  TRounds rounds(FLexer);
  while (ExID() == ptOn && rounds.Next()) {
    ExceptionHandler();
    SEMICOLON();
  }
}

void TzkSimplePasPar::ExceptionHandler() {
  ExpectedEx(ptOn);
  ExceptionIdentifier();
  Expected(ptDo);
  Statement();
}

void TzkSimplePasPar::ExceptionBlockElseBranch() {
  if (TokenID() == ptElse) {
    NextToken();
    StatementList();
  }
}

void TzkSimplePasPar::ExceptionIdentifier() {
  if (AheadID() == ptPoint) {
    ExceptionClassTypeIdentifier();
    return;
  }
  ExceptionVariable();
  if (TokenID() == ptColon) {
    NextToken();
    ExceptionClassTypeIdentifier();
  }
}

void TzkSimplePasPar::ExceptionClassTypeIdentifier() {
  QualifiedIdentifier();
}

void TzkSimplePasPar::ExceptionVariable() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::RaiseStatement() {
  Expected(ptRaise);
  if (DesignatorStarts.Contains(TokenID()))
    Designator();
  if (ExID() == ptAt) {
    NextToken();
    Expression();
  }
}

void TzkSimplePasPar::InlineStatement() {
  Expected(ptInline);
  Expected(ptRoundOpen);
  Expected(ptIntegerConst);
  while (TokenID() == ptSlash) {
    NextToken();
    Expected(ptIntegerConst);
  }
  Expected(ptRoundClose);
}

// The token behind an address sign is a label, whatever it looks like.
void TzkSimplePasPar::AsmStatement() {
  Expected(ptAsm);
  while (TokenID() != ptEnd && TokenID() != ptNull && !AsmStops.Contains(TokenID())) {
    if (TokenID() == ptAddressOp || TokenID() == ptDoubleAddressOp)
      NextToken();
    NextToken();
  }
  Expected(ptEnd);
}

} // namespace quorvane
