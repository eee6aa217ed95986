// SPDX-License-Identifier: MIT
// Routines: their headings, parameters, directives and bodies.
#include "parser/zkSimplePasPar.h"

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

constexpr TTokenKindSet ProcedureWords{ptConstructor, ptDestructor, ptProcedure};
constexpr TTokenKindSet BindingDirectives{ptAbstract, ptDynamic,     ptMessage, ptOverload,
                                          ptOverride, ptReintroduce, ptVirtual};

} // namespace

void TzkSimplePasPar::ProcedureDeclarationSection() {
  if (TokenID() == ptClass)
    NextToken();
  switch (TokenID()) {
  case ptConstructor:
  case ptDestructor:
  case ptProcedure:
    ProcedureMethodDeclaration();
    break;
  case ptFunction:
    FunctionMethodDeclaration();
    break;
  default:
    SynError(InvalidProcedureDeclarationSection);
  }
}

void TzkSimplePasPar::ProcedureMethodDeclaration() {
  if (ProcedureWords.Contains(TokenID()))
    NextToken();
  else
    SynError(InvalidProcedureMethodDeclaration);
  if (AheadID() == ptPoint) {
    ObjectNameOfMethod();
    Expected(ptPoint);
  }
  FunctionProcedureName();
  if (TokenID() == ptRoundOpen)
    FormalParameterList();
  FunctionProcedureBlock();
}

// The result may be left out, as in the body of a method whose heading stands in its class.
void TzkSimplePasPar::FunctionMethodDeclaration() {
  Expected(ptFunction);
  if (AheadID() == ptPoint) {
    ObjectNameOfMethod();
    Expected(ptPoint);
  }
  FunctionProcedureName();
  if (TokenID() == ptRoundOpen)
    FormalParameterList();
  if (TokenID() != ptSemiColon) {
    Expected(ptColon);
    ReturnType();
  }
  FunctionProcedureBlock();
}

void TzkSimplePasPar::ObjectNameOfMethod() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::FunctionProcedureName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::FunctionProcedureBlock() {
  if (TokenID() == ptSemiColon)
    SEMICOLON();
  if (ExID() == ptForward) {
    NextToken();
    SEMICOLON();
    return;
  }
  bool hasBody = true;
  TRounds rounds(FLexer);
  while (ProceduralDirectives.Contains(ExID()) && rounds.Next()) {
    if (ExID() == ptExternal)
      hasBody = false;
    ProceduralDirective();
    if (TokenID() == ptSemiColon)
      SEMICOLON();
  }
  if (!hasBody)
    return;
  if (ExID() == ptAssembler) {
    NextToken();
    SEMICOLON();
  }
  if (TokenID() == ptAsm)
    AsmStatement();
  else
    Block();
  SEMICOLON();
}

void TzkSimplePasPar::ExportedHeading() {
  switch (TokenID()) {
  case ptFunction:
    FunctionHeading();
    break;
  case ptProcedure:
    ProcedureHeading();
    break;
  default:
    SynError(InvalidExportedHeading);
  }
  if (TokenID() == ptSemiColon)
    SEMICOLON();
  if (ExID() == ptAssembler) {
    NextToken();
    SEMICOLON();
    if (ExID() == ptForward)
      ForwardDeclaration();
    return;
  }
  if (ExID() == ptForward) {
    ForwardDeclaration();
    return;
  }
  TRounds rounds(FLexer);
  while (ProceduralDirectives.Contains(ExID()) && rounds.Next()) {
    ProceduralDirective();
    if (TokenID() == ptSemiColon)
      SEMICOLON();
  }
  if (ExID() == ptForward)
    ForwardDeclaration();
}

void TzkSimplePasPar::FunctionHeading() {
  Expected(ptFunction);
  FunctionProcedureName();
  if (TokenID() == ptRoundOpen)
    FormalParameterList();
  Expected(ptColon);
  ReturnType();
}

void TzkSimplePasPar::ProcedureHeading() {
  Expected(ptProcedure);
  FunctionProcedureName();
  if (TokenID() == ptRoundOpen)
    FormalParameterList();
}

void TzkSimplePasPar::ForwardDeclaration() {
  NextToken();
  SEMICOLON();
}

void TzkSimplePasPar::ReturnType() {
  TypeId();
}

void TzkSimplePasPar::FormalParameterList() {
  Expected(ptRoundOpen);
  if (TokenID() != ptRoundClose) {
    FormalParameterSection();
    while (TokenID() == ptSemiColon) {
      NextToken();
      FormalParameterSection();
    }
  }
  Expected(ptRoundClose);
}

// The word out is a name as well: it passes a parameter only in front of another name.
void TzkSimplePasPar::FormalParameterSection() {
  switch (TokenID()) {
  case ptConst:
  case ptVar:
    NextToken();
    break;
  case ptIdentifier:
    if (ExID() == ptOut && AheadID() == ptIdentifier)
      NextToken();
    break;
  default:
    SynError(InvalidParameter);
    return;
  }
  IdentifierList();
  if (TokenID() == ptColon) {
    NextToken();
    ParameterType();
  }
  if (TokenID() == ptEqual)
    DefaultParameter();
}

void TzkSimplePasPar::ParameterType() {
  if (TokenID() != ptArray) {
    TypeId();
    return;
  }
  NextToken();
  Expected(ptOf);
  if (TokenID() == ptConst)
    NextToken();
  else
    TypeId();
}

void TzkSimplePasPar::DefaultParameter() {
  Expected(ptEqual);
  ConstantExpression();
}

void TzkSimplePasPar::ProceduralDirective() {
  if (BindingDirectives.Contains(ExID()))
    DirectiveBinding();
  else if (CallingDirectives.Contains(ExID()))
    DirectiveCalling();
  else if (Directives16Bit.Contains(ExID()))
    Directive16Bit();
  else if (ExID() == ptExternal)
    ExternalDirective();
  else
    SynError(InvalidProceduralDirective);
}

void TzkSimplePasPar::DirectiveBinding() {
  if (!BindingDirectives.Contains(ExID())) {
    SynError(InvalidDirectiveBinding);
    return;
  }
  const bool hasNumber = ExID() == ptMessage;
  NextToken();
  if (hasNumber)
    ConstantExpression();
}

void TzkSimplePasPar::DirectiveCalling() {
  if (CallingDirectives.Contains(ExID()))
    NextToken();
  else
    SynError(InvalidDirectiveCalling);
}

void TzkSimplePasPar::Directive16Bit() {
  if (Directives16Bit.Contains(ExID()))
    NextToken();
  else
    SynError(InvalidDirective16Bit);
}

// Without the name of a library the routine comes from an object file.
void TzkSimplePasPar::ExternalDirective() {
  ExpectedEx(ptExternal);
  if (TokenID() != ptSemiColon && ExID() != ptName && ExID() != ptIndex)
    SimpleExpression();
  if (ExID() == ptName) {
    NextToken();
    SimpleExpression();
  }
  if (ExID() == ptIndex) {
    NextToken();
    SimpleExpression();
  }
}

} // namespace quorvane
