// SPDX-License-Identifier: MIT
// Trailing blanks that go when a file is saved.
#include "UiFixture.h"

#include "desktop/files/EnvironmentSettings.h"
#include "desktop/files/TrackedLines.h"

#include <QFileDialog>

namespace desktop {
namespace {

class TrimOnSave : public UiFixture {
protected:
  TrimOnSave() { workspace.settings().set(&EnvironmentValues::trimTrailingBlanks, true); }

  bool save(Page* page) { return workspace.files().save(page); }
};

TEST_F(TrimOnSave, IsOffAtFirst) {
  workspace.settings().set(&EnvironmentValues::trimTrailingBlanks, EnvironmentValues().trimTrailingBlanks);
  Page* const page = openText(QStringLiteral("a.pas"), "a \n");
  type(QStringLiteral("x"));
  ASSERT_TRUE(save(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xa \n");
}

TEST_F(TrimOnSave, TakesTheBlanksAndKeepsTheLineEnds) {
  Page* const page = openText(QStringLiteral("a.pas"), "a \r\nb\t\n \r\nc");
  ASSERT_TRUE(save(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "a\r\nb\n\r\nc");
  EXPECT_FALSE(page->document()->isModified());
}

TEST_F(TrimOnSave, IsUndoneInOneStep) {
  Page* const page = openText(QStringLiteral("a.pas"), "a \nb \n");
  ASSERT_TRUE(save(page));
  editor()->undo();
  EXPECT_EQ(page->document()->toPlainText(), QStringLiteral("a \nb \n"));
  EXPECT_TRUE(page->document()->isModified());
}

TEST_F(TrimOnSave, KeepsCaretSelectionAndScrollPosition) {
  Page* const page = openText(QStringLiteral("a.pas"), QByteArray("line  \n").repeated(200) + "some text  ");
  editor()->setCaret(100, 3);
  editor()->setTopLine(95);
  ASSERT_TRUE(save(page));
  EXPECT_EQ(editor()->caretRow(), 100);
  EXPECT_EQ(editor()->caretColumn(), 3);
  EXPECT_EQ(editor()->topLine(), 95);
  const int start = page->document()->findBlockByNumber(200).position();
  select(start, start + 4);
  type(QStringLiteral("some"));
  select(start, start + 4);
  ASSERT_TRUE(save(page));
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("some"));
}

TEST_F(TrimOnSave, ACaretAmongTheBlanksComesToTheEndOfItsLine) {
  Page* const page = openText(QStringLiteral("a.pas"), "ab    \ncd\n");
  editor()->setCaret(1, 6);
  ASSERT_TRUE(save(page));
  EXPECT_EQ(editor()->caretRow(), 1);
  EXPECT_EQ(editor()->caretColumn(), 3);
}

TEST_F(TrimOnSave, KeepsTheCaretOfAPageThatIsNotInFront) {
  Page* const page = openText(QStringLiteral("a.pas"), "a   \nb   \nsome text\n");
  type(QStringLiteral("x"));
  editor()->setCaret(3, 6);
  openText(QStringLiteral("b.pas"), "unit B;");
  ASSERT_TRUE(workspace.files().saveAll());
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xa\nb\nsome text\n");
  window()->showPage(page);
  EXPECT_EQ(editor()->caretRow(), 3);
  EXPECT_EQ(editor()->caretColumn(), 6);
}

TEST_F(TrimOnSave, LinesThatAreTrackedStay) {
  Page* const page = openText(QStringLiteral("a.pas"), "a  \n   \nb  \nc\n");
  std::vector<LineMove> moved;
  TrackedLines lines(*page->document(), [&](const std::vector<LineMove>& moves) { moved = moves; });
  for (int line = 0; line < 4; ++line)
    lines.add(line, line);
  ASSERT_TRUE(save(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "a\n\nb\nc\n");
  for (int line = 0; line < 4; ++line)
    EXPECT_GE(lines.indexOf(line), 0) << line;
  EXPECT_TRUE(moved.empty());
}

TEST_F(TrimOnSave, LeavesAPlainTextAlone) {
  const QByteArray bytes = QByteArray(100'001, 'x') + " \n";
  Page* const page = openText(QStringLiteral("a.pas"), bytes);
  ASSERT_TRUE(page->document()->isPlain());
  ASSERT_TRUE(save(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), bytes);
}

TEST_F(TrimOnSave, LeavesATextAloneThatIsOnlyRead) {
  // The document could not give this separator back.
  Page* const page = openText(QStringLiteral("a.pas"), "a \xE2\x80\xA9 b \n");
  ASSERT_TRUE(page->document()->isReadOnlyText());
  const QString before = page->document()->toPlainText();
  const MessageBoxAnswer refusal([](QMessageBox& box) { box.reject(); });
  EXPECT_FALSE(save(page));
  EXPECT_EQ(page->document()->toPlainText(), before);
}

TEST_F(TrimOnSave, HoldsForSavingUnderAnotherName) {
  Page* const page = openText(QStringLiteral("a.pas"), "a \n");
  const support::ModalAnswer<QFileDialog> name([this](QFileDialog& dialog) {
    dialog.selectFile(path(QStringLiteral("b.pas")));
    QMetaObject::invokeMethod(&dialog, "accept");
  });
  ASSERT_TRUE(workspace.files().saveAs(page));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "a \n");
  EXPECT_EQ(read(QStringLiteral("b.pas")), "a\n");
}

} // namespace
} // namespace desktop
