// SPDX-License-Identifier: MIT
// Type declarations and what types are written as.
#include "parser/zkSimplePasPar.h"

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

// What may open a constant expression, and so a subrange. A bracket opens an enumeration.
constexpr TTokenKindSet SubrangeStarts{ptAsciiChar, ptFloat, ptIdentifier,    ptIntegerConst, ptMinus,
                                       ptNot,       ptPlus,  ptPointerSymbol, ptStringConst};

constexpr TTokenKindSet Conventions{ptCdecl, ptExport, ptFar, ptNear, ptPascal, ptRegister, ptSafeCall, ptStdcall};

} // namespace

void TzkSimplePasPar::TypeDeclaration() {
  TypeName();
  Expected(ptEqual);
  if (TokenID() == ptType)
    ExpliciteType();
  switch (TokenID()) {
  case ptClass:
    switch (AheadID()) {
    case ptOf:
      ClassReferenceType();
      break;
    case ptSemiColon:
      ClassForward();
      break;
    default:
      ClassType();
    }
    break;
  case ptDispinterface:
    if (AheadID() == ptSemiColon)
      DispInterfaceForward();
    else
      InterfaceType();
    break;
  case ptInterface:
    if (AheadID() == ptSemiColon)
      InterfaceForward();
    else
      InterfaceType();
    break;
  case ptObject:
    if (AheadID() == ptSemiColon)
      ObjectForward();
    else
      ObjectType();
    break;
  default:
    FIsDeclaringType = true;
    TypeKind();
    FIsDeclaringType = false;
  }
}

void TzkSimplePasPar::TypeName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::ExpliciteType() {
  Expected(ptType);
}

void TzkSimplePasPar::TypeId() {
  if (TokenID() == ptString || TokenID() == ptFile)
    NextToken();
  else
    QualifiedName();
}

void TzkSimplePasPar::QualifiedName() {
  Expected(ptIdentifier);
  while (TokenID() == ptPoint) {
    NextToken();
    Expected(ptIdentifier);
  }
}

void TzkSimplePasPar::TypeKind() {
  const TNesting nesting(*this);
  switch (TokenID()) {
  case ptArray:
  case ptFile:
  case ptPacked:
  case ptRecord:
  case ptSet:
    StructuredType();
    break;
  case ptFunction:
  case ptProcedure:
    ProceduralType();
    break;
  case ptPointerSymbol:
    // Two of a kind: the type of a pointer, and a control character that a subrange starts with.
    if (SecondAheadID() == ptDotDot)
      SubrangeType();
    else
      PointerType();
    break;
  case ptRoundOpen:
    EnumeratedType();
    break;
  case ptString:
    StringType();
    break;
  default:
    if (SubrangeStarts.Contains(TokenID()))
      SubrangeType();
    else
      SynError(InvalidTypeKind);
  }
  HintDirectives();
}

void TzkSimplePasPar::StructuredType() {
  if (TokenID() == ptPacked)
    NextToken();
  switch (TokenID()) {
  case ptArray:
    ArrayType();
    break;
  case ptClass:
    ClassType();
    break;
  case ptFile:
    FileType();
    break;
  case ptObject:
    ObjectType();
    break;
  case ptRecord:
    RecordType();
    break;
  case ptSet:
    SetType();
    break;
  default:
    SynError(InvalidStructuredType);
  }
}

void TzkSimplePasPar::ArrayType() {
  Expected(ptArray);
  if (TokenID() == ptSquareOpen) {
    NextToken();
    OrdinalType();
    while (TokenID() == ptComma) {
      NextToken();
      OrdinalType();
    }
    Expected(ptSquareClose);
  }
  Expected(ptOf);
  TypeKind();
}

void TzkSimplePasPar::OrdinalType() {
  if (TokenID() == ptRoundOpen)
    EnumeratedType();
  else if (SubrangeStarts.Contains(TokenID()))
    SubrangeType();
  else
    SynError(InvalidOrdinalIdentifier);
}

