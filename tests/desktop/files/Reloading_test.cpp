// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"
#include "desktop/files/TrackedLines.h"
#include "support/PrintQt.h"

#include <rapidcheck/gtest.h>

namespace desktop {
namespace {

class ReloadingTest : public FileTest {
protected:
  void reloadAs(SourceDocument& document, const std::string& bytes) const {
    write(bytes);
    ASSERT_EQ(reload(document), QString());
    EXPECT_EQ(document.toBytes().Bytes, bytes);
    EXPECT_FALSE(document.isModified());
    EXPECT_FALSE(changedOnDisk(document));
  }
};

TEST_F(ReloadingTest, TheDocumentHoldsTheNewContents) {
  const auto document = openBytes("a\nb\nc");
  for (const std::string bytes : {"a\nx\ny\nc", "", "\n", "q\nr\n", "r\n", "a\nb\nc\nd\n\n"})
    reloadAs(*document, bytes);
}

TEST_F(ReloadingTest, IsOneStepToBeUndone) {
  const auto document = openBytes("a\nb\nc\nd\n");
  type(*document, 0, 0, QStringLiteral("x"));
  saveOver(*document);
  reloadAs(*document, "y\nb\nz\nd\n");
  document->undo();
  EXPECT_EQ(document->toBytes().Bytes, "xa\nb\nc\nd\n");
  EXPECT_TRUE(document->isModified());
  document->undo();
  EXPECT_EQ(document->toBytes().Bytes, "a\nb\nc\nd\n");
  document->redo();
  document->redo();
  EXPECT_EQ(document->toBytes().Bytes, "y\nb\nz\nd\n");
  EXPECT_FALSE(document->isModified());
}

TEST_F(ReloadingTest, TypingAfterwardsIsAStepOfItsOwn) {
  const auto document = openBytes("a\n");
  reloadAs(*document, "ab\n");
  type(*document, 0, 2, QStringLiteral("c"));
  document->undo();
  EXPECT_EQ(document->toBytes().Bytes, "ab\n");
}

TEST_F(ReloadingTest, ACursorStaysInItsWord) {
  const auto document = openBytes("uses a;\nbegin\n  work(one);\nend.\n");
  QTextCursor cursor(document->findBlockByNumber(2));
  cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 4);
  reloadAs(*document, "uses a, b;\n\nbegin\n  work(two);\nend.\n");
  EXPECT_EQ(cursor.block().text(), QStringLiteral("  work(two);"));
  EXPECT_EQ(cursor.positionInBlock(), 4);
}

TEST_F(ReloadingTest, TrackedLinesAreFoundAgainByTheirText) {
  const auto document = openBytes("a\nb\nmarked\nc\n");
  TrackedLines lines(*document, [](const auto&...) {});
  lines.add(2, 1);
  reloadAs(*document, "new\nb\nmore\na\nmarked\nc\n");
  EXPECT_EQ(lines.indexOf(4), 0);
}

TEST_F(ReloadingTest, TakesOverOtherLineEndsAndKeepsTheText) {
  const auto document = openBytes("a\nb\n");
  TrackedLines lines(*document, [](const auto&...) { ADD_FAILURE() << "a line has moved"; });
  lines.add(1, 1);
  reloadAs(*document, "a\r\nb\r\n");
  reloadAs(*document, "a\r\nb\n");
  reloadAs(*document, "a\nb\r\n");
  reloadAs(*document, "a\nb\n");
}

TEST_F(ReloadingTest, UndoBringsMixedLineEndsBack) {
  const auto document = openBytes("a\nb\r\nc\n");
  reloadAs(*document, "a\r\nb\nc\r\n");
  document->undo();
  EXPECT_EQ(document->toBytes().Bytes, "a\nb\r\nc\n");
}

TEST_F(ReloadingTest, TakesOverLineEndsOfLinesThatMove) {
  const auto document = openBytes("a\nb\r\nc\rd\ne\r\nf");
  reloadAs(*document, "a\nnew\rb\nc\rd\r\nx\ny\r\nf\r");
  reloadAs(*document, "b\r\nc\nd\n");
}

TEST_F(ReloadingTest, TakesOverAnotherEncoding) {
  const auto document = openBytes("\xE4\n"); // windows-1252
  reloadAs(*document, "\xC3\xA4\n");
  EXPECT_EQ(document->encodingName(), QStringLiteral("UTF-8"));
}

TEST_F(ReloadingTest, ATextThatCannotBeHeldBecomesReadOnlyAndAWholeOneWritableAgain) {
  const auto document = openBytes("a\n");
  write("a\xE2\x80\xA9"
        "b\n"); // a paragraph separator
  ASSERT_EQ(reload(*document), QString());
  EXPECT_TRUE(document->isReadOnlyText());
  EXPECT_FALSE(document->holdsWholeFile());
  reloadAs(*document, "b\n");
  EXPECT_FALSE(document->isReadOnlyText());
  EXPECT_TRUE(document->holdsWholeFile());
}

TEST_F(ReloadingTest, AFileThatIsGoneLeavesTheTextAlone) {
  const auto document = openBytes("a\n");
  ASSERT_TRUE(QFile::remove(path()));
  EXPECT_TRUE(reload(*document).contains(path()));
  EXPECT_EQ(document->toBytes().Bytes, "a\n");
}

RC_GTEST_FIXTURE_PROP(ReloadingTest, AnyTextBecomesAnyOtherAndComesBack, ()) {
  const auto texts = rc::gen::container<std::string>(rc::gen::element('a', 'b', '\n', '\n', '\r', 'c'));
  const std::string before = *texts;
  const std::string after = *texts;
  const auto document = openBytes(before);
  const bool isUniform = !document->hasMixedLineEnds();
  const QString plain = document->toPlainText();
  write(after);
  RC_ASSERT(reload(*document) == QString());
  RC_ASSERT(document->toBytes().Bytes == after);
  if (!document->isModified() && document->isUndoAvailable())
    document->undo();
  RC_ASSERT(document->toPlainText() == plain);
  if (!isUniform)
    RC_ASSERT(document->toBytes().Bytes == before);
}

} // namespace
} // namespace desktop
