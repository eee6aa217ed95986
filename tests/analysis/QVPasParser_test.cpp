// SPDX-License-Identifier: MIT
// What the outline parser collects of sections, uses clauses and types, and its hint word.
#include "analysis/QVPasParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Outlines.h"

namespace quorvane {
namespace {

using support::Listed;
using support::Outlined;
using support::TOutlined;

// A unit of declarations in its interface.
std::string Interface(const std::string& declarations) {
  return "unit U; interface\n" + declarations + "\nimplementation end.";
}

std::string TypesOf(const std::string& declarations) {
  return Listed(Outlined(Interface(declarations)).Info->GetClasses());
}

TEST(OutlineSections, HaveTheLinesOfTheirWords) {
  const TOutlined outlined = Outlined("unit U;\n\ninterface\n\n{ here\nit }  implementation\nend.\n");
  EXPECT_EQ(outlined.Info->GetInterfaceLine(), 2);
  EXPECT_EQ(outlined.Info->GetImplementationLine(), 5);
  EXPECT_EQ(outlined.Info->GetInterfaceUsesLine(), -1);
  EXPECT_EQ(outlined.Info->GetImplementationUsesLine(), -1);
}

TEST(OutlineSections, CountLinesAlikeForEveryLineEnd) {
  for (const char* end : {"\n", "\r\n"}) {
    std::string text;
    for (const char* line : {"unit U;", "", "interface", "uses A;", "implementation", "uses B;", "end."})
      text += std::string(line) + end;
    const TOutlined outlined = Outlined(text);
    EXPECT_EQ(outlined.Info->GetInterfaceLine(), 2);
    EXPECT_EQ(outlined.Info->GetInterfaceUsesLine(), 3);
    EXPECT_EQ(outlined.Info->GetImplementationLine(), 4);
    EXPECT_EQ(outlined.Info->GetImplementationUsesLine(), 5);
  }
}

TEST(OutlineUses, GoToTheListOfTheirClause) {
  const TOutlined outlined = Outlined("unit U;\ninterface\nuses A,\n  B;\nimplementation\n\nuses C, D;\nend.");
  EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "A B");
  EXPECT_EQ(Listed(outlined.Info->GetImplementationUses()), "C D");
  EXPECT_EQ(outlined.Info->GetInterfaceUsesLine(), 2);
  EXPECT_EQ(outlined.Info->GetImplementationUsesLine(), 6);
}

TEST(OutlineUses, AreToldApartOnTheFirstLineToo) {
  const TOutlined outlined = Outlined("unit U; interface uses A; implementation uses B; end.");
  EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "A");
  EXPECT_EQ(Listed(outlined.Info->GetImplementationUses()), "B");
  EXPECT_EQ(outlined.Info->GetInterfaceUsesLine(), 0);
  EXPECT_EQ(outlined.Info->GetImplementationUsesLine(), 0);
}

TEST(OutlineUses, OfTheImplementationAloneLeaveTheInterfaceWithout) {
  const TOutlined outlined = Outlined("unit U; interface implementation\nuses A; end.");
  EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "");
  EXPECT_EQ(outlined.Info->GetInterfaceUsesLine(), -1);
  EXPECT_EQ(Listed(outlined.Info->GetImplementationUses()), "A");
}

TEST(OutlineUses, KeepTheirOrderCaseAndRepetition) {
  const TOutlined outlined = Outlined("unit U; interface uses Zed, abc, zed, Abc; implementation end.");
  EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "Zed abc zed Abc");
}

TEST(OutlineUses, AreNotCollectedFromProgramsAndLibraries) {
  for (const char* heading : {"program P;", "library L;"}) {
    const TOutlined outlined = Outlined(std::string(heading) + "\nuses A, B in 'b.pas';\nprocedure Q; begin end;\n"
                                                               "begin Q; end.");
    EXPECT_EQ(outlined.Reports, std::vector<std::string>{}) << heading;
    EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "") << heading;
    EXPECT_EQ(Listed(outlined.Info->GetImplementationUses()), "") << heading;
    EXPECT_EQ(outlined.Info->GetInterfaceUsesLine(), -1) << heading;
    EXPECT_EQ(Listed(outlined.Info->GetMethods()), "Q@2") << heading;
  }
}

