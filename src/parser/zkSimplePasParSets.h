// SPDX-License-Identifier: MIT
// What the files of the parser share among themselves: sets of kinds that more than one construct tests, and the guard
// of their loops.
#pragma once

#include <cstdint>

#include "parser/zkSimplePasPar.h"

namespace quorvane {

// The directives that may follow the heading of a routine.
inline constexpr TTokenKindSet ProceduralDirectives{
    ptAbstract, ptCdecl,    ptDynamic, ptExport,   ptExternal,    ptFar,      ptMessage, ptNear,
    ptOverload, ptOverride, ptPascal,  ptRegister, ptReintroduce, ptSafeCall, ptStdcall, ptVirtual};
inline constexpr TTokenKindSet CallingDirectives{ptCdecl, ptPascal, ptRegister, ptSafeCall, ptStdcall};
inline constexpr TTokenKindSet Directives16Bit{ptExport, ptFar, ptNear};

// What opens a declaration in an implementation section. A block opens with exports clauses as well.
inline constexpr TTokenKindSet ImplementationDeclarations{ptClass,     ptConst, ptConstructor, ptDestructor,
                                                          ptFunction,  ptLabel, ptProcedure,   ptResourcestring,
                                                          ptThreadvar, ptType,  ptVar};

// The operators that a term or an expression goes on at. The lexer's sets have the word as among them, which belongs to
// a reference here.
inline constexpr TTokenKindSet Multiplications{ptAnd, ptDiv, ptMod, ptShl, ptShr, ptSlash, ptStar};
inline constexpr TTokenKindSet Comparisons{ptEqual, ptGreater, ptGreaterEqual, ptIn,
                                           ptIs,    ptLower,   ptLowerEqual,   ptNotEqual};

// What a list of statements goes on at.
inline constexpr TTokenKindSet StatementStarts{ptAddressOp, ptAsm,          ptBegin,         ptCase,  ptDoubleAddressOp,
                                               ptFor,       ptGoto,         ptIdentifier,    ptIf,    ptInherited,
                                               ptInline,    ptIntegerConst, ptPointerSymbol, ptRaise, ptRepeat,
                                               ptRoundOpen, ptSemiColon,    ptString,        ptTry,   ptWhile,
                                               ptWith};

// Whether what stands behind a word makes it the name of a field or variable, which then ends there.
constexpr bool NamesField(TptTokenKind ahead) {
  return ahead == ptColon || ahead == ptComma;
}

inline constexpr TTokenKindSet Signs{ptMinus, ptPlus};

// Ends a loop whose last round consumed nothing: what it stopped at would stop it for ever.
class TzkSimplePasPar::TRounds {
public:
  explicit TRounds(const TzkPasLex& lexer) : FLexer(lexer) {}

  // Whether the lexer has moved since the last time it was asked. True the first time.
  bool Next() {
    const std::int32_t last = FRunPos;
    FRunPos = FLexer.RunPos();
    return FRunPos != last;
  }

private:
  const TzkPasLex& FLexer;
  std::int32_t FRunPos = -1;
};

} // namespace quorvane
