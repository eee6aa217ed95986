// SPDX-License-Identifier: MIT
// The machinery around the productions: what is expected of tokens, how errors read, and how a text is run.
#include "parser/zkSimplePasPar.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "parser/ParserProbe.h"

namespace quorvane {
namespace {

using P = TProbe;

TEST(SyntaxErrorOfAMessage, HasNoPlace) {
  const ESyntaxError error("Lost");
  EXPECT_STREQ(error.what(), "Lost");
  EXPECT_EQ(error.PosXY().X, -1);
  EXPECT_EQ(error.PosXY().Y, -1);
}

TEST(SyntaxErrorOfAFormat, HasItsArgumentsAndNoPlace) {
  const ESyntaxError error("Expected '%s' found '%s'", {"Then", "x"});
  EXPECT_STREQ(error.what(), "Expected 'Then' found 'x'");
  EXPECT_EQ(error.PosXY().X, -1);
  EXPECT_EQ(error.PosXY().Y, -1);
}

TEST(SyntaxErrorOfAFormat, KeepsAPlaceholderWithoutAnArgument) {
  EXPECT_STREQ(ESyntaxError("'%s' and '%s'", {"a"}).what(), "'a' and '%s'");
}

TEST(SyntaxErrorOfAFormat, DropsAnArgumentWithoutAPlaceholder) {
  EXPECT_STREQ(ESyntaxError("'%s'", {"a", "b"}).what(), "'a'");
}

TEST(SyntaxErrorOfAFormat, DoesNotLookForPlaceholdersInArguments) {
  EXPECT_STREQ(ESyntaxError("'%s' '%s'", {"%s", "b"}).what(), "'%s' 'b'");
}

TEST(SyntaxErrorAtAPoint, KeepsItsPlace) {
  const ESyntaxError error("Lost", TzkPoint{3, 7});
  EXPECT_STREQ(error.what(), "Lost");
  EXPECT_EQ(error.PosXY().X, 3);
  EXPECT_EQ(error.PosXY().Y, 7);
}

// A probe on the first token of a text.
class TokensOf {
public:
  explicit TokensOf(std::string text, TOnReport onReport = TOnReport::Stay) : FText(std::move(text)), FProbe(onReport) {
    FProbe.Start(FText);
  }

