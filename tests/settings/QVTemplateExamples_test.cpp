// SPDX-License-Identifier: MIT
// The example templates, typed as the editor types them, are good source that is well laid out.
#include "settings/model/QVTemplateExamples.h"

#include "lexer/zkPasLex.h"
#include "parser/ParserProbe.h"
#include "settings/IniTemplateFile.h"
#include "settings/model/QVTemplateStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {
namespace {

struct TTyped {
  std::string Text;
  std::string TakenBack; // the characters that "~" has taken
};

// What stands in the editor after an expansion in a line that is indented by two: a new line begins with the blanks of
// the one before. `fillers` are typed at the places for the caret, the last of them at all that are left.
TTyped Typed(std::string_view code, std::span<const std::string_view> fillers) {
  TTyped typed{"  ", ""};
  for (const char c : TemplateExpansionText(code)) {
    if (c == '\r') {
      const std::string line = typed.Text.substr(typed.Text.rfind('\n') + 1);
      typed.Text += '\n' + line.substr(0, line.find_first_not_of(' '));
    } else if (c == '~') {
      typed.TakenBack += typed.Text.back();
      typed.Text.pop_back();
    } else if (c == '|') {
      typed.Text += fillers.front();
      fillers = fillers.subspan(fillers.size() > 1 ? 1 : 0);
    } else {
      typed.Text += c;
    }
  }
  return typed;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n')
      lines.emplace_back();
    else
      lines.back() += c;
  }
  return lines;
}

// With "|" at the places for the caret.
TTyped Typed(std::string_view code) {
  static constexpr std::string_view fillers[] = {"|"};
  return Typed(code, fillers);
}

// Where an example belongs: "@" is its place in this source, and these are typed at its places for the caret.
struct TUse {
  std::string_view Name;
  std::string_view Source;
  std::vector<std::string_view> Fillers;
};

std::ostream& operator<<(std::ostream& out, const TUse& use) {
  return out << use.Name;
}

constexpr std::string_view inStatement = "program p;\nbegin\n@\nend.";
constexpr std::string_view inDeclarations = "program p;\n@\nbegin\nend.";
constexpr std::string_view inTypes = "program p;\ntype\n@\nbegin\nend.";
constexpr std::string_view inClass = "program p;\ntype T = class\n@\nend;\nbegin\nend.";
constexpr std::string_view alone = "@";

const std::vector<TUse> uses = {
    {"beg", inStatement, {"x"}},
    {"casb", inStatement, {"x"}},
    {"cls", inTypes, {"Foo", "FBar: Integer;", "procedure Bar;"}},
    {"crf", inStatement, {"Foo", "Foo", "Foo.Bar;", "Foo"}},
    {"ctor", inDeclarations, {"Foo", "x"}},
    {"dtor", inDeclarations, {"Foo", "FBar.Free;"}},
    {"forb", inStatement, {"i"}},
    {"func", inDeclarations, {"Foo"}},
    {"ifb", inStatement, {"x"}},
    {"ife", inStatement, {"x"}},
    {"newunit", alone, {"Foo", "uses Bar;", "procedure P; begin end;"}},
    {"proc", inDeclarations, {"Foo", "x"}},
    {"prop", inClass, {"Foo"}},
    {"rept", inStatement, {"x"}},
    {"tryf", inStatement, {"x"}},
    {"tryo", inStatement, {"x", "Exception", "x"}},
    {"tryx", inStatement, {"x"}},
    {"whb", inStatement, {"x"}},
};

TEST(QVTemplateExamples, AreAllTestedAndInAlphabeticalOrder) {
  const auto examples = TemplateExamples();
  EXPECT_TRUE(std::ranges::equal(examples, uses, {}, &TQVTemplateExample::Name, &TUse::Name));
  EXPECT_TRUE(std::ranges::is_sorted(examples, {}, &TQVTemplateExample::Name));
}

class QVTemplateExample : public testing::TestWithParam<TUse> {
protected:
  static std::string_view Code() {
    return std::ranges::find(TemplateExamples(), GetParam().Name, &TQVTemplateExample::Name)->Code;
  }
};

TEST_P(QVTemplateExample, IsGoodSource) {
  std::string source(GetParam().Source);
  source.replace(source.find('@'), 1, Typed(Code(), GetParam().Fillers).Text);
  TReporter parser;
  EXPECT_EQ(parser.Parse(source), TReports{}) << source;
}

TEST_P(QVTemplateExample, TakesOnlyIndentationBack) {
  const TTyped typed = Typed(Code());
  EXPECT_EQ(typed.TakenBack, std::string(typed.TakenBack.size(), ' '));
}

TEST_P(QVTemplateExample, EndsAtTheIndentationWhereItBegins) {
  const std::vector<std::string> lines = LinesOf(Typed(Code()).Text);
  EXPECT_EQ(lines.back().find_first_not_of(' '), 2U);
  for (const std::string& line : lines)
    EXPECT_EQ(std::min(line.find_first_not_of(' '), line.size()) % 2, 0U) << line;
}

TEST_P(QVTemplateExample, LeavesNoBlanksAtLineEnds) {
  for (const std::string& line : LinesOf(Typed(Code()).Text))
    EXPECT_FALSE(line.size() > 2 && line.ends_with(' ')) << line;
}

TEST_P(QVTemplateExample, HasAPlaceForTheCaret) {
  EXPECT_NE(Code().find('|'), std::string_view::npos);
}

TEST_P(QVTemplateExample, HasANameThatCanBeTypedButIsNoWordOfTheLanguage) {
  const std::string name(GetParam().Name);
  TzkBasePasLex lex;
  lex.SetOrigin(name.c_str());
  EXPECT_EQ(lex.TokenID(), ptIdentifier);
  EXPECT_EQ(lex.ExID(), ptUnknown);
  EXPECT_EQ(lex.GetToken(), name);
}

INSTANTIATE_TEST_SUITE_P(All, QVTemplateExample, testing::ValuesIn(uses),
                         [](const auto& use) { return std::string(use.param.Name); });

TEST(QVTemplateExamples, AreLaidOutAsTheirTextsSay) {
  EXPECT_EQ(Typed("try\\  |\\~~except\\  on E: | do\\  |\\~~~~end;").Text,
            "  try\n    |\n  except\n    on E: | do\n      |\n  end;");
}

TEST(QVTemplateExamples, AreAddedToAnEmptyStore) {
  IniTemplateFile file;
  TQVTemplateStore store(file);
  store.AddExamples();
  ASSERT_EQ(store.Names().size(), TemplateExamples().size());
  for (const TQVTemplateExample& example : TemplateExamples())
    EXPECT_EQ(store.GetTemplateContent(example.Name), example.Code);
}

TEST(QVTemplateExamples, LeaveTemplatesOfTheirNamesAlone) {
  IniTemplateFile file("[BEG]\ncode=mine\n");
  TQVTemplateStore store(file);
  store.LoadTemplates();
  store.AddExamples();
  EXPECT_EQ(store.GetTemplateContent("beg"), "mine");
  EXPECT_EQ(store.Names().size(), TemplateExamples().size());
}

TEST(QVTemplateExamples, LeaveTemplatesAloneThatAnotherProgramHasAddedMeanwhile) {
  IniTemplateFile file;
  TQVTemplateStore store(file);
  store.LoadTemplates();
  file.WriteString("BEG", "code", "theirs");
  store.AddExamples();
  EXPECT_EQ(store.GetTemplateContent("beg"), "theirs");
}

} // namespace
} // namespace quorvane
