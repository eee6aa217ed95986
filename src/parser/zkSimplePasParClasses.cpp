// SPDX-License-Identifier: MIT
// Classes, objects and interfaces, and their members.
#include "parser/zkSimplePasPar.h"

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

constexpr TTokenKindSet MethodsAndProperties{ptClass, ptConstructor, ptDestructor, ptFunction, ptProcedure, ptProperty};
constexpr TTokenKindSet InterfaceMembers{ptClass, ptFunction, ptProcedure, ptProperty};
constexpr TTokenKindSet AccessWords{ptRead, ptReadonly, ptWrite, ptWriteonly};
constexpr TTokenKindSet StorageWords{ptDefault, ptNodefault, ptStored};

} // namespace

void TzkSimplePasPar::ClassForward() {
  Expected(ptClass);
}

void TzkSimplePasPar::ClassReferenceType() {
  Expected(ptClass);
  Expected(ptOf);
  TypeId();
}

void TzkSimplePasPar::ClassType() {
  Expected(ptClass);
  if (TokenID() == ptEnd) {
    NextToken();
    return;
  }
  if (TokenID() == ptRoundOpen) {
    ClassHeritage();
    if (TokenID() == ptEnd) {
      NextToken();
      return;
    }
    if (TokenID() == ptSemiColon)
      return;
  }
  ClassMemberList();
  Expected(ptEnd);
}

void TzkSimplePasPar::ClassHeritage() {
  Expected(ptRoundOpen);
  TypeIdList();
  Expected(ptRoundClose);
}

void TzkSimplePasPar::TypeIdList() {
  TypeId();
  while (TokenID() == ptComma) {
    NextToken();
    TypeId();
  }
}

void TzkSimplePasPar::ClassMemberList() {
  ClassVisibility();
  TRounds rounds(FLexer);
  while ((TokenID() == ptIdentifier || MethodsAndProperties.Contains(TokenID())) && rounds.Next()) {
    TRounds fields(FLexer);
    while (TokenID() == ptIdentifier && fields.Next()) {
      ClassField();
      SEMICOLON();
      ClassVisibility();
    }
    TRounds methods(FLexer);
    while (MethodsAndProperties.Contains(TokenID()) && methods.Next())
      ClassMethodOrProperty();
    ClassVisibility();
  }
}

// A colon or comma behind the word tells that it is the name of a field.
void TzkSimplePasPar::ClassVisibility() {
  for (;;) {
    void (TzkSimplePasPar::*visibility)() = nullptr;
    switch (ExID()) {
    case ptAutomated:
      visibility = &TzkSimplePasPar::VisibilityAutomated;
      break;
    case ptPrivate:
      visibility = &TzkSimplePasPar::VisibilityPrivate;
      break;
    case ptProtected:
      visibility = &TzkSimplePasPar::VisibilityProtected;
      break;
    case ptPublic:
      visibility = &TzkSimplePasPar::VisibilityPublic;
      break;
    case ptPublished:
      visibility = &TzkSimplePasPar::VisibilityPublished;
      break;
    default:
      return;
    }
    if (NamesField(AheadGenID()))
      return;
    (this->*visibility)();
  }
}

void TzkSimplePasPar::VisibilityAutomated() {
  ExpectedEx(ptAutomated);
}

void TzkSimplePasPar::VisibilityPrivate() {
  ExpectedEx(ptPrivate);
}

void TzkSimplePasPar::VisibilityProtected() {
  ExpectedEx(ptProtected);
}

void TzkSimplePasPar::VisibilityPublic() {
  ExpectedEx(ptPublic);
}

void TzkSimplePasPar::VisibilityPublished() {
  ExpectedEx(ptPublished);
}

void TzkSimplePasPar::ClassField() {
  IdentifierList();
  Expected(ptColon);
  TypeKind();
}

void TzkSimplePasPar::ClassMethodOrProperty() {
  if (TokenID() == ptClass)
    NextToken();
  if (TokenID() == ptProperty)
    ClassProperty();
  else
    ClassMethodHeading();
}

void TzkSimplePasPar::ClassMethodHeading() {
  switch (TokenID()) {
  case ptConstructor:
    ConstructorHeading();
    break;
  case ptDestructor:
    DestructorHeading();
    break;
  case ptFunction:
  case ptProcedure:
    if (SecondAheadID() == ptPoint)
      ClassMethodResolution();
    else if (TokenID() == ptFunction)
      ClassFunctionHeading();
    else
      ClassProcedureHeading();
    break;
  default:
    SynError(InvalidClassMethodHeading);
  }
}

void TzkSimplePasPar::ClassMethodName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::ClassMethodResolution() {
  if (TokenID() == ptFunction || TokenID() == ptProcedure)
    NextToken();
  else
    SynError(InvalidMethodHeading);
  Expected(ptIdentifier);
  Expected(ptPoint);
  Expected(ptIdentifier);
  Expected(ptEqual);
  Expected(ptIdentifier);
  SEMICOLON();
}

void TzkSimplePasPar::ConstructorHeading() {
  Expected(ptConstructor);
  MethodHeading();
  MethodDirectives();
}

void TzkSimplePasPar::DestructorHeading() {
  Expected(ptDestructor);
  MethodHeading();
  MethodDirectives();
}

void TzkSimplePasPar::ClassProcedureHeading() {
  Expected(ptProcedure);
  MethodHeading();
  MethodDirectives();
}

