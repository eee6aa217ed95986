// SPDX-License-Identifier: MIT
// The sections that declare labels, constants, types and variables.
#include <gtest/gtest.h>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

class DeclarationWalks : public testing::TestWithParam<TWalk> {};

TEST_P(DeclarationWalks, GoAsTheGrammarSays) {
  ExpectWalk(GetParam());
}

// clang-format off
const TWalk Declarations[] = {
    {"SectionOfLabels", &P::DeclarationSection, "label 1; var", {"LabelDeclarationSection", "var", {}}},
    {"SectionOfConstants", &P::DeclarationSection, "const a = 1; var", {"ConstSection", "var", {}}},
    {"SectionOfResourcestrings", &P::DeclarationSection, "resourcestring a = 'a'; var", {"ConstSection", "var", {}}},
    {"SectionOfTypes", &P::DeclarationSection, "type a = b; var", {"TypeSection", "var", {}}},
    {"SectionOfVariables", &P::DeclarationSection, "var a: b; const", {"VarSection", "const", {}}},
    {"SectionOfThreadVariables", &P::DeclarationSection, "threadvar a: b; const", {"VarSection", "const", {}}},
    {"SectionOfAClassMethod", &P::DeclarationSection, "class procedure a.b; begin end; const", {"ProcedureDeclarationSection", "const", {}}},
    {"SectionOfAConstructor", &P::DeclarationSection, "constructor a.b; begin end; const", {"ProcedureDeclarationSection", "const", {}}},
    {"SectionOfADestructor", &P::DeclarationSection, "destructor a.b; begin end; const", {"ProcedureDeclarationSection", "const", {}}},
    {"SectionOfAFunction", &P::DeclarationSection, "function a: b; begin end; const", {"ProcedureDeclarationSection", "const", {}}},
    {"SectionOfAProcedure", &P::DeclarationSection, "procedure a; begin end; const", {"ProcedureDeclarationSection", "const", {}}},
    {"SectionOfExports", &P::DeclarationSection, "exports a; const", {"ExportsClause", "const", {}}},
    {"SectionReportsAnotherToken", &P::DeclarationSection, "begin", {"", "begin", {"InvalidDeclarationSection found begin (0, 0)"}}},
    {"IdentifierListIsSeparatedByCommas", &P::IdentifierList, "a, b, c:", {"", ":", {}}},
    {"IdentifierListReportsAMissingName", &P::IdentifierList, "a, :", {"", ":", {"Expected 'Identifier' found ':' (3, 0)"}}},
    {"LabelsAreNamesOrNumbers", &P::LabelDeclarationSection, "label 1, a; var", {"LabelId LabelId", "var", {}}},
    {"ConstSectionHasConstants", &P::ConstSection, "const a = 1; b: c = 2; var", {"ConstantDeclaration ConstantDeclaration", "var", {}}},
    {"ConstSectionHasResources", &P::ConstSection, "resourcestring a = 'a'; b = c; var", {"ResourceDeclaration ResourceDeclaration", "var", {}}},
    {"ConstSectionReportsAnotherToken", &P::ConstSection, "var", {"", "var", {"InvalidConstSection found var (0, 0)"}}},
    {"ConstSectionGoesOnBehindAMissingValue", &P::ConstSection, "const a b", 
     {"ConstantDeclaration ConstantDeclaration", "",
      {"InvalidConstantDeclaration found b (8, 0)", "Expected 'SemiColon' found 'b' (8, 0)",
       "InvalidConstantDeclaration found  (9, 0)", "fatal: Expected 'SemiColon' found 'end of file' (9, 0)"}}},
    {"ConstantMayBeTyped", &P::ConstantDeclaration, "a: b = 1;", {"ConstantName ConstantColon", ";", {}}},
    {"ConstantMayHaveTheTypeOfItsValue", &P::ConstantDeclaration, "a = 1;", {"ConstantName ConstantEqual", ";", {}}},
    {"ConstantReportsAMissingValue", &P::ConstantDeclaration, "a;", {"ConstantName", ";", {"InvalidConstantDeclaration found ; (1, 0)"}}},
    {"TypedConstantIsATypeAndAValue", &P::ConstantColon, ": array[0..1] of b = (1, 2);", {"TypeKind TypedConstant HintDirectives", ";", {}}},
    {"ConstantMayHaveHints", &P::ConstantEqual, "= 1 platform library;", {"ConstantExpression HintDirectives", ";", {}}},
    {"ConstantNamedLikeAHintIsAConstant", &P::ConstSection, "const platform = 1; deprecated = 2; var",
     {"ConstantDeclaration ConstantDeclaration", "var", {}}},
    {"ValueIsAnExpression", &P::ConstantValue, "1 + 2;", {"ConstantExpression", ";", {}}},
    {"ValueIsARecord", &P::ConstantValue, "(a: 1; b: (c: 2; d: 3;));", {"RecordConstant", ";", {}}},
    {"ValueIsAnArray", &P::ConstantValue, "((1, 2), (3, 4));", {"ArrayConstant", ";", {}}},
    {"ValueIsAnEmptyArray", &P::ConstantValue, "();", {"ArrayConstant", ";", {}}},
    {"ValueIsABracketAndTheRestOfItsExpression", &P::ConstantValue, "(1 + 2) * 3 = 4;", {"ArrayConstant", ";", {}}},
    {"ValueIsASetOfCharacters", &P::ConstantValue, "['a'..'z', #0];", {"ConstantExpression", ";", {}}},
    {"ValueIsAnAddress", &P::ConstantValue, "@a.b;", {"ConstantExpression", ";", {}}},
    {"ArrayHasValues", &P::ArrayConstant, "(1, (a: 2), (3));", {"ConstantValue ConstantValue ConstantValue", ";", {}}},
    {"RecordHasFields", &P::RecordConstant, "(a: 1; b: 2);", {"RecordFieldConstant RecordFieldConstant", ";", {}}},
    {"RecordMayEndWithASemicolon", &P::RecordConstant, "(a: 1;);", {"RecordFieldConstant", ";", {}}},
    {"TypeSectionHasTypes", &P::TypeSection, "type a = b; c = class; var", {"TypeDeclaration TypeDeclaration", "var", {}}},
    {"TypeMayHaveAValueWhichIsIntended", &P::TypeSection, "type a = b = 1; var", {"TypeDeclaration TypedConstant", "var", {}}},
    {"VarSectionHasVariables", &P::VarSection, "var a: b; c, d: e; const", {"VarDeclaration VarDeclaration", "const", {}}},
    {"VarSectionMayBeOfAThread", &P::VarSection, "threadvar a: b; const", {"VarDeclaration", "const", {}}},
    {"VarSectionReportsItsWordAndGoesOn", &P::VarSection, "a: b; const", {"VarDeclaration", "const", {"InvalidVarSection found a (0, 0)"}}},
    {"VariableHasAType", &P::VarDeclaration, "a, b: c;", {"IdentifierList TypeKind HintDirectives", ";", {}}},
    {"VariableMayLieOverAnother", &P::VarDeclaration, "a: b absolute c;", {"IdentifierList TypeKind VarAbsolute HintDirectives", ";", {}}},
    {"VariableMayLieAtAnAddress", &P::VarDeclaration, "a: b absolute $40;", {"IdentifierList TypeKind VarAbsolute HintDirectives", ";", {}}},
    {"VariableMayHaveAValue", &P::VarDeclaration, "a: b = 1;", {"IdentifierList TypeKind TypedConstant HintDirectives", ";", {}}},
    {"VariableOfAProcedureMayBeNil", &P::VarDeclaration, "a: procedure(b: c) of object = nil;",
     {"IdentifierList TypeKind TypedConstant HintDirectives", ";", {}}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, DeclarationWalks, testing::ValuesIn(Declarations), NameOfWalk);

} // namespace
} // namespace quorvane
