// SPDX-License-Identifier: MIT
// Source files, their sections, and the clauses that name other units.
#include <gtest/gtest.h>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

class UnitWalks : public testing::TestWithParam<TWalk> {};

TEST_P(UnitWalks, GoAsTheGrammarSays) {
  ExpectWalk(GetParam());
}

const TWalk Units[] = {
    {"ParseFileIsALibrary", &P::ParseFile, "library a; begin end.", {"LibraryFile", "", {}}},
    {"ParseFileIsAPackage", &P::ParseFile, "package a; end.", {"PackageFile", "", {}}},
    {"ParseFileIsAProgram", &P::ParseFile, "program a; begin end.", {"ProgramFile", "", {}}},
    {"ParseFileIsAUnit", &P::ParseFile, "unit a; interface implementation end.", {"UnitFile", "", {}}},
    {"ParseFileIsAFragmentElsewhere", &P::ParseFile, "begin end.", {"IncludeFile", "", {}}},
    {"UnitFileHasThreeSections",
     &P::UnitFile,
     "unit a; interface implementation end. x",
     {"InterfaceSection ImplementationSection InitializationSection", "x", {}}},
    {"UnitFileReportsTheMissingPoint",
     &P::UnitFile,
     "unit a; interface implementation end;",
     {"InterfaceSection ImplementationSection InitializationSection", ";", {"Expected 'Point' found ';' (36, 0)"}}},
    {"UnitFileRaisesAtAnEndTooEarly",
     &P::UnitFile,
     "unit a; interface",
     {"InterfaceSection ImplementationSection", "", {"fatal: Expected 'Implementation' found 'end of file' (17, 0)"}}},
    {"ProgramFileHasABlock", &P::ProgramFile, "program a; begin end. x", {"ProgramBlock", "x", {}}},
    {"ProgramFileMayNameFiles",
     &P::ProgramFile,
     "program a(Input, Output); begin end. x",
     {"IdentifierList ProgramBlock", "x", {}}},
    {"LibraryFileHasABlock", &P::LibraryFile, "library a; begin end. x", {"ProgramBlock", "x", {}}},
    {"PackageFileMayBeEmpty", &P::PackageFile, "package a; end. x", {"", "x", {}}},
    {"PackageFileHasTwoClauses",
     &P::PackageFile,
     "package a; requires b; contains c; end. x",
     {"RequiresClause ContainsClause", "x", {}}},
    {"PackageFileDoesNotRequireBehindItsContents",
     &P::PackageFile,
     "package a; contains c; requires b; end. x",
     {"ContainsClause",
      "requires",
      {"Expected 'End' found 'requires' (23, 0)", "Expected 'Point' found 'requires' (23, 0)"}}},
    {"ProgramBlockMayUseUnits", &P::ProgramBlock, "uses a; begin end.", {"MainUsesClause Block", ".", {}}},
    {"ProgramBlockMayUseNoUnits", &P::ProgramBlock, "begin end.", {"Block", ".", {}}},
    {"MainUsesClauseNamesUnits",
     &P::MainUsesClause,
     "uses a, b in 'b.pas', c; begin",
     {"MainUsedUnitStatement MainUsedUnitStatement MainUsedUnitStatement", "begin", {}}},
    {"MainUsedUnitMayBeInAFile",
     &P::MainUsedUnitStatement,
     "a in 'a.pas';",
     {"MainUsedUnitName MainUsedUnitExpression", ";", {}}},
    {"MainUsedUnitMayBeNamedOnly", &P::MainUsedUnitStatement, "a;", {"MainUsedUnitName", ";", {}}},
    {"UsesClauseIsAList", &P::UsesClause, "uses a, b; type", {"UsedUnitsList", "type", {}}},
    {"UsedUnitsListIsSeparatedByCommas",
     &P::UsedUnitsList,
     "a, b, c;",
     {"UsedUnitName UsedUnitName UsedUnitName", ";", {}}},
    {"UsesClauseOfAUnitKnowsNoFiles",
     &P::UsesClause,
     "uses a in 'a.pas';",
     {"UsedUnitsList", "in", {"Expected 'SemiColon' found 'in' (7, 0)"}}},
    {"RequiresClauseNamesPackages",
     &P::RequiresClause,
     "requires a, b; end",
     {"RequiresIdentifier RequiresIdentifier", "end", {}}},
    {"ContainsClauseNamesUnits",
     &P::ContainsClause,
     "contains a, b in 'b.pas'; end",
     {"ContainsStatement ContainsStatement", "end", {}}},
    {"ContainedUnitMayBeInAFile",
     &P::ContainsStatement,
     "a in 'a.pas';",
     {"ContainsIdentifier ContainsExpression", ";", {}}},
    {"ExportsClauseNamesRoutines",
     &P::ExportsClause,
     "exports a, b; begin",
     {"ExportsElement ExportsElement", "begin", {}}},
    {"ExportsElementMayHaveAllSpecifiers", &P::ExportsElement, "a index 1 name 'b' resident;", {"CharString", ";", {}}},
    {"ExportsElementMayHaveANameOnly", &P::ExportsElement, "a name b;", {"CharString", ";", {}}},
    {"ExportsElementIndexIsANumber",
     &P::ExportsElement,
     "a index b;",
     {"", "b", {"Expected 'IntegerConst' found 'b' (8, 0)"}}},
    {"InterfaceSectionMayBeEmpty", &P::InterfaceSection, "interface implementation", {"", "implementation", {}}},
    {"InterfaceSectionHasDeclarations",
     &P::InterfaceSection,
     "interface uses a; const a = 1; function b: c; procedure d; resourcestring e = 'e'; threadvar f: g; type h = i; "
     "var j: k; implementation",
     {"UsesClause InterfaceDeclaration InterfaceDeclaration InterfaceDeclaration InterfaceDeclaration "
      "InterfaceDeclaration InterfaceDeclaration InterfaceDeclaration",
      "implementation",
      {}}},
    {"InterfaceSectionEndsAtALabel", &P::InterfaceSection, "interface label 1;", {"", "label", {}}},
    {"InterfaceDeclarationIsAConst", &P::InterfaceDeclaration, "const a = 1; type", {"ConstSection", "type", {}}},
    {"InterfaceDeclarationIsAResourcestring",
     &P::InterfaceDeclaration,
     "resourcestring a = 'a'; type",
     {"ConstSection", "type", {}}},
    {"InterfaceDeclarationIsAType", &P::InterfaceDeclaration, "type a = b; var", {"TypeSection", "var", {}}},
    {"InterfaceDeclarationIsAVar", &P::InterfaceDeclaration, "var a: b; type", {"VarSection", "type", {}}},
    {"InterfaceDeclarationIsAThreadvar", &P::InterfaceDeclaration, "threadvar a: b; type", {"VarSection", "type", {}}},
    {"InterfaceDeclarationIsAFunction",
     &P::InterfaceDeclaration,
     "function a: b; type",
     {"ExportedHeading", "type", {}}},
    {"InterfaceDeclarationIsAProcedure",
     &P::InterfaceDeclaration,
     "procedure a; type",
     {"ExportedHeading", "type", {}}},
    {"InterfaceDeclarationReportsAnotherToken",
     &P::InterfaceDeclaration,
     "label 1;",
     {"", "label", {"InvalidInterfaceDeclaration found label (0, 0)"}}},
    {"ImplementationSectionHasDeclarations",
     &P::ImplementationSection,
     "implementation uses a; class procedure a.b; begin end; const c = 1; constructor a.d; begin end; destructor a.e; "
     "begin end; function f: g; begin end; label 1; procedure h; begin end; resourcestring i = 'i'; threadvar j: k; "
     "type l = m; var n: o; end",
     {"UsesClause DeclarationSection DeclarationSection DeclarationSection DeclarationSection DeclarationSection "
      "DeclarationSection DeclarationSection DeclarationSection DeclarationSection DeclarationSection "
      "DeclarationSection",
      "end",
      {}}},
    {"ImplementationSectionEndsAtAnExportsClause",
     &P::ImplementationSection,
     "implementation const a = 1; exports a; end",
     {"DeclarationSection", "exports", {}}},
    {"InitializationSectionIsACompoundStatement",
     &P::InitializationSection,
     "begin a end.",
     {"CompoundStatement", ".", {}}},
    {"InitializationSectionMayBeMissing", &P::InitializationSection, "end.", {"", ".", {}}},
    {"InitializationSectionHasAList", &P::InitializationSection, "initialization a; end.", {"StatementList", ".", {}}},
    {"InitializationSectionMayFinalize",
     &P::InitializationSection,
     "initialization a; finalization b; end.",
     {"StatementList StatementList", ".", {}}},
    {"InitializationSectionDoesNotFinalizeOnly",
     &P::InitializationSection,
     "finalization a; end.",
     {"", "finalization", {"InvalidInitializationSection found finalization (0, 0)"}}},
    {"BlockHasDeclarationsAndAList",
     &P::Block,
     "var a: b; exports c; label d; begin end.",
     {"DeclarationSection DeclarationSection DeclarationSection CompoundStatement", ".", {}}},
    {"BlockMayBeAssembler", &P::Block, "const a = 1; asm end;", {"DeclarationSection AsmStatement", ";", {}}},
    {"FragmentTakesDeclarationsAndStatementsInAnyOrder",
     &P::IncludeFile,
     "uses a; const b = 1; exports b; c := d; procedure e; begin end; f",
     {"MainUsesClause DeclarationSection DeclarationSection Statement DeclarationSection Statement", "", {}}},
    {"FragmentEndsBehindAPoint", &P::IncludeFile, "begin end. x", {"Statement", "x", {}}},
    {"FragmentReportsWhatItDoesNotKnow",
     &P::IncludeFile,
     "a; ] b",
     {"Statement", "]", {"Expected 'Unit' found ']' (3, 0)"}}},
};

INSTANTIATE_TEST_SUITE_P(All, UnitWalks, testing::ValuesIn(Units), NameOfWalk);

TEST(AnExportsClause, IsNotAcceptedInAnImplementationSection) {
  EXPECT_EQ(
      TReporter().Parse("unit u; interface implementation exports a; end."),
      (TReports{"InvalidInitializationSection found exports (33, 0)", "Expected 'Point' found 'exports' (33, 0)"}));
}

TEST(AnExportsClause, IsAcceptedInTheBlocksOfProgramsAndLibraries) {
  EXPECT_EQ(TReporter().Parse("program p; exports a; begin end."), TReports{});
  EXPECT_EQ(TReporter().Parse("library p; exports a; begin end."), TReports{});
}

} // namespace
} // namespace quorvane