  TProbe* operator->() { return &FProbe; }
  std::string Token() { return FProbe.Lexer().GetToken(); }

private:
  std::string FText;
  TProbe FProbe;
};

TEST(Expected, MovesOnOverItsTokenAndTheJunkBehindIt) {
  TokensOf probe("begin { a } (* b *) // c\n  end");
  probe->Expected(ptBegin);
  EXPECT_EQ(probe.Token(), "end");
  EXPECT_EQ(probe->Reports(), TReports{});
}

TEST(Expected, ReportsAWrongTokenAndStaysOnIt) {
  TokensOf probe("\n  x := 1");
  probe->Expected(ptThen);
  EXPECT_EQ(probe.Token(), "x");
  EXPECT_EQ(probe->Reports(), TReports{"Expected 'Then' found 'x' (2, 1)"});
}

TEST(Expected, IsSilentAboutAWrongTokenWithoutAHandler) {
  TokensOf probe("x", TOnReport::NoHandler);
  EXPECT_NO_THROW(probe->Expected(ptThen));
  EXPECT_EQ(probe.Token(), "x");
  EXPECT_EQ(probe->Reports(), TReports{});
}

TEST(Expected, GoesOnWhereTheHandlerMovedTheLexer) {
  TokensOf probe("x y z; w", TOnReport::ToSemicolon);
  probe->Expected(ptThen);
  EXPECT_EQ(probe.Token(), ";");
}

// What the call throws, as its message and place.
template <class TCall> std::string RaisedBy(TCall call) {
  try {
    call();
  } catch (const ESyntaxError& error) {
    return ReportText(error.what(), error.PosXY().X, error.PosXY().Y);
  }
  return "nothing";
}

TEST(Expected, RaisesAtTheEndOfTheTextEvenWithoutAHandler) {
  TokensOf probe("\n ", TOnReport::NoHandler);
  EXPECT_EQ(RaisedBy([&] { probe->Expected(ptThen); }), "Expected 'Then' found 'end of file' (1, 1)");
}

TEST(Expected, DoesNotReportWhatItRaises) {
  TokensOf probe("");
  EXPECT_THROW(probe->Expected(ptThen), ESyntaxError);
  EXPECT_EQ(probe->Reports(), TReports{});
}

TEST(ExpectedEx, TakesADirectiveWordThatIsUsedAsAnIdentifier) {
  TokensOf probe("index x");
  probe->ExpectedEx(ptIndex);
  EXPECT_EQ(probe.Token(), "x");
  EXPECT_EQ(probe->Reports(), TReports{});
}

TEST(Expected, DoesNotTakeADirectiveWordByItsOwnKind) {
  TokensOf probe("index x");
  probe->Expected(ptIndex);
  EXPECT_EQ(probe.Token(), "index");
  EXPECT_EQ(probe->Reports(), TReports{"Expected 'Index' found 'index' (0, 0)"});
  probe->Expected(ptIdentifier);
  EXPECT_EQ(probe.Token(), "x");
}

TEST(ExpectedEx, DoesNotTakeAReservedWord) {
  TokensOf probe("begin");
  probe->ExpectedEx(ptBegin);
  EXPECT_EQ(probe.Token(), "begin");
  EXPECT_EQ(probe->Reports(), TReports{"Expected 'Begin' found 'begin' (0, 0)"});
}

TEST(ExpectedEx, RaisesAtTheEndOfTheText) {
  TokensOf probe("");
  EXPECT_EQ(RaisedBy([&] { probe->ExpectedEx(ptIndex); }), "Expected 'Index' found 'end of file' (0, 0)");
}

TEST(ExpectedFatal, MovesOnOverItsToken) {
  TokensOf probe("begin end");
  probe->ExpectedFatal(ptBegin);
  EXPECT_EQ(probe.Token(), "end");
}

TEST(ExpectedFatal, RaisesAtAWrongTokenInTheMiddleOfTheText) {
  TokensOf probe("begin\n  x");
  probe->NextToken();
  EXPECT_EQ(RaisedBy([&] { probe->ExpectedFatal(ptEnd); }), "Expected 'End' found 'x' (2, 1)");
  EXPECT_EQ(probe->Reports(), TReports{});
}

TEST(ExpectedFatal, NamesTheEndOfTheText) {
  TokensOf probe("");
  EXPECT_EQ(RaisedBy([&] { probe->ExpectedFatal(ptEnd); }), "Expected 'End' found 'end of file' (0, 0)");
}

TEST(SynError, IsTheNameOfTheKindAndTheTokenAndNothingElse) {
  TokensOf probe("\n 'Text'");
  probe->SynError(InvalidForStatement);
  EXPECT_EQ(probe->Reports(), TReports{"InvalidForStatement found 'Text' (1, 1)"});
}

TEST(SynError, ConsumesNothing) {
  TokensOf probe("a b");
  probe->SynError(InvalidNumber);
  EXPECT_EQ(probe.Token(), "a");
}

TEST(SynError, RaisesNothingAtTheEndOfTheText) {
  TokensOf probe("");
  EXPECT_NO_THROW(probe->SynError(InvalidNumber));
  EXPECT_EQ(probe->Reports(), TReports{"InvalidNumber found  (0, 0)"});
}

TEST(SynError, IsSilentWithoutAHandler) {
  TokensOf probe("a", TOnReport::NoHandler);
  EXPECT_NO_THROW(probe->SynError(InvalidNumber));
  EXPECT_EQ(probe.Token(), "a");
}

TEST(Semicolon, IsConsumed) {
  TokensOf probe("; x");
  probe->SEMICOLON();
  EXPECT_EQ(probe.Token(), "x");
}

TEST(Semicolon, MayBeLeftOutBeforeSevenTokens) {
  for (const char* closer : {"else", "end", "except", "finalization", "finally", ")", "until"}) {
    TokensOf probe(closer);
    probe->SEMICOLON();
    EXPECT_EQ(probe.Token(), closer);
    EXPECT_EQ(probe->Reports(), TReports{}) << closer;
  }
}

TEST(Semicolon, IsDemandedBeforeAnyOtherToken) {
  for (const char* other : {"begin", "]", ",", "initialization", "do", "of", "then", ".", "x"}) {
    TokensOf probe(other);
    probe->SEMICOLON();
    EXPECT_EQ(probe.Token(), other);
    EXPECT_EQ(probe->Reports(), TReports{std::string("Expected 'SemiColon' found '") + other + "' (0, 0)"});
  }
}

TEST(Semicolon, IsDemandedAtTheEndOfTheText) {
  TokensOf probe("");
  EXPECT_EQ(RaisedBy([&] { probe->SEMICOLON(); }), "Expected 'SemiColon' found 'end of file' (0, 0)");
}

TEST(Semicolon, MayBeLeftOutBetweenAnAssignmentAndTheWordEnd) {
  TProbe probe;
  EXPECT_EQ(probe.Walk(&P::CompoundStatement, "begin x := 1 end."), (TWalked{"StatementList", ".", {}}));
}

TEST(TokenReaders, GiveTheLexersKinds) {
  TokensOf probe("Integer begin x");
  EXPECT_EQ(probe->TokenID(), ptIdentifier);
  EXPECT_EQ(probe->ExID(), ptInteger);
  EXPECT_EQ(probe->GenID(), ptInteger);
  probe->NextToken();
  EXPECT_EQ(probe->TokenID(), ptBegin);
  EXPECT_EQ(probe->ExID(), ptUnknown);
  EXPECT_EQ(probe->GenID(), ptBegin);
  probe->NextToken();
  EXPECT_EQ(probe->GenID(), ptIdentifier);
}

TEST(Junk, IsSkippedByTheOperationOfEachKind) {
  TokensOf probe("begin (*a*){b}//c\n \r\n{d\n}x");
  probe->NextToken();
  EXPECT_EQ(probe.Token(), "x");
  for (const char* operation :
       {"SkipAnsiComment", "SkipBorComment", "SkipCRLF", "SkipCRLFco", "SkipSlashesComment", "SkipSpace"})
    EXPECT_EQ(probe->Entries().count(operation), 1U) << operation;
}

TEST(Junk, OfOneKindIsSkippedByOneCallInARow) {
  TokensOf probe("begin(*a*)(*b*)(*c*)x");
  probe->NextToken();
  EXPECT_EQ(probe->Entries().at("SkipAnsiComment"), 1);
}

TEST(Junk, AtTheStartOfAFileIsSkipped) {
  EXPECT_EQ(TReporter().Parse("\n { a } // b\n unit u; interface implementation end."), TReports{});
}

struct TDirective {
  const char* Name;
  const char* Text;
};

class Directives : public testing::TestWithParam<TDirective> {};

TEST_P(Directives, AreReportedAsUnsupportedAndPassedOver) {
  const std::string text = std::string("begin ") + GetParam().Text + " end";
  TokensOf probe(text);
  probe->Expected(ptBegin);
  EXPECT_EQ(probe.Token(), "end");
  EXPECT_EQ(probe->Reports(), TReports{std::string("Currently not supported ") + GetParam().Text + " (6, 0)"});
}

TEST_P(Directives, ArePassedOverInSilenceWithoutAHandler) {
  TokensOf probe(std::string("begin ") + GetParam().Text + " end", TOnReport::NoHandler);
  probe->Expected(ptBegin);
  EXPECT_EQ(probe.Token(), "end");
}

std::string NameOfDirective(const testing::TestParamInfo<TDirective>& info) {
  return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, Directives,
                         testing::Values(TDirective{"CompilerSwitch", "{$Q+}"}, TDirective{"Define", "{$DEFINE a}"},
                                         TDirective{"Else", "{$ELSE}"}, TDirective{"EndIf", "{$ENDIF}"},
                                         TDirective{"IfDef", "{$IFDEF a}"}, TDirective{"IfNDef", "(*$IFNDEF a*)"},
                                         TDirective{"IfOpt", "{$IFOPT a+}"}, TDirective{"Include", "{$I a.inc}"},
                                         TDirective{"Resource", "{$R *.res}"}, TDirective{"Undef", "{$UNDEF a}"}),
                         NameOfDirective);

TEST(DirectivesRightBesideEachOther, AreEachReportedOnce) {
  TokensOf probe("begin{$Q+}{$R-}{$IFDEF a}{$ENDIF}end");
  probe->Expected(ptBegin);
  EXPECT_EQ(probe.Token(), "end");
  EXPECT_EQ(probe->Reports(),
            (TReports{"Currently not supported {$Q+} (5, 0)", "Currently not supported {$R-} (10, 0)",
                      "Currently not supported {$IFDEF a} (15, 0)", "Currently not supported {$ENDIF} (25, 0)"}));
}

TEST(ADirectiveInTheLookAhead, IsReportedAtTheCurrentTokenThatDoesNotMove) {
  TProbe probe;
  EXPECT_EQ(
      probe.Walk(&P::Statement, "a {$Q+} : b;"),
      (TWalked{"LabeledStatement", ";", {"Currently not supported a (0, 0)", "Currently not supported {$Q+} (2, 0)"}}));
}

TEST(ADirectiveThatStandsFirst, IsReportedByTheLookAheadScannerAsWell) {
  EXPECT_EQ(TReporter().Parse("{$Q+}unit u; interface implementation end."),
            (TReports{"Currently not supported {$Q+} (0, 0)", "Currently not supported unit (5, 0)"}));
}

TEST(ADirective, ChangesNothingOfWhatIsParsed) {
  TProbe probe;
  EXPECT_EQ(probe.Walk(&P::SimpleStatement, "b {$IFDEF a} := {$ELSE} c {$ENDIF};"),
            (TWalked{"Designator Expression",
                     ";",
                     {"Currently not supported {$IFDEF a} (2, 0)", "Currently not supported {$ELSE} (16, 0)",
                      "Currently not supported {$ENDIF} (26, 0)"}}));
}

TEST(Run, TakesTheTextOfTheStreamAndEndsItWithANul) {
  std::string stream = "unit u; interface implementation end.";
  const std::string text = stream;
  TReporter parser;
  parser.Run("no such file", &stream);
  EXPECT_EQ(stream, text + '\0');
  EXPECT_EQ(parser.Reports(), TReports{});
}

TEST(Run, StopsAtTheFirstNulOfTheText) {
  std::string stream = "unit u; interface implementation end.";
  stream += '\0';
  stream += "what follows is no Pascal";
  TReporter parser;
  EXPECT_NO_THROW(parser.Run("", &stream));
  EXPECT_EQ(parser.Reports(), TReports{});
}

// A file that is there for one test.
class TFile {
public:
  explicit TFile(const std::string& text)
      : FPath(std::filesystem::temp_directory_path() /
              (std::string("virelle-") + testing::UnitTest::GetInstance()->current_test_info()->test_suite_name() +
               testing::UnitTest::GetInstance()->current_test_info()->name() + ".pas")) {
    std::ofstream(FPath, std::ios::binary) << text;
  }
  ~TFile() { std::filesystem::remove(FPath); }
  TFile(const TFile&) = delete;
  TFile& operator=(const TFile&) = delete;

