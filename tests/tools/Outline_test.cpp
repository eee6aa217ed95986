// SPDX-License-Identifier: MIT
#include "tools/JsonLines.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quorvane {
namespace {

using namespace std::string_literals;

constexpr const char* Unit = R"(unit Shapes;
interface
uses Classes, SysUtils;
type
  TShape = class
    procedure Draw;
  end;
implementation
uses Forms;
procedure TShape.Draw;
  procedure Line;
  begin
  end;
begin
end;
function Area: Integer;
begin
end;
end.
)";

TEST(Outline, IsATreeWithLinesFromOne) {
  const TRunResult run = RunQuorvane({"outline", "-"}, Unit);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Output, R"(-
  interface (line 2)
    uses (line 3)
      Classes
      SysUtils
  implementation (line 8)
    uses (line 9)
      Forms
  classes
    TShape (line 5)
  methods
    Area (line 16)
    TShape.Draw (line 10)
    TShape.Draw.Line (line 11)
)");
}

TEST(Outline, IsOneJsonObjectWithLinesFromZero) {
  const TRunResult run = RunQuorvane({"outline", "--json", "-"}, Unit);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(
      run.Output,
      R"({"file":"-","classes":[["TShape",4]],"methods":[["Area",15],["TShape.Draw",9],["TShape.Draw.Line",10]],"interfaceUses":["Classes","SysUtils"],"implementationUses":["Forms"],"interfaceLine":1,"implementationLine":7,"interfaceUsesLine":2,"implementationUsesLine":8,"currentClass":"","currentProc":"","fatal":null}
)");
}

TEST(Outline, OfAnEmptyFileHasNothingAndSaysWhy) {
  const TRunResult run = RunQuorvane({"outline", "--json", "-"});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(
      run.Output,
      R"({"file":"-","classes":[],"methods":[],"interfaceUses":[],"implementationUses":[],"interfaceLine":-1,"implementationLine":-1,"interfaceUsesLine":-1,"implementationUsesLine":-1,"currentClass":"","currentProc":"","fatal":"Expected 'Unit' found 'end of file'"}
)");
}

// The section that the parser looked for last has a line too.
TEST(Outline, KeepsWhatWasReadBeforeAFatalError) {
  const TRunResult run = RunQuorvane({"outline", "-"}, "unit u;\ninterface\nuses A;\ntype\n  T = 1..2;");
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Output, R"(-
  interface (line 2)
    uses (line 3)
      A
  implementation (line 5)
  classes
    T (line 5)
  ended early: Expected 'Implementation' found 'end of file'
)");
}

nlohmann::json OutlineAt(const std::string& caret, const std::string& text = Unit) {
  const TRunResult run = RunQuorvane({"outline", "--json", "--caret", caret, "-"}, text);
  EXPECT_EQ(run.ExitCode, 0) << run.Errors;
  return JsonLines(run.Output).at(0);
}

// The caret counts what the editor serves, where each of the fourteen lines above it ends in two characters.
TEST(Outline, NamesTheRoutineAtTheCaret) {
  const auto begin = std::to_string(std::string(Unit).find("begin\nend;\nfunction") + 13);
  const auto outline = OutlineAt(begin);
  EXPECT_EQ(outline["currentClass"], "TShape");
  EXPECT_EQ(outline["currentProc"], "Draw");
}

TEST(Outline, NamesNoRoutineWhereTheCaretIsInNone) {
  for (const char* caret : {"0", "2147483647"}) {
    const auto outline = OutlineAt(caret);
    EXPECT_EQ(outline["currentClass"], "") << caret;
    EXPECT_EQ(outline["currentProc"], "") << caret;
  }
}

TEST(Outline, TellsTheCaretInTheTreeIfOneIsGiven) {
  const auto caret = std::to_string(std::string(Unit).find("function Area") + 30);
  EXPECT_TRUE(RunQuorvane({"outline", "--caret", caret, "-"}, Unit).Output.ends_with("\n  the caret is in Area\n"));
  EXPECT_TRUE(RunQuorvane({"outline", "--caret", "0", "-"}, Unit).Output.ends_with("\n  the caret is in no routine\n"));
}

