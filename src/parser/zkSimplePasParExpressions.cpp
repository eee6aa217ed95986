// SPDX-License-Identifier: MIT
// Expressions, and the references and literals that they are made of.
#include "parser/zkSimplePasPar.h"

#include <utility>

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

constexpr bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

constexpr bool IsIdentChar(char c) {
  return IsLetter(c) || (c >= '0' && c <= '9') || c == '_';
}

// Whether a circumflex in front of this text makes a control character, ^@ to ^_. A letter must stand alone.
constexpr bool IsControlCharacter(const char* text) {
  switch (text[0]) {
  case '@':
  case '[':
  case '\\':
  case ']':
  case '^':
    return true;
  default:
    return (IsLetter(text[0]) || text[0] == '_') && !IsIdentChar(text[1]);
  }
}

} // namespace

// Sets whether width specifiers are taken, for as long as it lives. Each bracket decides anew.
class TzkSimplePasPar::TWidths {
public:
  TWidths(TzkSimplePasPar& parser, bool areTaken)
      : FParser(parser), FOuter(std::exchange(parser.FFormatMode, static_cast<std::uint8_t>(areTaken))) {}
  ~TWidths() { FParser.FFormatMode = FOuter; }
  TWidths(const TWidths&) = delete;
  TWidths& operator=(const TWidths&) = delete;

private:
  TzkSimplePasPar& FParser;
  std::uint8_t FOuter;
};

// One relation at most: a second one is left to the caller, who reports it.
void TzkSimplePasPar::Expression() {
  SimpleExpression();
  if (Comparisons.Contains(TokenID())) {
    RelativeOperator();
    SimpleExpression();
  }
  if (FFormatMode != 1)
    return;
  while (TokenID() == ptColon) {
    NextToken();
    SimpleExpression();
  }
}

void TzkSimplePasPar::ConstantExpression() {
  Expression();
}

void TzkSimplePasPar::ExpressionList() {
  Expression();
  while (TokenID() == ptComma) {
    NextToken();
    Expression();
  }
}

void TzkSimplePasPar::SimpleExpression() {
  while (Signs.Contains(TokenID()))
    NextToken();
  Term();
  while (AddOperators.Contains(TokenID())) {
    AdditiveOperator();
    Term();
  }
}

void TzkSimplePasPar::AdditiveOperator() {
  switch (TokenID()) {
  case ptOr:
  case ptXor:
    NextToken();
    break;
  case ptMinus:
  case ptPlus:
    while (Signs.Contains(TokenID()))
      NextToken();
    break;
  default:
    SynError(InvalidAdditiveOperator);
  }
}

void TzkSimplePasPar::Term() {
  Factor();
  while (Multiplications.Contains(TokenID())) {
    MultiplicativeOperator();
    Factor();
  }
}

void TzkSimplePasPar::MultiplicativeOperator() {
  if (Multiplications.Contains(TokenID()))
    NextToken();
  else
    SynError(InvalidMultiplicativeOperator);
}

// The word as is taken here although no expression comes here with it; intended.
void TzkSimplePasPar::RelativeOperator() {
  if (RelativeOperators.Contains(TokenID()))
    NextToken();
  else
    SynError(InvalidRelativeOperator);
}

void TzkSimplePasPar::Factor() {
  const TNesting nesting(*this);
  switch (TokenID()) {
  case ptNil:
    NextToken();
    break;
  case ptAddressOp:
  case ptDoubleAddressOp:
  case ptIdentifier:
  case ptInherited:
  case ptPointerSymbol:
  case ptRoundOpen:
    Designator();
    break;
  case ptFloat:
  case ptIntegerConst:
    Number();
    break;
  case ptAsciiChar:
  case ptStringConst:
    CharString();
    break;
  case ptSquareOpen: {
    const TWidths widths(*this, false);
    SetConstructor();
    break;
  }
  case ptMinus:
  case ptNot:
  case ptPlus:
  case ptString:
    NextToken();
    Factor();
    break;
  default:
    break;
  }
}

void TzkSimplePasPar::Number() {
  if (TokenID() == ptFloat || TokenID() == ptIntegerConst || TokenID() == ptIdentifier)
    NextToken();
  else
    SynError(InvalidNumber);
}

void TzkSimplePasPar::SetConstructor() {
  Expected(ptSquareOpen);
  SetElement();
  while (TokenID() == ptComma) {
    NextToken();
    SetElement();
  }
  Expected(ptSquareClose);
}

void TzkSimplePasPar::SetElement() {
  Expression();
  if (TokenID() == ptDotDot) {
    NextToken();
    Expression();
  }
}