  std::string Path() const { return FPath.string(); }

private:
  std::filesystem::path FPath;
};

TEST(RunWithoutAStream, ReadsTheFile) {
  const TFile file("unit u;\ninterface\nimplementation\nwrong.");
  TReporter parser;
  parser.Run(file.Path(), nullptr);
  EXPECT_EQ(parser.Reports(),
            (TReports{"InvalidInitializationSection found wrong (0, 3)", "Expected 'Point' found 'wrong' (0, 3)"}));
}

TEST(RunWithoutAStream, ReadsAFileThatIsLongerThanItsBuffer) {
  const TFile file(std::string(200'000, '\n') + "unit u; interface implementation end;");
  TReporter parser;
  parser.Run(file.Path(), nullptr);
  EXPECT_EQ(parser.Reports(), TReports{"Expected 'Point' found ';' (36, 200000)"});
}

TEST(RunWithoutAStream, ThrowsTheSystemsErrorWhereTheFileCannotBeRead) {
  TReporter parser;
  try {
    parser.Run("/no/such/file.pas", nullptr);
    FAIL();
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
  }
}

TEST(Run, LetsTheErrorOfTheParseThrough) {
  std::string stream = "unit u;";
  TReporter parser;
  EXPECT_THROW(parser.Run("", &stream), ESyntaxError);
}

TEST(Run, LetsTheErrorOfAHandlerThrough) {
  std::string stream = "unit 5;";
  TzkSimplePasPar parser;
  parser.SetOnMessage([](auto&, auto&, auto, auto) { throw std::length_error("enough"); });
  EXPECT_THROW(parser.Run("", &stream), std::length_error);
}

TEST(OnMessage, GivesTheParserAsItsSender) {
  std::string stream = "unit 5; interface implementation end.";
  TzkSimplePasPar parser;
  const TzkSimplePasPar* sender = nullptr;
  parser.SetOnMessage([&](TzkSimplePasPar& from, auto&, auto, auto) { sender = &from; });
  EXPECT_TRUE(parser.OnMessage());
  parser.Run("", &stream);
  EXPECT_EQ(sender, &parser);
}

TEST(OnMessage, IsUnsetAtFirst) {
  EXPECT_FALSE(TzkSimplePasPar().OnMessage());
}

TEST(AnEmptyText, EndsAsAFragmentAtTheEndOfTheFile) {
  TProbe probe;
  EXPECT_EQ(probe.Parse(""), TReports{"fatal: Expected 'Unit' found 'end of file' (0, 0)"});
  EXPECT_EQ(probe.Entries().count("IncludeFile"), 1U);
}

TEST(ATextOfJunkOnly, EndsAsAnEmptyOne) {
  EXPECT_EQ(TReporter().Parse("\n{ a }\n"), TReports{"fatal: Expected 'Unit' found 'end of file' (0, 2)"});
}

TEST(NestingBeyondTheLimit, EndsTheParseAndSaysSo) {
  const std::string deep = "begin x := " + std::string(TzkSimplePasPar::MaxNesting, '(');
  EXPECT_EQ(TReporter().Parse(deep), TReports{"fatal: Nested more than 4000 levels deep (4009, 0)"});
}

TEST(NestingUpToTheLimit, IsWalked) {
  const int depth = TzkSimplePasPar::MaxNesting - 3; // two statements and the innermost factor are levels as well
  const std::string deep = "begin x := " + std::string(depth, '(') + "a" + std::string(depth, ')') + " end.";
  EXPECT_EQ(TReporter().Parse(deep), TReports{});
}

TEST(AParserThatEndedEarly, CanRunOnAnotherText) {
  TReporter parser;
  parser.Parse("begin x := " + std::string(10'000, '('));
  EXPECT_TRUE(parser.HasEndedEarly());
  const TReports before = parser.Reports();
  EXPECT_EQ(parser.Parse("unit u; interface implementation begin x := ((1)) end."), before);
}

} // namespace
} // namespace quorvane