TEST(OutlineUses, AreNotCollectedFromPackages) {
  const TOutlined outlined = Outlined("package P; requires vcl; contains A in 'a.pas', B; end.");
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "");
  EXPECT_EQ(Listed(outlined.Info->GetImplementationUses()), "");
}

TEST(OutlineTypes, AreAllThatIsDeclared) {
  EXPECT_EQ(
      TypesOf("type\n TFoo = class end;\n TRec = record A: Integer; end;\n TEnum = (eA, eB);\n TAlias = Integer;\n"
              " PRec = ^TRec;\n IFoo = interface end;\n TProc = procedure of object;\n TSet = set of TEnum;\n"
              " TOld = object end;\n TFooClass = class of TFoo;\n TRange = 1..2;"),
      "IFoo@7 PRec@6 TAlias@5 TEnum@4 TFoo@2 TFooClass@11 TOld@10 TProc@8 TRange@12 TRec@3 TSet@9");
}

TEST(OutlineTypes, KeepTheLineOfTheirForwardDeclaration) {
  EXPECT_EQ(TypesOf("type\n TFoo = class;\n IBar = interface;\n TFoo = class A: IBar; end;\n IBar = interface end;"),
            "IBar@3 TFoo@2");
}

TEST(OutlineTypes, OfRoutinesAndOfTheImplementationBelongToThem) {
  const TOutlined outlined = Outlined("unit U; interface implementation type TA = Byte; procedure P; type TB = Word;\n"
                                      "begin end; end.");
  EXPECT_EQ(Listed(outlined.Info->GetClasses()), "TA@0 TB@0");
}

TEST(OutlineTypes, LeaveFieldsVariablesAndConstantsOut) {
  EXPECT_EQ(TypesOf("const C = 1; var V: record A: Integer; end; type T = record B: (bA, bB); end;"), "T@1");
}

// Whatever has a name and no body here is a heading.
TEST(OutlineMethods, LeaveHeadingsOfClassesAndInterfacesOut) {
  const TOutlined outlined =
      Outlined(Interface("type TFoo = class procedure Bar; function Baz: Byte; constructor Create; "
                         "end; procedure Free; function Bound: Byte; stdcall;"));
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "");
}

TEST(OutlineInitialization, IsParsed) {
  const TOutlined outlined = Outlined("unit U; interface implementation initialization if a b; end.");
  EXPECT_EQ(outlined.Reports, (std::vector<std::string>{"0:53 Expected 'Then' found 'b'"}));
}

TEST(OutlineInitialization, IsNotParsedWithoutAnOutline) {
  std::vector<std::string> reports;
  support::TListeningParser parser(reports);
  std::string text = "unit U; interface uses A; implementation type T = Byte; procedure P; begin end;\n"
                     "initialization if a b; end.";
  parser.Run("", &text);
  EXPECT_EQ(reports, (std::vector<std::string>{"1:0 Expected 'Point' found 'initialization'"}));
}

TEST(OutlineParser, NeedsNoOutline) {
  std::vector<std::string> reports;
  support::TFakeParseThread thread;
  thread.Caret = 80;
  support::TListeningParser parser(reports);
  parser.SetThread(&thread);
  std::string text = "program P; type T = Byte; procedure TFoo.Bar; procedure Inner; begin end; begin end; begin end.";
  EXPECT_NO_THROW(parser.Run("", &text));
  EXPECT_EQ(reports, std::vector<std::string>{});
}

TEST(OutlineParser, MakesOutlinesThatAllCompareAsTheSame) {
  const TOutlined one = Outlined("unit U; interface uses A; implementation procedure P; begin end; end.");
  const TOutlined other = Outlined("program P; begin (a[1]); end.");
  EXPECT_TRUE(one.Info->IsSameInfo(other.Info.get()));
  EXPECT_EQ(one.Info->GetHash(), 0);
  EXPECT_EQ(one.Info->GetElementCount(), 0);
}