void TzkSimplePasPar::ClassFunctionHeading() {
  Expected(ptFunction);
  MethodHeading();
  Expected(ptColon);
  ReturnType();
  MethodDirectives();
}

void TzkSimplePasPar::MethodHeading() {
  ClassMethodName();
  if (TokenID() == ptRoundOpen)
    FormalParameterList();
}

// In front of a directive the semicolon may be missing.
void TzkSimplePasPar::MethodDirectives() {
  const auto isAtHint = [this] { return TokenID() == ptLibrary || IsIdentifier("platform"); };
  const auto isAtDirective = [&] { return ExID() == ptDispid || ProceduralDirectives.Contains(ExID()) || isAtHint(); };
  if (!isAtDirective())
    SEMICOLON();
  TRounds rounds(FLexer);
  while (isAtDirective() && rounds.Next()) {
    if (ExID() == ptDispid)
      DispidSpecifier();
    else if (isAtHint())
      HintDirectives();
    else
      ProceduralDirective();
    if (!isAtDirective())
      SEMICOLON();
  }
}

void TzkSimplePasPar::DispidSpecifier() {
  ExpectedEx(ptDispid);
  ConstantExpression();
}

void TzkSimplePasPar::ClassProperty() {
  Expected(ptProperty);
  PropertyName();
  bool isArray = false;
  if (TokenID() == ptColon || TokenID() == ptSquareOpen) {
    isArray = TokenID() == ptSquareOpen;
    PropertyInterface();
  }
  PropertySpecifiers();
  if (isArray && ExID() == ptDefault)
    PropertyDirective();
}

void TzkSimplePasPar::PropertyName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::PropertyInterface() {
  if (TokenID() == ptSquareOpen)
    PropertyParameterList();
  Expected(ptColon);
  TypeId();
}

void TzkSimplePasPar::PropertyParameterList() {
  Expected(ptSquareOpen);
  FormalParameterSection();
  while (TokenID() == ptSemiColon) {
    NextToken();
    FormalParameterSection();
  }
  Expected(ptSquareClose);
}

void TzkSimplePasPar::PropertySpecifiers() {
  if (ExID() == ptIndex) {
    NextToken();
    ConstantExpression();
  }
  TRounds accesses(FLexer);
  while (AccessWords.Contains(ExID()) && accesses.Next())
    AccessSpecifier();
  if (ExID() == ptDispid) {
    NextToken();
    ConstantExpression();
  }
  TRounds storages(FLexer);
  while (StorageWords.Contains(ExID()) && storages.Next())
    StorageSpecifier();
  if (ExID() == ptImplements) {
    NextToken();
    QualifiedIdentifierList();
  }
  SEMICOLON();
}

void TzkSimplePasPar::AccessSpecifier() {
  switch (ExID()) {
  case ptRead:
    NextToken();
    ReadAccessIdentifier();
    break;
  case ptWrite:
    NextToken();
    WriteAccessIdentifier();
    break;
  case ptReadonly:
  case ptWriteonly:
    NextToken();
    break;
  default:
    SynError(InvalidAccessSpecifier);
  }
}

void TzkSimplePasPar::ReadAccessIdentifier() {
  QualifiedIdentifier();
}

void TzkSimplePasPar::WriteAccessIdentifier() {
  QualifiedIdentifier();
}

void TzkSimplePasPar::StorageSpecifier() {
  switch (ExID()) {
  case ptStored:
    NextToken();
    Expression();
    break;
  case ptDefault:
    NextToken();
    ConstantExpression();
    break;
  case ptNodefault:
    NextToken();
    break;
  default:
    SynError(InvalidStorageSpecifier);
  }
}

void TzkSimplePasPar::PropertyDirective() {
  ExpectedEx(ptDefault);
  SEMICOLON();
}

void TzkSimplePasPar::ObjectForward() {
  Expected(ptObject);
}

void TzkSimplePasPar::ObjectType() {
  Expected(ptObject);
  if (TokenID() == ptRoundOpen)
    ObjectHeritage();
  ClassMemberList();
  Expected(ptEnd);
}

void TzkSimplePasPar::ObjectHeritage() {
  Expected(ptRoundOpen);
  TypeId();
  Expected(ptRoundClose);
}

void TzkSimplePasPar::InterfaceForward() {
  Expected(ptInterface);
}

void TzkSimplePasPar::DispInterfaceForward() {
  Expected(ptDispinterface);
}

void TzkSimplePasPar::InterfaceType() {
  if (TokenID() == ptInterface || TokenID() == ptDispinterface)
    NextToken();
  else
    SynError(InvalidInterfaceType);
  if (TokenID() == ptRoundOpen)
    InterfaceHeritage();
  if (TokenID() == ptSquareOpen)
    InterfaceGUID();
  InterfaceMemberList();
  Expected(ptEnd);
}

void TzkSimplePasPar::InterfaceHeritage() {
  Expected(ptRoundOpen);
  TypeIdList();
  Expected(ptRoundClose);
}

void TzkSimplePasPar::InterfaceGUID() {
  Expected(ptSquareOpen);
  ConstantExpression();
  Expected(ptSquareClose);
}

void TzkSimplePasPar::InterfaceMemberList() {
  TRounds rounds(FLexer);
  while (InterfaceMembers.Contains(TokenID()) && rounds.Next())
    ClassMethodOrProperty();
}

} // namespace quorvane
