// SPDX-License-Identifier: MIT
// Source files, their sections, and the clauses that name other units.
#include "parser/zkSimplePasPar.h"

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

constexpr TTokenKindSet InterfaceDeclarations{ptConst,     ptFunction, ptProcedure, ptResourcestring,
                                              ptThreadvar, ptType,     ptVar};

} // namespace

void TzkSimplePasPar::ParseFile() {
  SkipJunk();
  switch (GenID()) {
  case ptLibrary:
    LibraryFile();
    break;
  case ptPackage:
    PackageFile();
    break;
  case ptProgram:
    ProgramFile();
    break;
  case ptUnit:
    UnitFile();
    break;
  default:
    IncludeFile();
  }
}

void TzkSimplePasPar::UnitFile() {
  Expected(ptUnit);
  Expected(ptIdentifier);
  SEMICOLON();
  InterfaceSection();
  ImplementationSection();
  InitializationSection();
  Expected(ptPoint);
}

void TzkSimplePasPar::ProgramFile() {
  Expected(ptProgram);
  Expected(ptIdentifier);
  if (TokenID() == ptRoundOpen) {
    NextToken();
    IdentifierList();
    Expected(ptRoundClose);
  }
  SEMICOLON();
  ProgramBlock();
  Expected(ptPoint);
}

void TzkSimplePasPar::LibraryFile() {
  Expected(ptLibrary);
  Expected(ptIdentifier);
  SEMICOLON();
  ProgramBlock();
  Expected(ptPoint);
}

void TzkSimplePasPar::PackageFile() {
  ExpectedEx(ptPackage);
  Expected(ptIdentifier);
  SEMICOLON();
  if (ExID() == ptRequires)
    RequiresClause();
  if (ExID() == ptContains)
    ContainsClause();
  Expected(ptEnd);
  Expected(ptPoint);
}

// A fragment for inclusion, or a program without its heading, which may be left out. What such a text begins with is
// not known, so whatever may stand in a block is taken, in any order.
void TzkSimplePasPar::IncludeFile() {
  TRounds rounds(FLexer);
  do {
    if (TokenID() == ptUses) {
      MainUsesClause();
    } else if (TokenID() == ptExports || ImplementationDeclarations.Contains(TokenID())) {
      DeclarationSection();
    } else if (TokenID() == ptPoint) {
      NextToken();
      return;
    } else if (StatementStarts.Contains(TokenID())) {
      Statement();
      if (TokenID() != ptNull && TokenID() != ptPoint)
        SEMICOLON();
    } else {
      Expected(ptUnit);
    }
  } while (TokenID() != ptNull && rounds.Next());
}

void TzkSimplePasPar::ProgramBlock() {
  if (TokenID() == ptUses)
    MainUsesClause();
  Block();
}

void TzkSimplePasPar::MainUsesClause() {
  Expected(ptUses);
  MainUsedUnitStatement();
  while (TokenID() == ptComma) {
    NextToken();
    MainUsedUnitStatement();
  }
  SEMICOLON();
}

void TzkSimplePasPar::MainUsedUnitStatement() {
  MainUsedUnitName();
  if (TokenID() == ptIn) {
    NextToken();
    MainUsedUnitExpression();
  }
}

void TzkSimplePasPar::MainUsedUnitName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::MainUsedUnitExpression() {
  ConstantExpression();
}

void TzkSimplePasPar::UsesClause() {
  Expected(ptUses);
  UsedUnitsList();
  SEMICOLON();
}

void TzkSimplePasPar::UsedUnitsList() {
  UsedUnitName();
  while (TokenID() == ptComma) {
    NextToken();
    UsedUnitName();
  }
}

void TzkSimplePasPar::UsedUnitName() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::RequiresClause() {
  ExpectedEx(ptRequires);
  RequiresIdentifier();
  while (TokenID() == ptComma) {
    NextToken();
    RequiresIdentifier();
  }
  SEMICOLON();
}

void TzkSimplePasPar::RequiresIdentifier() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::ContainsClause() {
  ExpectedEx(ptContains);
  ContainsStatement();
  while (TokenID() == ptComma) {
    NextToken();
    ContainsStatement();
  }
  SEMICOLON();
}

void TzkSimplePasPar::ContainsStatement() {
  ContainsIdentifier();
  if (TokenID() == ptIn) {
    NextToken();
    ContainsExpression();
  }
}

void TzkSimplePasPar::ContainsIdentifier() {
  Expected(ptIdentifier);
}

void TzkSimplePasPar::ContainsExpression() {
  ConstantExpression();
}

void TzkSimplePasPar::ExportsClause() {
  Expected(ptExports);
  ExportsElement();
  while (TokenID() == ptComma) {
    NextToken();
    ExportsElement();
  }
  SEMICOLON();
}

void TzkSimplePasPar::ExportsElement() {
  Expected(ptIdentifier);
  if (ExID() == ptIndex) {
    NextToken();
    Expected(ptIntegerConst);
  }
  if (ExID() == ptName) {
    NextToken();
    CharString();
  }
  if (ExID() == ptResident)
    NextToken();
}

void TzkSimplePasPar::InterfaceSection() {
  Expected(ptInterface);
  if (TokenID() == ptUses)
    UsesClause();
  TRounds rounds(FLexer);
  while (InterfaceDeclarations.Contains(TokenID()) && rounds.Next())
    InterfaceDeclaration();
}

void TzkSimplePasPar::InterfaceDeclaration() {
  switch (TokenID()) {
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
  case ptFunction:
  case ptProcedure:
    ExportedHeading();
    break;
  default:
    SynError(InvalidInterfaceDeclaration);
  }
}

void TzkSimplePasPar::ImplementationSection() {
  Expected(ptImplementation);
  if (TokenID() == ptUses)
    UsesClause();
  TRounds rounds(FLexer);
  while (ImplementationDeclarations.Contains(TokenID()) && rounds.Next())
    DeclarationSection();
}

void TzkSimplePasPar::InitializationSection() {
  switch (TokenID()) {
  case ptBegin:
    CompoundStatement();
    break;
  case ptEnd:
    NextToken();
    break;
  case ptInitialization:
    NextToken();
    StatementList();
    if (TokenID() == ptFinalization) {
      NextToken();
      StatementList();
    }
    Expected(ptEnd);
    break;
  default:
    SynError(InvalidInitializationSection);
  }
}

void TzkSimplePasPar::Block() {
  const TNesting nesting(*this, LevelsOfBlock);
  TRounds rounds(FLexer);
  while ((TokenID() == ptExports || ImplementationDeclarations.Contains(TokenID())) && rounds.Next())
    DeclarationSection();
  if (TokenID() == ptAsm)
    AsmStatement();
  else
    CompoundStatement();
}

} // namespace quorvane