TEST(OutlineParser, LeavesAnEmptyOutlineOfAnEmptyText) {
  const TOutlined outlined = Outlined("");
  EXPECT_EQ(outlined.Fatal, "Expected 'Unit' found 'end of file'");
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "");
  EXPECT_EQ(outlined.Info->GetInterfaceLine(), -1);
}

TEST(OutlineParser, LeavesAPartialOutlineWhereTheTextEndsEarly) {
  const TOutlined outlined = Outlined("unit U;\ninterface\nuses A;\ntype TFoo = class end;\nimplementation\n"
                                      "procedure P; begin end;\nprocedure Q; begin");
  EXPECT_EQ(outlined.Fatal, "Expected 'End' found 'end of file'");
  EXPECT_EQ(Listed(outlined.Info->GetInterfaceUses()), "A");
  EXPECT_EQ(Listed(outlined.Info->GetClasses()), "TFoo@3");
  EXPECT_EQ(Listed(outlined.Info->GetMethods()), "P@5");
  EXPECT_EQ(outlined.Info->GetImplementationLine(), 4);
}

TEST(OutlineHints, AreSwallowedWithTheirSemicolon) {
  const TOutlined outlined = Outlined(Interface("procedure A; deprecated;\nfunction B: Byte; stdcall; Deprecated;\n"
                                                "type TFoo = class procedure C; DEPRECATED; procedure D; end;"));
  EXPECT_EQ(outlined.Reports, std::vector<std::string>{});
  EXPECT_EQ(Listed(outlined.Info->GetClasses()), "TFoo@3");
}

TEST(OutlineHints, InARowAreSwallowedAsWell) {
  EXPECT_EQ(Outlined(Interface("procedure A; deprecated;deprecated; deprecated;\ndeprecated;")).Reports,
            std::vector<std::string>{});
}

TEST(OutlineHints, TakeNoStackHoweverManyThereAre) {
  std::string text = "procedure A; ";
  for (int count = 0; count < 1000000; ++count)
    text += "deprecated;";
  EXPECT_EQ(Outlined(Interface(text)).Reports, std::vector<std::string>{});
}

TEST(OutlineHints, AreReportedWhereABlankKeepsThemFromTheirSemicolon) {
  EXPECT_EQ(Outlined("program P; begin\nA; deprecated ; B; end.").Reports,
            (std::vector<std::string>{"1:13 Expected 'SemiColon' found ' '"}));
}

TEST(OutlineHints, AreFoundInEveryRole) {
  const auto reports = [](const std::string& statements) {
    return Outlined("program P; begin\n" + statements + " end.").Reports;
  };
  EXPECT_EQ(reports("Deprecated; A;"), std::vector<std::string>{});
  EXPECT_EQ(reports("A; Deprecated:=1; B;"), (std::vector<std::string>{"1:13 Expected 'SemiColon' found ':='"}));
}

// The semicolon that went with the hint is the one that the declaration ends with.
TEST(OutlineHints, TakeTheSemicolonOfWhatTheyStandIn) {
  const TOutlined outlined = Outlined(Interface("type TA = Byte deprecated; TB = Byte; TC = Byte;"));
  EXPECT_EQ(outlined.Reports.at(0), "1:27 Expected 'SemiColon' found 'TB'");
  EXPECT_EQ(Listed(outlined.Info->GetClasses()), "TA@1");
}

TEST(OutlineHints, AtTheEndOfTheTextEndTheParse) {
  EXPECT_EQ(Outlined("unit U; interface procedure A; deprecated").Fatal, "Expected 'SemiColon' found 'end of file'");
}

TEST(OutlineParser, ShowsItsDebuggingMessageThroughTheThread) {
  support::TFakeParseThread thread;
  TQVPasParser parser;
  parser.Msg();
  parser.SetThread(&thread);
  parser.Msg();
  EXPECT_EQ(thread.Messages, std::vector<std::string>{"Message!"});
}

} // namespace
} // namespace quorvane
