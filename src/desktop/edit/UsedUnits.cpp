// SPDX-License-Identifier: MIT
#include "desktop/edit/UsedUnits.h"

#include "lexer/zkPasLex.h"

namespace desktop {

using namespace quorvane;

namespace {

void advance(TzkBasePasLex& lexer) {
  do
    lexer.NextNoJunk();
  while (lexer.GetIsCompilerDirective());
}

TextRange placeOf(const TzkBasePasLex& lexer) {
  return {static_cast<std::size_t>(lexer.TokenPos()), static_cast<std::size_t>(lexer.RunPos())};
}

// Takes a name of one or several parts; false when none stands here.
bool takeName(TzkBasePasLex& lexer, UsedUnit& unit) {
  unit.place.begin = placeOf(lexer).begin;
  while (lexer.TokenID() == ptIdentifier) {
    unit.name += lexer.GetToken();
    unit.place.end = placeOf(lexer).end;
    advance(lexer);
    if (lexer.TokenID() != ptPoint)
      return true;
    advance(lexer);
    if (lexer.TokenID() != ptIdentifier) // the dot that ends a text, or a part still to be typed
      return true;
    unit.name += '.';
  }
  return false;
}

void takeFile(TzkBasePasLex& lexer, UsedUnit& unit) {
  if (lexer.TokenID() != ptIn)
    return;
  advance(lexer);
  if (lexer.TokenID() != ptStringConst)
    return;
  unit.file = placeOf(lexer);
  ++unit.file.begin;
  const bool closed = lexer.GetTokenLen() > 1 && lexer.Origin()[unit.file.end - 1] == '\'';
  unit.file.end -= closed ? 1 : 0;
  advance(lexer);
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
    do {
      advance(lexer);
      UsedUnit unit;
      if (!takeName(lexer, unit))
        break;
      takeFile(lexer, unit);
      units.push_back(std::move(unit));
    } while (lexer.TokenID() == ptComma);
  }
  return units;
}

} // namespace desktop