// A name alone is a type. It is no comparison that follows: an equals sign gives a value to what is declared.
void TzkSimplePasPar::SubrangeType() {
  SimpleExpression();
  if (TokenID() == ptDotDot) {
    NextToken();
    SimpleExpression();
  }
}

void TzkSimplePasPar::EnumeratedType() {
  Expected(ptRoundOpen);
  IdentifierList();
  Expected(ptRoundClose);
}

void TzkSimplePasPar::RecordType() {
  Expected(ptRecord);
  FieldList();
  Expected(ptEnd);
}

void TzkSimplePasPar::FieldList() {
  const TNesting nesting(*this);
  TRounds rounds(FLexer);
  while (TokenID() == ptIdentifier && rounds.Next()) {
    RecordField();
    SEMICOLON();
  }
  if (TokenID() == ptCase)
    VariantSection();
}

void TzkSimplePasPar::RecordField() {
  IdentifierList();
  Expected(ptColon);
  TypeKind();
}

void TzkSimplePasPar::VariantSection() {
  Expected(ptCase);
  VariantTag();
  Expected(ptOf);
  TRounds rounds(FLexer);
  while (TokenID() != ptEnd && TokenID() != ptRoundClose && TokenID() != ptNull && rounds.Next()) {
    RecordVariant();
    SEMICOLON();
  }
}

void TzkSimplePasPar::VariantTag() {
  if (TokenID() == ptIdentifier && AheadID() == ptColon) {
    NextToken();
    Expected(ptColon);
  }
  OrdinalType();
}

void TzkSimplePasPar::RecordVariant() {
  CaseLabel();
  while (TokenID() == ptComma) {
    NextToken();
    CaseLabel();
  }
  Expected(ptColon);
  Expected(ptRoundOpen);
  FieldList();
  Expected(ptRoundClose);
}

void TzkSimplePasPar::SetType() {
  Expected(ptSet);
  Expected(ptOf);
  OrdinalType();
}

void TzkSimplePasPar::FileType() {
  Expected(ptFile);
  if (TokenID() == ptOf) {
    NextToken();
    TypeKind();
  }
}

void TzkSimplePasPar::PointerType() {
  Expected(ptPointerSymbol);
  TypeId();
}

void TzkSimplePasPar::StringType() {
  Expected(ptString);
  if (TokenID() == ptSquareOpen) {
    NextToken();
    ConstantExpression();
    Expected(ptSquareClose);
  }
}

void TzkSimplePasPar::ProceduralType() {
  switch (TokenID()) {
  case ptFunction:
    NextToken();
    if (TokenID() == ptRoundOpen)
      FormalParameterList();
    Expected(ptColon);
    ReturnType();
    break;
  case ptProcedure:
    NextToken();
    if (TokenID() == ptRoundOpen)
      FormalParameterList();
    break;
  default:
    SynError(InvalidProceduralType);
  }
  if (TokenID() == ptOf) {
    NextToken();
    Expected(ptObject);
  }
  CallingConvention();
}

// The convention of a procedural type stands right behind it, or behind the semicolon that then ends it no longer.
// There it could as well be the name of what is declared next; a colon or comma behind it tells, and in a type section
// an equals sign. Elsewhere that gives the variable its value.
void TzkSimplePasPar::CallingConvention() {
  for (;;) {
    if (TokenID() == ptSemiColon) {
      if (!Conventions.Contains(AheadExID()))
        return;
      const TptTokenKind behind = SecondAheadID();
      if (NamesField(behind) || (FIsDeclaringType && behind == ptEqual))
        return;
      NextToken();
    }
    if (CallingDirectives.Contains(ExID()))
      DirectiveCalling();
    else if (Directives16Bit.Contains(ExID()))
      Directive16Bit();
    else
      return;
  }
}

} // namespace quorvane
