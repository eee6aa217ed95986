// SPDX-License-Identifier: MIT
// The template editor as the source of templates for the editors.
#include "settings/TemplateEditorFixture.h"

namespace quorvane {
namespace {

// An editor window with a Pascal file on top, and two templates.
class QVTemplateEditorSource : public ProxyTest {
protected:
  QVTemplateEditorSource() {
    Templates.Write("[beg]\ncode=a\\b\n[Größe]\ncode=\"  x|\"\n");
    StartQVTemplateEditor();
    LogForm.Take();
  }

  QString TextOf(const char* name) { return QVTemplateEditorForm->GetTemplateText(QString::fromUtf8(name), View); }

  TemplateFolder Templates;
};

TEST_F(QVTemplateEditorSource, KnowsNamesInWhateverCaseAndLogsThem) {
  EXPECT_TRUE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("Beg")));
  EXPECT_TRUE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("beg")));
  EXPECT_TRUE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("Größe")));
  EXPECT_FALSE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("be")));
  EXPECT_FALSE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("begin")));
  EXPECT_FALSE(QVTemplateEditorForm->IsTemplateName(QString()));
  EXPECT_EQ(LogForm.Take(), (Lines{"Template Name Check: Beg", "Template Name Check: beg", "Template Name Check: Größe",
                                   "Template Name Check: be", "Template Name Check: begin", "Template Name Check: "}));
}

TEST_F(QVTemplateEditorSource, ABackslashBecomesACarriageReturn) {
  EXPECT_EQ(TextOf("beg"), QStringLiteral("a\rb"));
  EXPECT_EQ(LogForm.Take(), Lines{"Template Text Request: beg"});
}

TEST_F(QVTemplateEditorSource, TextComesWithItsBlanksAndInAnyAlphabet) {
  EXPECT_EQ(TextOf("Größe"), QStringLiteral("  x|"));
}

TEST_F(QVTemplateEditorSource, AnUnknownNameHasNoText) {
  EXPECT_EQ(TextOf("end"), QString());
}

TEST_F(QVTemplateEditorSource, ThereIsNoTextInACommentOrAString) {
  for (int attribute = 0; attribute <= 12; ++attribute) {
    Editor().CursorAttribute = attribute;
    const bool isFree = attribute != 1 && attribute != 5;
    EXPECT_EQ(QVTemplateEditorForm->ValidateTemplate(QStringLiteral("beg"), View), isFree) << attribute;
    EXPECT_EQ(TextOf("beg"), isFree ? QStringLiteral("a\rb") : QString()) << attribute;
  }
}

TEST_F(QVTemplateEditorSource, ThereIsNoTextInAFileThatIsNotPascalSource) {
  for (const char* name : {"/home/me/unit1.dfm", "/home/me/unit1.inc", "/home/me/unit1", "/home/me/unit1.pas.txt"}) {
    Buffer->FileName = QString::fromLatin1(name);
    EXPECT_FALSE(QVTemplateEditorForm->ValidateTemplate(QStringLiteral("beg"), View)) << name;
    EXPECT_EQ(TextOf("beg"), QString()) << name;
  }
  Buffer->FileName = QStringLiteral("/home/me/PROJECT1.DPR");
  EXPECT_EQ(TextOf("beg"), QStringLiteral("a\rb"));
}

TEST_F(QVTemplateEditorSource, ThereIsNoTextInAWindowWithoutAProxy) {
  delete Proxy;
  EXPECT_EQ(TextOf("beg"), QString());
  EXPECT_EQ(LogForm.Take().back(), "Template Text Request: beg");
}

TEST_F(QVTemplateEditorSource, ATextIsRefusedWithoutAFileAfterItsLine) {
  StopQVTemplateEditor();
  platform::Application().SetProgramDirectory({});
  StartQVTemplateEditor();
  const platform::EAssertionFailed assertion = AssertionOf([this] { TextOf("beg"); });
  EXPECT_STREQ(assertion.what(), "Assertion failure (QVTemplateEditor, line 132)");
  EXPECT_EQ(LogForm.Take(), Lines{"Template Text Request: beg"});
  EXPECT_FALSE(QVTemplateEditorForm->IsTemplateName(QStringLiteral("beg")));
}

TEST_F(QVTemplateEditorSource, ATextSavedInTheDialogCountsAtOnce) {
  QVTemplateEditorForm->SetTemplateContent(QStringLiteral("beg"), QStringLiteral("begin\r\nend;"));
  EXPECT_EQ(TextOf("beg"), QStringLiteral("begin\rend;"));
  EXPECT_EQ(QVTemplateEditorForm->GetTemplateContent(QStringLiteral("beg")), QStringLiteral("begin\\end;"));
}

TEST_F(QVTemplateEditorSource, TypingANameAndTheKeyExpandsIt) {
  QVTemplateEditorForm->SetTemplateContent(QStringLiteral("beg"), QStringLiteral("begin"));
  Buffer->Text = "  BEG";
  PutCaret(6, 1);
  Editor().LineText = QStringLiteral("  BEG");
  EXPECT_TRUE(Proxy->DoTemplate(QStringLiteral("BEG")));
  EXPECT_EQ(Buffer->Text, "  begin");
}

} // namespace
} // namespace quorvane
