// SPDX-License-Identifier: MIT
// Between them, the samples under data/parser use every production, and wrong texts every kind of error.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "parser/ParserProbe.h"
#include "support/PascalUnits.h"

namespace quorvane {
namespace {

std::vector<std::filesystem::path> Samples() {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(VIRELLE_TEST_DATA "/parser"))
    if (entry.is_regular_file())
      paths.push_back(entry.path());
  std::ranges::sort(paths);
  return paths;
}

// The directives that the base class reports are no errors of the text.
bool IsOfADirective(const std::string& report) {
  return report.starts_with("Currently not supported ");
}

TEST(Samples, AreWalkedWithoutAnError) {
  ASSERT_FALSE(Samples().empty());
  for (const std::filesystem::path& path : Samples()) {
    TReporter parser;
    TReports reports = parser.Parse(support::ReadFile(path));
    std::erase_if(reports, IsOfADirective);
    EXPECT_EQ(reports, TReports{}) << path;
  }
}

TEST(EveryProduction, IsEnteredByASample) {
  std::set<std::string_view> entered;
  std::vector<TProbe> probes(Samples().size());
  for (std::size_t i = 0; i < probes.size(); ++i) {
    probes[i].Parse(support::ReadFile(Samples()[i]));
    for (const auto& [name, count] : probes[i].Entries())
      entered.insert(name);
  }
#define ZK_PRODUCTION(name) EXPECT_TRUE(entered.contains(#name)) << #name;
#include "parser/Productions.def"
}

TEST(Productions, StandInTheOrderOfTheirNames) {
  std::vector<std::string> names = {
#define ZK_PRODUCTION(name) #name,
#include "parser/Productions.def"
  };
  for (std::string& name : names)
    std::ranges::transform(name, name.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  EXPECT_TRUE(std::ranges::is_sorted(names));
  EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
}

// A production, and a text that it has no alternative for.
struct TWrong {
  void (TProbe::*Production)();
  const char* Text;
};

using P = TProbe;

// Whole texts where a parse gets there; else single productions that are only called for tokens that fit.
const TWrong Wrongs[] = {
    {&P::AdditiveOperator, "*"},
    {&P::AccessSpecifier, "x"},
    {&P::ParseFile, "library a; exports b name 5; begin end."},
    {&P::ParseFile, "unit a; interface type b = class class var c: d; end; implementation end."},
    {&P::ParseFile, "unit a; interface const b; implementation end."},
    {&P::ConstSection, "x"},
    {&P::DeclarationSection, "x"},
    {&P::Directive16Bit, "x"},
    {&P::DirectiveBinding, "x"},
    {&P::DirectiveCalling, "x"},
    {&P::ExportedHeading, "x"},
    {&P::ParseFile, "begin for i := 1 do end."},
    {&P::ParseFile, "unit a; interface implementation exports b; end."},
    {&P::InterfaceDeclaration, "x"},
    {&P::InterfaceType, "x end"},
    {&P::ParseFile, "begin goto begin end end."},
    {&P::ParseFile, "begin 1 end."},
    {&P::ClassMethodResolution, "a.b = c;"},
    {&P::MultiplicativeOperator, "+"},
    {&P::Number, "begin"},
    {&P::ParseFile, "type a = set of begin;"},
    {&P::ParseFile, "procedure a(type b); begin end;"},
    {&P::ProceduralDirective, "x"},
    {&P::ProceduralType, "x"},
    {&P::ParseFile, "class var a: b;"},
    {&P::ProcedureMethodDeclaration, "x; begin end;"},
    {&P::RelativeOperator, "+"},
    {&P::StorageSpecifier, "x"},
    {&P::ParseFile, "type a = packed b;"},
    {&P::ParseFile, "begin try end."},
    {&P::ParseFile, "type a = begin;"},
    {&P::VarSection, "x"},
};

// Kinds that no production reports.
constexpr std::array NeverReported = {
    InvalidParseFile, // what starts no file is a fragment
                      // types go by their structure, not by what the names in them stand for
    InvalidRealIdentifier, InvalidStringIdentifier, InvalidVariantIdentifier,
    // declared for completeness
    vchInvalidClass, vchInvalidMethod, vchInvalidProcedure, vchInvalidCircuit, vchInvalidIncludeFile};

TEST(EveryKindOfError, IsReportedForAWrongText) {
  std::set<std::string> reported;
  for (const TWrong& wrong : Wrongs) {
    TProbe probe;
    for (const std::string& report : probe.Walk(wrong.Production, wrong.Text).Reports)
      reported.insert(report.substr(0, report.find(' ')));
  }
  for (int ordinal = 0; ordinal < ParseErrorCount; ++ordinal) {
    const auto error = static_cast<TzkParseError>(ordinal);
    const bool isExpected = std::ranges::find(NeverReported, error) == NeverReported.end();
    EXPECT_EQ(reported.contains(std::string(ParserErrorName(error))), isExpected) << ParserErrorName(error);
  }
}

} // namespace
} // namespace quorvane
