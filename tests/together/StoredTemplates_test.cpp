// SPDX-License-Identifier: MIT
// Templates of the user's file in the real editor: where they expand, and what the examples make of it.
#include "together/MarkerFixture.h"

#include "editor/QVTemplateSource.h"
#include "settings/model/QVTemplateExamples.h"
#include "settings/QVTemplateEditor.h"
#include "support/EnvironmentVariable.h"

#include <algorithm>
#include <optional>

namespace together {
namespace {

class StoredTemplates : public MarkerFixture {
protected:
  ~StoredTemplates() override {
    if (quorvane::QVTemplateEditorForm != nullptr)
      quorvane::StopQVTemplateEditor();
    platform::Application().SetProgramDirectory({});
  }

  void store(const QByteArray& file) {
    configHome_.emplace("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
    platform::Application().SetProgramDirectory(folder_.path() + u'/');
    write(QStringLiteral("templates.ini"), file);
    quorvane::StartQVTemplateEditor();
  }
  void keys(const QString& text) {
    QTest::keyClicks(editor(), text);
    support::settle();
  }
  std::string text() const { return editor()->toPlainText().toStdString(); }

private:
  std::optional<support::EnvironmentVariable> configHome_;
};

struct Spot {
  const char* name;
  const char* file;
  const char* before; // the text up to the caret
  bool expands;
};

class StoredTemplatesAt : public StoredTemplates, public testing::WithParamInterface<Spot> {};
INSTANTIATE_TEST_SUITE_P(Spots, StoredTemplatesAt,
                         testing::Values(Spot{"Code", "unit.pas", "x;\n", true}, Spot{"Project", "p.DPR", "", true},
                                         Spot{"BraceComment", "unit.pas", "{ about the ", false},
                                         Spot{"CommentOfSeveralLines", "unit.pas", "(* about\nthe ", false},
                                         Spot{"LineComment", "unit.pas", "x; // the ", false},
                                         Spot{"AfterAComment", "unit.pas", "{ about } ", true},
                                         Spot{"String", "unit.pas", "s := 'the ", false},
                                         Spot{"AfterAString", "unit.pas", "s := 'the' + ", true},
                                         Spot{"NoPascalFile", "notes.txt", "x;\n", false},
                                         Spot{"IncludeFile", "part.inc", "x;\n", false}),
                         [](const auto& spot) { return std::string(spot.param.name); });

TEST_P(StoredTemplatesAt, ExpandInCodeOfPascalFilesOnly) {
  store("[beg]\ncode=begin|\\end;\n");
  const std::string before = GetParam().before;
  openWithAddIn(QByteArray(GetParam().before), GetParam().file);
  editor()->moveCursor(QTextCursor::End);
  keys(QStringLiteral("Beg "));
  EXPECT_EQ(text(), before + (GetParam().expands ? "begin\nend;" : "Beg "));
}

TEST_F(StoredTemplates, ABackslashOfTheFileIsALineEnd) {
  store("[ab]\ncode=a\\b\n");
  openWithAddIn("");
  keys(QStringLiteral("ab "));
  EXPECT_EQ(text(), "a\nb");
}

TEST_F(StoredTemplates, DoNotExpandAfterTheStoreHasStopped) {
  store("[beg]\ncode=begin\n");
  quorvane::StopQVTemplateEditor();
  openWithAddIn("");
  keys(QStringLiteral("beg "));
  EXPECT_EQ(text(), "beg ");
}

// What an example is to give in a line indented by two, as it is meant: a new line has the indentation of the one
// before. The caret stops are left out.
std::string meant(std::string_view code) {
  std::string text = "  ";
  for (const char each : code) {
    if (each == '\\') {
      const std::string line = text.substr(text.rfind('\n') + 1);
      text += '\n' + line.substr(0, line.find_first_not_of(' '));
    } else if (each == '~') {
      text.pop_back();
    } else if (each != '|') {
      text += each;
    }
  }
  return text;
}

TEST_F(StoredTemplates, ExamplesComeOutAsTheyAreMeant) {
  QByteArray file;
  for (const auto& example : quorvane::TemplateExamples())
    file += "[" + QByteArray(example.Name.data(), static_cast<qsizetype>(example.Name.size())) +
            "]\ncode=" + QByteArray(example.Code.data(), static_cast<qsizetype>(example.Code.size())) + "\n";
  store(file);
  openWithAddIn("");
  for (const auto& example : quorvane::TemplateExamples()) {
    const std::string name(example.Name);
    editor()->setPlainText(QStringLiteral("  "));
    editor()->moveCursor(QTextCursor::End);
    keys(QString::fromStdString(name + " "));
    EXPECT_EQ(text(), meant(example.Code)) << name;
    const auto stops = std::count(example.Code.begin(), example.Code.end(), '|');
    EXPECT_EQ(stack().Count(), stops - 1) << name;
    while (stack().Count() > 0)
      stack().Pop();
    editor()->undo();
    EXPECT_EQ(text(), "  " + name);
  }
}

} // namespace
} // namespace together
