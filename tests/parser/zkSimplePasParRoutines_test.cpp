// SPDX-License-Identifier: MIT
// Routines: their headings, parameters, directives and bodies.
#include <gtest/gtest.h>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

class RoutineWalks : public testing::TestWithParam<TWalk> {};

TEST_P(RoutineWalks, GoAsTheGrammarSays) {
  ExpectWalk(GetParam());
}

// clang-format off
const TWalk Routines[] = {
    {"RoutineIsAProcedure", &P::ProcedureDeclarationSection, "procedure a; begin end; x", {"ProcedureMethodDeclaration", "x", {}}},
    {"RoutineIsAConstructor", &P::ProcedureDeclarationSection, "constructor a.b; begin end; x", {"ProcedureMethodDeclaration", "x", {}}},
    {"RoutineIsADestructor", &P::ProcedureDeclarationSection, "destructor a.b; begin end; x", {"ProcedureMethodDeclaration", "x", {}}},
    {"RoutineIsAFunction", &P::ProcedureDeclarationSection, "function a: b; begin end; x", {"FunctionMethodDeclaration", "x", {}}},
    {"RoutineIsAMethodOfAClass", &P::ProcedureDeclarationSection, "class function a.b: c; begin end; x", {"FunctionMethodDeclaration", "x", {}}},
    {"RoutineReportsAnotherToken", &P::ProcedureDeclarationSection, "class property a;",
     {"", "property", {"InvalidProcedureDeclarationSection found property (6, 0)"}}},
    {"ProcedureIsOfNoClass", &P::ProcedureMethodDeclaration, "procedure a(b: c); begin end; x",
     {"FunctionProcedureName FormalParameterList FunctionProcedureBlock", "x", {}}},
    {"ProcedureIsOfAClass", &P::ProcedureMethodDeclaration, "procedure a.b; begin end; x",
     {"ObjectNameOfMethod FunctionProcedureName FunctionProcedureBlock", "x", {}}},
    {"ProcedureReportsItsWordAndGoesOn", &P::ProcedureMethodDeclaration, "a; begin end; x",
     {"FunctionProcedureName FunctionProcedureBlock", "x", {"InvalidProcedureMethodDeclaration found a (0, 0)"}}},
    {"FunctionHasAResult", &P::FunctionMethodDeclaration, "function a(b: c): d; begin end; x",
     {"FunctionProcedureName FormalParameterList ReturnType FunctionProcedureBlock", "x", {}}},
    {"FunctionMayLeaveOutItsResult", &P::FunctionMethodDeclaration, "function a.b; begin end; x",
     {"ObjectNameOfMethod FunctionProcedureName FunctionProcedureBlock", "x", {}}},
    {"FunctionReportsAMissingColon", &P::FunctionMethodDeclaration, "function a string; begin end; x",
     {"FunctionProcedureName ReturnType FunctionProcedureBlock", "x", {"Expected 'Colon' found 'string' (11, 0)"}}},
    {"BlockMayBeForward", &P::FunctionProcedureBlock, "; forward; x", {"", "x", {}}},
    {"BlockIsDemandedBehindFarAndForwardWhichIsIntended", &P::FunctionProcedureBlock, "; far; forward; end; x",
     {"ProceduralDirective Block", "x", {"Expected 'Begin' found 'forward' (7, 0)"}}},
    {"BlockIsInPascal", &P::FunctionProcedureBlock, "; var a: b; begin end; x", {"Block", "x", {}}},
    {"BlockIsInAssembler", &P::FunctionProcedureBlock, "; asm end; x", {"AsmStatement", "x", {}}},
    {"BlockIsInAssemblerByItsDirective", &P::FunctionProcedureBlock, "; assembler; asm end; x", {"AsmStatement", "x", {}}},
    {"BlockInAssemblerMayHaveDeclarations", &P::FunctionProcedureBlock, "; assembler; var a: b; asm end; x", {"Block", "x", {}}},
    {"BlockTakesNoDirectiveBehindAssemblerWhichIsIntended", &P::FunctionProcedureBlock,
     "; assembler; register; asm end; end; x", {"Block", "x", {"Expected 'Begin' found 'register' (13, 0)"}}},
    {"BlockTakesDirectives", &P::FunctionProcedureBlock,
     "; abstract; cdecl; dynamic; export; far; message 1; near; overload; override; pascal; register; reintroduce; "
     "safecall; stdcall; virtual; begin end; x",
     {"ProceduralDirective ProceduralDirective ProceduralDirective ProceduralDirective ProceduralDirective "
      "ProceduralDirective ProceduralDirective ProceduralDirective ProceduralDirective ProceduralDirective "
      "ProceduralDirective ProceduralDirective ProceduralDirective ProceduralDirective ProceduralDirective Block", "x", {}}},
    {"BlockTakesDirectivesWithoutSemicolons", &P::FunctionProcedureBlock, "; stdcall far begin end; x",
     {"ProceduralDirective ProceduralDirective Block", "x", {}}},
    {"BlockIsNotThereForAnExternalRoutine", &P::FunctionProcedureBlock, "; stdcall; external 'a' name 'b'; x",
     {"ProceduralDirective ProceduralDirective", "x", {}}},
    {"BlockTakesDirectivesBehindExternal", &P::FunctionProcedureBlock, "; external; cdecl; x",
     {"ProceduralDirective ProceduralDirective", "x", {}}},
    {"ExportedHeadingOfAFunction", &P::ExportedHeading, "function a: b; x", {"FunctionHeading", "x", {}}},
    {"ExportedHeadingOfAProcedure", &P::ExportedHeading, "procedure a; x", {"ProcedureHeading", "x", {}}},
    {"ExportedHeadingReportsAnotherToken", &P::ExportedHeading, "constructor", {"", "constructor", {"InvalidExportedHeading found constructor (0, 0)"}}},
    {"ExportedHeadingTakesDirectives", &P::ExportedHeading, "procedure a; overload; stdcall; x",
     {"ProcedureHeading ProceduralDirective ProceduralDirective", "x", {}}},
    {"ExportedHeadingMayBeForward", &P::ExportedHeading, "procedure a; forward; x", {"ProcedureHeading ForwardDeclaration", "x", {}}},
    {"ExportedHeadingMayBeForwardBehindDirectives", &P::ExportedHeading, "procedure a; far; forward; x",
     {"ProcedureHeading ProceduralDirective ForwardDeclaration", "x", {}}},
    {"ExportedHeadingTakesNothingBehindForward", &P::ExportedHeading, "procedure a; forward; far; x",
     {"ProcedureHeading ForwardDeclaration", "far", {}}},
    {"ExportedHeadingMayBeAssembler", &P::ExportedHeading, "procedure a; assembler; x", {"ProcedureHeading", "x", {}}},
    {"ExportedHeadingMayBeForwardBehindAssembler", &P::ExportedHeading, "procedure a; assembler; forward; x",
     {"ProcedureHeading ForwardDeclaration", "x", {}}},
    {"ExportedHeadingTakesNoDirectiveBehindAssembler", &P::ExportedHeading, "procedure a; assembler; register; x",
     {"ProcedureHeading", "register", {}}},
    {"FunctionHeadingHasAResult", &P::FunctionHeading, "function a(b: c): d;", {"FunctionProcedureName FormalParameterList ReturnType", ";", {}}},
    {"FunctionHeadingReportsAMissingResult", &P::FunctionHeading, "function a;",
     {"FunctionProcedureName ReturnType", ";", {"Expected 'Colon' found ';' (10, 0)", "Expected 'Identifier' found ';' (10, 0)"}}},
    {"ProcedureHeadingHasParameters", &P::ProcedureHeading, "procedure a(b: c);", {"FunctionProcedureName FormalParameterList", ";", {}}},
    {"ForwardDeclarationIsAWordAndASemicolon", &P::ForwardDeclaration, "forward; x", {"", "x", {}}},
    {"ReturnTypeIsAString", &P::ReturnType, "string;", {"TypeId", ";", {}}},
    {"ReturnTypeIsOfAUnit", &P::ReturnType, "a.b;", {"TypeId", ";", {}}},
    {"ParameterListMayBeEmpty", &P::FormalParameterList, "();", {"", ";", {}}},
    {"ParameterListIsSeparatedBySemicolons", &P::FormalParameterList, "(a: b; const c, d: e; var f; out g: h);",
     {"FormalParameterSection FormalParameterSection FormalParameterSection FormalParameterSection", ";", {}}},
    {"ParametersMayHaveADefault", &P::FormalParameterSection, "a: b = 1)", {"IdentifierList ParameterType DefaultParameter", ")", {}}},
    {"ParametersMayHaveNoType", &P::FormalParameterSection, "const a)", {"IdentifierList", ")", {}}},
    {"ParametersMayBeOut", &P::FormalParameterSection, "out a: b)", {"IdentifierList ParameterType", ")", {}}},
    {"ParameterMayBeNamedOut", &P::FormalParameterSection, "out: b)", {"IdentifierList ParameterType", ")", {}}},
    {"ParameterMayBeNamedOutInAList", &P::FormalParameterSection, "a, out, b: c)", {"IdentifierList ParameterType", ")", {}}},
    {"ParametersReportAnotherToken", &P::FormalParameterSection, "type)", {"", "type", {"InvalidParameter found type (0, 0)"}}},
    {"ParameterTypeIsAnOpenArray", &P::ParameterType, "array of a)", {"TypeId", ")", {}}},
    {"ParameterTypeIsAnArrayOfConst", &P::ParameterType, "array of const)", {"", ")", {}}},
    {"ParameterTypeIsAFile", &P::ParameterType, "file)", {"TypeId", ")", {}}},
    {"DirectiveBinds", &P::ProceduralDirective, "virtual;", {"DirectiveBinding", ";", {}}},
    {"DirectiveCalls", &P::ProceduralDirective, "stdcall;", {"DirectiveCalling", ";", {}}},
    {"DirectiveIsOldFashioned", &P::ProceduralDirective, "far;", {"Directive16Bit", ";", {}}},
    {"DirectiveIsExternal", &P::ProceduralDirective, "external;", {"ExternalDirective", ";", {}}},
    {"DirectiveReportsAnotherToken", &P::ProceduralDirective, "a;", {"", "a", {"InvalidProceduralDirective found a (0, 0)"}}},
    {"BindingOfAMessageHasANumber", &P::DirectiveBinding, "message WM_USER + 1;", {"ConstantExpression", ";", {}}},
    {"BindingReportsAnotherToken", &P::DirectiveBinding, "a;", {"", "a", {"InvalidDirectiveBinding found a (0, 0)"}}},
    {"CallingReportsAnotherToken", &P::DirectiveCalling, "far;", {"", "far", {"InvalidDirectiveCalling found far (0, 0)"}}},
    {"OldFashionedDirectiveReportsAnotherToken", &P::Directive16Bit, "cdecl;", {"", "cdecl", {"InvalidDirective16Bit found cdecl (0, 0)"}}},
    {"ExternalMayNameNothing", &P::ExternalDirective, "external;", {"", ";", {}}},
    {"ExternalMayNameALibrary", &P::ExternalDirective, "external a;", {"SimpleExpression", ";", {}}},
    {"ExternalMayNameALibraryAndARoutine", &P::ExternalDirective, "external 'a.dll' name 'b';", {"SimpleExpression SimpleExpression", ";", {}}},
    {"ExternalMayNameALibraryAndANumber", &P::ExternalDirective, "external 'a.dll' index 1;", {"SimpleExpression SimpleExpression", ";", {}}},
    {"ExternalMayNameARoutineOnly", &P::ExternalDirective, "external name 'b';", {"SimpleExpression", ";", {}}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, RoutineWalks, testing::ValuesIn(Routines), NameOfWalk);

} // namespace
} // namespace quorvane
