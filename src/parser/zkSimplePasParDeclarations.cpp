// SPDX-License-Identifier: MIT
// The sections that declare labels, constants, types and variables, and what stands in them.
#include "parser/zkSimplePasPar.h"

#include "parser/zkSimplePasParSets.h"

namespace quorvane {

void TzkSimplePasPar::DeclarationSection() {
  switch (TokenID()) {
  case ptLabel:
    LabelDeclarationSection();
    break;
  case ptConst:
  case ptResourcestring:
    ConstSection();
    break;
  case ptType:
    TypeSection();
    break;
  case ptVar:
  case ptThreadvar:
    VarSection();
    break;
  case ptClass:
  case ptConstructor:
  case ptDestructor:
  case ptFunction:
  case ptProcedure:
    ProcedureDeclarationSection();
    break;
  case ptExports:
    ExportsClause();
    break;
  default:
    SynError(InvalidDeclarationSection);
  }
}

void TzkSimplePasPar::IdentifierList() {
  Expected(ptIdentifier);
  while (TokenID() == ptComma) {
    NextToken();
    Expected(ptIdentifier);
  }
}

void TzkSimplePasPar::LabelDeclarationSection() {
  Expected(ptLabel);
  LabelId();
  while (TokenID() == ptComma) {
    NextToken();
    LabelId();
  }
  SEMICOLON();
}

void TzkSimplePasPar::LabelId() {
  if (TokenID() == ptIntegerConst || TokenID() == ptIdentifier)
    NextToken();
  else
    SynError(InvalidLabelId);
}

void TzkSimplePasPar::ConstSection() {
  switch (TokenID()) {
  case ptConst: {
    NextToken();
    TRounds rounds(FLexer);
    while (TokenID() == ptIdentifier && rounds.Next()) {
      ConstantDeclaration();
      SEMICOLON();
    }
    break;
  }
  case ptResourcestring: {
    NextToken();
    TRounds rounds(FLexer);
    while (TokenID() == ptIdentifier && rounds.Next()) {
      ResourceDeclaration();
      SEMICOLON();
    }
    break;
  }
  default:
    SynError(InvalidConstSection);
  }
}

void TzkSimplePasPar::ConstantDeclaration() {
  ConstantName();
  switch (TokenID()) {
  case ptColon:
    ConstantColon();
    break;
  case ptEqual:
    ConstantEqual();
    break;
  default:
    SynError(InvalidConstantDeclaration);
  }
}

void TzkSimplePasPar::ConstantName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::ConstantColon() {
  Expected(ptColon);
  TypeKind();
  TypedConstant();
  HintDirectives();
}

void TzkSimplePasPar::ConstantEqual() {
  Expected(ptEqual);
  ConstantExpression();
  HintDirectives();
}

void TzkSimplePasPar::ResourceDeclaration() {
  Expected(ptIdentifier);
  Expected(ptEqual);
  ConstantExpression();
  HintDirectives();
}

void TzkSimplePasPar::TypedConstant() {
  Expected(ptEqual);
  ConstantValue();
}

void TzkSimplePasPar::ConstantValue() {
  const TNesting nesting(*this);
  if (TokenID() != ptRoundOpen)
    ConstantExpression();
  else if (SecondAheadID() == ptColon)
    RecordConstant();
  else
    ArrayConstant();
}

// A bracket may as well open an expression; nothing but what follows its end tells.
void TzkSimplePasPar::ArrayConstant() {
  Expected(ptRoundOpen);
  if (TokenID() != ptRoundClose) {
    ConstantValue();
    while (TokenID() == ptComma) {
      NextToken();
      ConstantValue();
    }
  }
  Expected(ptRoundClose);
  RestOfExpression();
}

void TzkSimplePasPar::RecordConstant() {
  Expected(ptRoundOpen);
  RecordFieldConstant();
  while (TokenID() == ptSemiColon) {
    NextToken();
    if (TokenID() != ptRoundClose)
      RecordFieldConstant();
  }
  Expected(ptRoundClose);
}

void TzkSimplePasPar::RecordFieldConstant() {
  Expected(ptIdentifier);
  Expected(ptColon);
  ConstantValue();
}

void TzkSimplePasPar::TypeSection() {
  Expected(ptType);
  TRounds rounds(FLexer);
  while (TokenID() == ptIdentifier && rounds.Next()) {
    TypeDeclaration();
    // A value behind a type is taken as it is; intended.
    if (TokenID() == ptEqual)
      TypedConstant();
    SEMICOLON();
  }
}

void TzkSimplePasPar::VarSection() {
  if (TokenID() == ptVar || TokenID() == ptThreadvar)
    NextToken();
  else
    SynError(InvalidVarSection);
  TRounds rounds(FLexer);
  while (TokenID() == ptIdentifier && rounds.Next()) {
    VarDeclaration();
    SEMICOLON();
  }
}

void TzkSimplePasPar::VarDeclaration() {
  IdentifierList();
  Expected(ptColon);
  TypeKind();
  if (ExID() == ptAbsolute)
    VarAbsolute();
  if (TokenID() == ptEqual)
    TypedConstant();
  HintDirectives();
}

void TzkSimplePasPar::VarAbsolute() {
  ExpectedEx(ptAbsolute);
  ConstantExpression();
}

// Hints have no kind of their own but for the reserved word.
void TzkSimplePasPar::HintDirectives() {
  while (TokenID() == ptLibrary || IsIdentifier("platform") || IsIdentifier("deprecated"))
    NextToken();
}

} // namespace quorvane
