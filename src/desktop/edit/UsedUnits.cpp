// SPDX-License-Identifier: MIT
#include "desktop/edit/UsedUnits.h"

#include "lexer/zkPasLex.h"

namespace desktop {

using namespace quorvane;

namespace {

// Goes on to the next token that is no directive. Returns whether there were directives in between.
bool advance(TzkBasePasLex& lexer) {
  lexer.NextNoJunk();
  const bool passes = lexer.GetIsCompilerDirective();
  while (lexer.GetIsCompilerDirective())
    lexer.NextNoJunk();
  return passes;
}

TextRange placeOf(const TzkBasePasLex& lexer) {
  return {static_cast<std::size_t>(lexer.TokenPos()), static_cast<std::size_t>(lexer.RunPos())};
}

// Takes a name of one or several parts, which may stand here. `passes`: whether directives stand behind it.
void takeName(TzkBasePasLex& lexer, UsedUnit& unit, bool& passes) {
  unit.place.begin = placeOf(lexer).begin;
  while (lexer.TokenID() == ptIdentifier) {
    unit.name += lexer.GetToken();
    unit.place.end = placeOf(lexer).end;
    passes = advance(lexer);
    if (lexer.TokenID() != ptPoint)
      return;
    passes = advance(lexer);
    if (lexer.TokenID() != ptIdentifier) // the dot that ends a text, or a part still to be typed
      return;
    unit.name += '.';
  }
}

void takeFile(TzkBasePasLex& lexer, UsedUnit& unit, bool& passes) {
  if (lexer.TokenID() != ptIn)
    return;
  advance(lexer);
  if (lexer.TokenID() != ptStringConst)
    return;
  unit.file = placeOf(lexer);
  ++unit.file.begin;
  const bool closed = lexer.GetTokenLen() > 1 && lexer.Origin()[unit.file.end - 1] == '\'';
  unit.file.end -= closed ? 1 : 0;
  passes = advance(lexer);
}

// Takes the units of a clause, from the token behind "uses" on. Between the branches of a conditional part there need
// be no comma: A {$IFDEF X} B {$ELSE} C {$ENDIF}.
void takeClause(TzkBasePasLex& lexer, std::vector<UsedUnit>& units) {
  while (lexer.TokenID() == ptIdentifier) {
    UsedUnit unit;
    bool passes = false;
    takeName(lexer, unit, passes);
    takeFile(lexer, unit, passes);
    units.push_back(std::move(unit));
    if (lexer.TokenID() == ptComma)
      advance(lexer);
    else if (!passes)
      return;
  }
}

} // namespace

std::vector<UsedUnit> findUsedUnits(const std::string& text) {
  std::vector<UsedUnit> units;
  TzkBasePasLex lexer;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull;) {
    if (lexer.TokenID() != ptUses) {
      lexer.NextID(ptUses);
      continue;
    }
    advance(lexer);
    takeClause(lexer, units);
  }
  return units;
}

} // namespace desktop
