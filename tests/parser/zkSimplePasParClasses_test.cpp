// SPDX-License-Identifier: MIT
// Classes, objects and interfaces, and their members.
#include <gtest/gtest.h>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

class ClassWalks : public testing::TestWithParam<TWalk> {};

TEST_P(ClassWalks, GoAsTheGrammarSays) {
  ExpectWalk(GetParam());
}

// clang-format off
const TWalk Classes[] = {
    {"ClassAndASemicolonIsAForwardDeclaration", &P::TypeDeclaration, "a = class;", {"TypeName ClassForward", ";", {}}},
    {"ClassAndOfIsAReference", &P::TypeDeclaration, "a = class of b;", {"TypeName ClassReferenceType", ";", {}}},
    {"ClassWithAncestorsAndASemicolonHasNoMembers", &P::TypeDeclaration, "a = class(b, c);", {"TypeName ClassType", ";", {}}},
    {"ClassAndMembersIsAClass", &P::TypeDeclaration, "a = class b: c; end;", {"TypeName ClassType", ";", {}}},
    {"DispinterfaceMayBeForward", &P::TypeDeclaration, "a = dispinterface;", {"TypeName DispInterfaceForward", ";", {}}},
    {"DispinterfaceMayHaveMembers", &P::TypeDeclaration, "a = dispinterface end;", {"TypeName InterfaceType", ";", {}}},
    {"InterfaceMayBeForward", &P::TypeDeclaration, "a = interface;", {"TypeName InterfaceForward", ";", {}}},
    {"InterfaceMayHaveMembers", &P::TypeDeclaration, "a = interface end;", {"TypeName InterfaceType", ";", {}}},
    {"ObjectMayBeForward", &P::TypeDeclaration, "a = object;", {"TypeName ObjectForward", ";", {}}},
    {"ObjectMayHaveMembers", &P::TypeDeclaration, "a = object end;", {"TypeName ObjectType", ";", {}}},
    {"AnyOtherTypeIsOfTheirKinds", &P::TypeDeclaration, "a = b;", {"TypeName TypeKind", ";", {}}},
    {"TypeMayBeATypeOfItsOwn", &P::TypeDeclaration, "a = type b;", {"TypeName ExpliciteType TypeKind", ";", {}}},
    {"ExpliciteTypeTakesTheWordOnly", &P::ExpliciteType, "type a", {"", "a", {}}},
    {"ClassTypeMayBeEmpty", &P::ClassType, "class end;", {"", ";", {}}},
    {"ClassTypeMayBeEmptyWithAncestors", &P::ClassType, "class(a) end;", {"ClassHeritage", ";", {}}},
    {"ClassTypeMayHaveAncestorsOnly", &P::ClassType, "class(a);", {"ClassHeritage", ";", {}}},
    {"ClassTypeHasMembers", &P::ClassType, "class a: b end;", {"ClassMemberList", ";", {}}},
    {"ClassTypeHasAncestorsAndMembers", &P::ClassType, "class(a) b: c end;", {"ClassHeritage ClassMemberList", ";", {}}},
    {"ClassTypeReportsTheMissingEnd", &P::ClassType, "class a: b; const",
     {"ClassMemberList", "const", {"Expected 'End' found 'const' (12, 0)"}}},
    {"ClassHeritageNamesTypes", &P::ClassHeritage, "(a, b.c) x", {"TypeId TypeId", "x", {}}},
    {"ClassMembersMayBeOfEveryKind", &P::ClassMemberList,
     "a: b; private c, d: e; procedure f; property g; public h: i; end",
     {"ClassVisibility ClassField ClassVisibility ClassField ClassVisibility ClassMethodOrProperty "
      "ClassMethodOrProperty ClassVisibility ClassField ClassVisibility ClassVisibility", "end", {}}},
    {"ClassMembersEndAtAnotherToken", &P::ClassMemberList, "type", {"ClassVisibility", "type", {}}},
    {"ClassMembersMayBeAVisibilityOnly", &P::ClassMemberList, "private",
     {"ClassVisibility", "", {}}},
    {"ClassMembersReportWhatBehindClassIsNoMember", &P::ClassMemberList, "class var a: b; end",
     {"ClassVisibility ClassMethodOrProperty ClassVisibility", "var", {"InvalidClassMethodHeading found var (6, 0)"}}},
    {"VisibilityMayChangeAtOnce", &P::ClassVisibility, "automated private protected public published a",
     {"VisibilityAutomated VisibilityPrivate VisibilityProtected VisibilityPublic VisibilityPublished", "a", {}}},
    {"VisibilityWordAndAColonIsAField", &P::ClassVisibility, "private : a", {"", "private", {}}},
    {"VisibilityWordAndACommaIsAField", &P::ClassVisibility, "public published, a: b", {"VisibilityPublic", "published", {}}},
    {"FieldNamedLikeAVisibilityIsWalkedWithItsColon", &P::ClassType, "class private: a; end;", {"ClassMemberList", ";", {}}},
    {"FieldNamedLikeAVisibilityIsWalkedWithItsComma", &P::ClassType, "class public public, private: a; end;", {"ClassMemberList", ";", {}}},
    {"FieldHasAType", &P::ClassField, "a, b: c;", {"IdentifierList TypeKind", ";", {}}},
    {"MemberIsAProperty", &P::ClassMethodOrProperty, "property a; x", {"ClassProperty", "x", {}}},
    {"MemberIsAPropertyOfTheClass", &P::ClassMethodOrProperty, "class property a; x", {"ClassProperty", "x", {}}},
    {"MemberIsAMethodOfTheClass", &P::ClassMethodOrProperty, "class procedure a; x", {"ClassMethodHeading", "x", {}}},
    {"HeadingOfAConstructor", &P::ClassMethodHeading, "constructor a(b: c); x", {"ConstructorHeading", "x", {}}},
    {"HeadingOfADestructor", &P::ClassMethodHeading, "destructor a; override; x", {"DestructorHeading", "x", {}}},
    {"HeadingOfAFunction", &P::ClassMethodHeading, "function a: b; x", {"ClassFunctionHeading", "x", {}}},
    {"HeadingOfAProcedure", &P::ClassMethodHeading, "procedure a; x", {"ClassProcedureHeading", "x", {}}},
    {"HeadingOfAFunctionThatMapsAMethod", &P::ClassMethodHeading, "function a.b = c; x", {"ClassMethodResolution", "x", {}}},
    {"HeadingOfAProcedureThatMapsAMethod", &P::ClassMethodHeading, "procedure a.b = c; x", {"ClassMethodResolution", "x", {}}},
    {"HeadingReportsAnotherToken", &P::ClassMethodHeading, "type", {"", "type", {"InvalidClassMethodHeading found type (0, 0)"}}},
    {"ResolutionReportsItsWordAndGoesOn", &P::ClassMethodResolution, "a.b = c; x",
     {"", "x", {"InvalidMethodHeading found a (0, 0)"}}},
    {"MethodHasParameters", &P::ClassProcedureHeading, "procedure a(b: c); x", {"ClassMethodName FormalParameterList MethodDirectives", "x", {}}},
    {"MethodHasAResult", &P::ClassFunctionHeading, "function a(b: c): d; x",
     {"ClassMethodName FormalParameterList ReturnType MethodDirectives", "x", {}}},
    {"MethodTakesDirectives", &P::MethodDirectives, "; virtual; abstract; x", {"ProceduralDirective ProceduralDirective", "x", {}}},
    {"MethodTakesAMessage", &P::MethodDirectives, "; message WM_PAINT; x", {"ProceduralDirective", "x", {}}},
    {"MethodTakesADispidBehindASemicolon", &P::MethodDirectives, "; dispid 1; x", {"DispidSpecifier", "x", {}}},
    {"MethodTakesADispidWithoutASemicolon", &P::MethodDirectives, "dispid $60030000; x", {"DispidSpecifier", "x", {}}},
    {"PropertyMayBeRepublished", &P::ClassProperty, "property a; x", {"PropertyName PropertySpecifiers", "x", {}}},
    {"PropertyHasAType", &P::ClassProperty, "property a: b read c write d; x", {"PropertyName PropertyInterface PropertySpecifiers", "x", {}}},
    {"PropertyOfAnArrayMayBeTheDefault", &P::ClassProperty, "property a[b: c]: d read e; default; x",
     {"PropertyName PropertyInterface PropertySpecifiers PropertyDirective", "x", {}}},
    {"PropertyThatIsNoArrayIsNotTheDefault", &P::ClassProperty, "property a: d read e; default; x",
     {"PropertyName PropertyInterface PropertySpecifiers", "default", {}}},
    {"PropertyParametersAreSeparatedBySemicolons", &P::PropertyParameterList, "[a: b; const c: d] x",
     {"FormalParameterSection FormalParameterSection", "x", {}}},
    {"SpecifiersMayBeAllThere", &P::PropertySpecifiers, "index 1 read a write b dispid 2 stored c default d nodefault implements e, f; x",
     {"ConstantExpression AccessSpecifier AccessSpecifier ConstantExpression StorageSpecifier StorageSpecifier "
      "StorageSpecifier QualifiedIdentifierList", "x", {}}},
    {"SpecifiersMayAllBeMissing", &P::PropertySpecifiers, "; x", {"", "x", {}}},
    {"SpecifiersReportAnIndexBehindTheAccess", &P::PropertySpecifiers, "read a index 1; x",
     {"AccessSpecifier", "index", {"Expected 'SemiColon' found 'index' (7, 0)"}}},
    {"AccessReads", &P::AccessSpecifier, "read a.b;", {"ReadAccessIdentifier", ";", {}}},
    {"AccessWrites", &P::AccessSpecifier, "write a;", {"WriteAccessIdentifier", ";", {}}},
    {"AccessIsReadonly", &P::AccessSpecifier, "readonly;", {"", ";", {}}},
    {"AccessIsWriteonly", &P::AccessSpecifier, "writeonly;", {"", ";", {}}},
    {"AccessReportsAnotherToken", &P::AccessSpecifier, "stored;", {"", "stored", {"InvalidAccessSpecifier found stored (0, 0)"}}},
    {"StorageIsAnExpression", &P::StorageSpecifier, "stored False;", {"Expression", ";", {}}},
    {"StorageHasADefault", &P::StorageSpecifier, "default -1;", {"ConstantExpression", ";", {}}},
    {"StorageHasNoDefault", &P::StorageSpecifier, "nodefault;", {"", ";", {}}},
    {"StorageReportsAnotherToken", &P::StorageSpecifier, "read;", {"", "read", {"InvalidStorageSpecifier found read (0, 0)"}}},
    {"DirectiveOfAPropertyIsDefault", &P::PropertyDirective, "default; x", {"", "x", {}}},
    {"ObjectMayHaveAnAncestor", &P::ObjectType, "object(a) b: c; constructor d; end;", {"ObjectHeritage ClassMemberList", ";", {}}},
    {"ObjectHasMembers", &P::ObjectType, "object private a: b; end;", {"ClassMemberList", ";", {}}},
    {"InterfaceHasAncestorsAnIdentifierAndMembers", &P::InterfaceType, "interface(a) ['{0}'] procedure b; end;",
     {"InterfaceHeritage InterfaceGUID InterfaceMemberList", ";", {}}},
    {"DispinterfaceHasAnIdentifierAndMembers", &P::InterfaceType,
     "dispinterface ['{0}'] property a: b readonly dispid 1; procedure c; dispid 2; end;",
     {"InterfaceGUID InterfaceMemberList", ";", {}}},
    {"InterfaceReportsAnotherToken", &P::InterfaceType, "class end;",
     {"InterfaceMemberList", ";", {"InvalidInterfaceType found class (0, 0)", "InvalidClassMethodHeading found end (6, 0)"}}},
    {"InterfaceHasNoFields", &P::InterfaceType, "interface a: b; end;",
     {"InterfaceMemberList", "a", {"Expected 'End' found 'a' (10, 0)"}}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, ClassWalks, testing::ValuesIn(Classes), NameOfWalk);

} // namespace
} // namespace quorvane