// Literals and control characters, as in 'a'#13^J, make one string where nothing but junk stands between them.
void TzkSimplePasPar::CharString() {
  if (TokenID() == ptIdentifier) {
    QualifiedName();
    return;
  }
  if (!IsAtCharacters()) {
    SynError(InvalidCharString);
    return;
  }
  do {
    if (TokenID() == ptPointerSymbol)
      NextToken();
    NextToken();
  } while (IsAtCharacters());
  if (TokenID() == ptSquareOpen)
    Subscript();
}

bool TzkSimplePasPar::IsAtCharacters() const {
  return TokenID() == ptAsciiChar || TokenID() == ptStringConst ||
         (TokenID() == ptPointerSymbol && IsControlCharacter(FLexer.Origin() + FLexer.RunPos()));
}

// A subscript behind the first name ends it; intended.
void TzkSimplePasPar::QualifiedIdentifier() {
  Expected(ptIdentifier);
  if (TokenID() == ptSquareOpen) {
    ConstantExpression();
    return;
  }
  while (TokenID() == ptPoint) {
    NextToken();
    Expected(ptIdentifier);
    if (TokenID() == ptSquareOpen)
      ConstantExpression();
  }
}

void TzkSimplePasPar::QualifiedIdentifierList() {
  QualifiedIdentifier();
  while (TokenID() == ptComma) {
    NextToken();
    QualifiedIdentifier();
  }
}

void TzkSimplePasPar::Designator() {
  VariableReference();
}

// The right side of as is a reference of its own, and what follows it belongs to the result.
void TzkSimplePasPar::VariableReference() {
  for (;;) {
    while (TokenID() == ptAddressOp || TokenID() == ptDoubleAddressOp)
      NextToken();
    Variable();
    VariableTwo();
    if (TokenID() != ptAs)
      return;
    NextToken();
  }
}

void TzkSimplePasPar::Variable() {
  FCallee = TCallee::Other;
  switch (TokenID()) {
  case ptIdentifier:
    FCallee = Callee();
    NextToken();
    break;
  case ptInherited:
    NextToken();
    if (TokenID() == ptIdentifier)
      NextToken();
    break;
  case ptPointerSymbol:
    CharString();
    break;
  case ptRoundOpen: {
    NextToken();
    const TWidths widths(*this, false);
    Expression();
    Expected(ptRoundClose);
    break;
  }
  case ptString:
    NextToken();
    break;
  default:
    Expected(ptIdentifier);
  }
}

void TzkSimplePasPar::VariableTwo() {
  TCallee callee = std::exchange(FCallee, TCallee::Other);
  for (;;) {
    switch (TokenID()) {
    case ptPoint:
      NextToken();
      callee = callee == TCallee::SystemUnit ? Callee() : TCallee::Other;
      Expected(ptIdentifier);
      break;
    case ptPointerSymbol:
      NextToken();
      callee = TCallee::Other;
      break;
    case ptRoundOpen:
      Arguments(callee == TCallee::TakesWidths);
      callee = TCallee::Other;
      break;
    case ptSquareOpen:
      Subscript();
      callee = TCallee::Other;
      break;
    default:
      return;
    }
  }
}

// A name and := before an argument pass it by name, which automation objects know. The reserved word of a type that no
// expression knows stands alone, as in SizeOf(file).
void TzkSimplePasPar::Arguments(bool areWidthsTaken) {
  const TWidths widths(*this, areWidthsTaken);
  Expected(ptRoundOpen);
  if (TokenID() == ptFile) {
    NextToken();
  } else if (TokenID() != ptRoundClose) {
    ExpressionList();
    while (TokenID() == ptAssign) {
      NextToken();
      ExpressionList();
    }
  }
  Expected(ptRoundClose);
}

void TzkSimplePasPar::Subscript() {
  const TWidths widths(*this, false);
  Expected(ptSquareOpen);
  ExpressionList();
  Expected(ptSquareClose);
}

void TzkSimplePasPar::RestOfExpression() {
  if (Multiplications.Contains(TokenID()))
    MultiplicativeOperator();
  else if (AddOperators.Contains(TokenID()))
    AdditiveOperator();
  else if (Comparisons.Contains(TokenID()))
    RelativeOperator();
  else
    return;
  Expression();
}

TzkSimplePasPar::TCallee TzkSimplePasPar::Callee() const {
  if (ExID() == ptWrite || IsIdentifier("writeln") || IsIdentifier("str"))
    return TCallee::TakesWidths;
  return IsIdentifier("system") ? TCallee::SystemUnit : TCallee::Other;
}

} // namespace quorvane