// 100 characters of two bytes each stand before the routine.
TEST(Outline, CountsTheCaretInCharacters) {
  std::string text = "unit u; interface implementation {";
  for (int count = 0; count < 100; ++count)
    text += "\xC3\xA9";
  text += "} procedure p; begin end; end.";
  const auto bytes = static_cast<int>(text.find("begin"));
  EXPECT_EQ(OutlineAt(std::to_string(bytes - 100), text)["currentProc"], "p");
  EXPECT_EQ(OutlineAt(std::to_string(bytes), text)["currentProc"], "");
}

TEST(Outline, TakesACaretForOneFileOnly) {
  const TRunResult run = RunQuorvane({"outline", "--caret", "3", "a.pas", "b.pas"});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "quorvane: --caret: needs exactly one FILE\nTry quorvane --help.\n");
}

TEST(Outline, RefusesACaretThatIsNoPosition) {
  for (const char* caret : {"-1", "2147483648", "x", "1.5", ""}) {
    const TRunResult run = RunQuorvane({"outline", "--caret", caret, "-"});
    EXPECT_EQ(run.ExitCode, 2) << caret;
    EXPECT_EQ(run.Output, "") << caret;
    EXPECT_TRUE(run.Errors.starts_with("quorvane: ")) << run.Errors;
  }
}

TEST(Outline, ReadsUtf16ByItsMarkAndOtherFilesByTheNamedEncoding) {
  const std::string wide = "u\0n\0i\0t\0 \0u\0;\0i\0n\0t\0e\0r\0f\0a\0c\0e\0 \0u\0s\0e\0s\0 \0a\0;\0"s;
  const TRunResult marked = RunQuorvane({"outline", "--json", "-"}, "\xFF\xFE" + wide);
  EXPECT_EQ(JsonLines(marked.Output).at(0)["interfaceUses"], nlohmann::json::array({"a"}));
  const TRunResult named = RunQuorvane({"outline", "--json", "--encoding", "utf-16le", "-"}, wide);
  EXPECT_EQ(named.Output, marked.Output);
}

TEST(Outline, NamesAFileAsItIsWritten) {
  const TTempDir dir;
  for (const auto& [name, shown] :
       {std::pair{"a \"b\".pas"s, "a \"b\".pas"s}, std::pair{"\xC3\xA9.pas"s, "\xC3\xA9.pas"s},
        std::pair{"\xE9.pas"s, "\xEF\xBF\xBD.pas"s}}) {
    dir.Write(name, Unit);
    const TRunResult run = RunQuorvaneIn(dir, {"outline", "--json", name});
    EXPECT_EQ(JsonLines(run.Output).at(0)["file"], shown);
    EXPECT_TRUE(RunQuorvaneIn(dir, {"outline", name}).Output.starts_with(shown + "\n"));
  }
}

TEST(Outline, ShowsControlCharactersOfAFilesNameByASign) {
  const TTempDir dir;
  dir.Write("a\n\033.pas", Unit);
  EXPECT_TRUE(RunQuorvaneIn(dir, {"outline", "a\n\033.pas"}).Output.starts_with("a\xE2\x90\x8A\xE2\x90\x9B.pas\n"));
}

TEST(Outline, ShowsControlCharactersOfANameByASign) {
  const TRunResult run = RunQuorvane({"outline", "-"}, "unit u; interface uses '\033[31m'; implementation end.");
  EXPECT_NE(run.Output.find("      '\xE2\x90\x9B[31m'\n"), std::string::npos) << run.Output;
}

TEST(Outline, OfSeveralFilesFollowEachOther) {
  const TTempDir dir;
  const std::string a = dir.Write("a.pas", "unit a; interface");
  const std::string b = dir.Write("b.pas", "unit b; interface");
  const auto lines = JsonLines(RunQuorvane({"outline", "--json", b, a}).Output);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["file"], b);
  EXPECT_EQ(lines[1]["file"], a);
}

TEST(Outline, OfOtherFilesIsStillShownWhenOneIsMissing) {
  const TTempDir dir;
  const TRunResult run = RunQuorvane({"outline", dir.Path("none.pas"), dir.Write("a.pas", Unit)});
  EXPECT_EQ(run.ExitCode, 2);
  EXPECT_EQ(run.Errors, "quorvane: " + dir.Path("none.pas") + ": No such file or directory\n");
  EXPECT_NE(run.Output.find("TShape.Draw.Line (line 11)"), std::string::npos);
}

} // namespace
} // namespace quorvane
