// SPDX-License-Identifier: MIT
// What types are written as.
#include <gtest/gtest.h>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

class TypeWalks : public testing::TestWithParam<TWalk> {};

TEST_P(TypeWalks, GoAsTheGrammarSays) {
  ExpectWalk(GetParam());
}

const TWalk Types[] = {
    {"ArrayIsStructured", &P::TypeKind, "array of a;", {"StructuredType HintDirectives", ";", {}}},
    {"FileIsStructured", &P::TypeKind, "file of a;", {"StructuredType HintDirectives", ";", {}}},
    {"PackedIsStructured", &P::TypeKind, "packed record end;", {"StructuredType HintDirectives", ";", {}}},
    {"RecordIsStructured", &P::TypeKind, "record end;", {"StructuredType HintDirectives", ";", {}}},
    {"SetIsStructured", &P::TypeKind, "set of a;", {"StructuredType HintDirectives", ";", {}}},
    {"FunctionIsProcedural", &P::TypeKind, "function: a;", {"ProceduralType HintDirectives", ";", {}}},
    {"ProcedureIsProcedural", &P::TypeKind, "procedure;", {"ProceduralType HintDirectives", ";", {}}},
    {"CircumflexIsAPointer", &P::TypeKind, "^a;", {"PointerType HintDirectives", ";", {}}},
    {"CircumflexIsAControlCharacterOfASubrange", &P::TypeKind, "^A..^Z;", {"SubrangeType HintDirectives", ";", {}}},
    {"BracketIsAnEnumeration", &P::TypeKind, "(a, b);", {"EnumeratedType HintDirectives", ";", {}}},
    {"StringIsAString", &P::TypeKind, "string;", {"StringType HintDirectives", ";", {}}},
    {"NameIsASubrange", &P::TypeKind, "a;", {"SubrangeType HintDirectives", ";", {}}},
    {"NameMayHaveHints", &P::TypeKind, "a platform deprecated library;", {"SubrangeType HintDirectives", ";", {}}},
    {"NumberIsASubrange", &P::TypeKind, "-1..1;", {"SubrangeType HintDirectives", ";", {}}},
    {"CharacterIsASubrange", &P::TypeKind, "'a'..#200;", {"SubrangeType HintDirectives", ";", {}}},
    {"KindReportsAnotherToken",
     &P::TypeKind,
     "begin",
     {"HintDirectives", "begin", {"InvalidTypeKind found begin (0, 0)"}}},
    {"PackedArray", &P::StructuredType, "packed array[a] of b;", {"ArrayType", ";", {}}},
    {"PackedClass", &P::StructuredType, "packed class end;", {"ClassType", ";", {}}},
    {"PackedFile", &P::StructuredType, "packed file;", {"FileType", ";", {}}},
    {"PackedObject", &P::StructuredType, "packed object end;", {"ObjectType", ";", {}}},
    {"PackedRecord", &P::StructuredType, "packed record end;", {"RecordType", ";", {}}},
    {"PackedSet", &P::StructuredType, "packed set of a;", {"SetType", ";", {}}},
    {"StructureReportsAnotherToken",
     &P::StructuredType,
     "packed a;",
     {"", "a", {"InvalidStructuredType found a (7, 0)"}}},
    {"ArrayHasIndexes",
     &P::ArrayType,
     "array[1..2, a, (b, c)] of array of d;",
     {"OrdinalType OrdinalType OrdinalType TypeKind", ";", {}}},
    {"ArrayMayBeDynamic", &P::ArrayType, "array of a;", {"TypeKind", ";", {}}},
    {"OrdinalIsAnEnumeration", &P::OrdinalType, "(a, b);", {"EnumeratedType", ";", {}}},
    {"OrdinalIsASubrange", &P::OrdinalType, "Low(a)..High(a);", {"SubrangeType", ";", {}}},
    {"OrdinalReportsAnotherToken",
     &P::OrdinalType,
     "record",
     {"", "record", {"InvalidOrdinalIdentifier found record (0, 0)"}}},
    {"SubrangeMayBeANameOnly", &P::SubrangeType, "a.b;", {"SimpleExpression", ";", {}}},
    {"SubrangeHasTwoEnds", &P::SubrangeType, "a + 1..b * 2;", {"SimpleExpression SimpleExpression", ";", {}}},
    {"SubrangeEndsAtAnEqualsSign", &P::SubrangeType, "a..b = 1;", {"SimpleExpression SimpleExpression", "=", {}}},
    {"EnumerationNamesValues", &P::EnumeratedType, "(a, b);", {"IdentifierList", ";", {}}},
    {"RecordHasFields", &P::RecordType, "record a: b; c, d: record e: f end end;", {"FieldList", ";", {}}},
    {"FieldsMayHaveVariants",
     &P::FieldList,
     "a: b; case c of 1: (d: e); end",
     {"RecordField VariantSection", "end", {}}},
    {"FieldsMayHaveVariantsOnly", &P::FieldList, "case c of 1: () end", {"VariantSection", "end", {}}},
    {"VariantsAreSeparatedBySemicolons",
     &P::VariantSection,
     "case a: b of 1: (); 2: (c: d;); end",
     {"VariantTag RecordVariant RecordVariant", "end", {}}},
    {"VariantsOfAVariantEndAtItsBracket",
     &P::VariantSection,
     "case a of 1: () )",
     {"VariantTag RecordVariant", ")", {}}},
    {"VariantTagMayHaveAName", &P::VariantTag, "a: b of", {"OrdinalType", "of", {}}},
    {"VariantTagMayBeATypeOnly", &P::VariantTag, "b of", {"OrdinalType", "of", {}}},
    {"VariantHasLabels",
     &P::RecordVariant,
     "1, 2..3, a: (b: c);",
     {"CaseLabel CaseLabel CaseLabel FieldList", ";", {}}},
    {"SetIsOfAnOrdinal", &P::SetType, "set of 'a'..'z';", {"OrdinalType", ";", {}}},
    {"FileMayBeTyped", &P::FileType, "file of record end;", {"TypeKind", ";", {}}},
    {"FileMayBeUntyped", &P::FileType, "file;", {"", ";", {}}},
    {"PointerIsToAType", &P::PointerType, "^a.b;", {"TypeId", ";", {}}},
    {"PointerMayBeToAString", &P::PointerType, "^string;", {"TypeId", ";", {}}},
    {"StringMayHaveALength", &P::StringType, "string[a + 1];", {"ConstantExpression", ";", {}}},
    {"FunctionTypeHasParametersAndAResult",
     &P::ProceduralType,
     "function(a: b): c;",
     {"FormalParameterList ReturnType CallingConvention", ";", {}}},
    {"ProcedureTypeMayBeOfAnObject",
     &P::ProceduralType,
     "procedure(a: b) of object;",
     {"FormalParameterList CallingConvention", ";", {}}},
    {"ProceduralTypeReportsAnotherToken",
     &P::ProceduralType,
     "a;",
     {"CallingConvention", "a", {"InvalidProceduralType found a (0, 0)"}}},
    {"ConventionStandsRightBehindTheType",
     &P::ProceduralType,
     "procedure stdcall far;",
     {"CallingConvention", ";", {}}},
    {"ConventionStandsBehindASemicolon", &P::CallingConvention, "; stdcall; x", {"DirectiveCalling", ";", {}}},
    {"ConventionsStandBehindSemicolons",
     &P::CallingConvention,
     "; far; cdecl = nil;",
     {"Directive16Bit DirectiveCalling", "=", {}}},
    {"ConventionWithAColonIsAName", &P::CallingConvention, "; register: a", {"", ";", {}}},
    {"ConventionWithACommaIsAName", &P::CallingConvention, "; pascal, a: b", {"", ";", {}}},
    {"TypeIdIsAName", &P::TypeId, "a.b;", {"QualifiedName", ";", {}}},
    {"TypeIdIsTheWordString", &P::TypeId, "string;", {"", ";", {}}},
};

INSTANTIATE_TEST_SUITE_P(All, TypeWalks, testing::ValuesIn(Types), NameOfWalk);

} // namespace
} // namespace quorvane
