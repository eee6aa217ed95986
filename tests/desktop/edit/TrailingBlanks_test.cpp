// SPDX-License-Identifier: MIT
#include "desktop/edit/TrailingBlanks.h"

#include "EditFixture.h"

#include <QTextBlock>

namespace desktop {
namespace {

std::string trimmed(const char* text) {
  PlainDocument document(QString::fromUtf8(text));
  trimTrailingBlanks(document);
  return document.toPlainText().toStdString();
}

TEST(TrailingBlanks, AreBlanksAndTabsAtTheEndsOfLines) {
  EXPECT_EQ(trimmed("a  \n b\t \t\n\t c d"), "a\n b\n\t c d");
  EXPECT_EQ(trimmed("a "), "a");
}

TEST(TrailingBlanks, AreAllOfALineThatHasNothingElse) {
  EXPECT_EQ(trimmed("a\n   \nb\n \t"), "a\n\nb\n");
}

TEST(TrailingBlanks, AreTakenFromCommentsToo) {
  EXPECT_EQ(trimmed("{ a \n  b \n}"), "{ a\n  b\n}");
}

TEST(TrailingBlanks, AreGoneInOneStep) {
  PlainDocument document(QStringLiteral("a \nb \nc"));
  EXPECT_TRUE(trimTrailingBlanks(document));
  document.undo();
  EXPECT_EQ(document.toPlainText(), QStringLiteral("a \nb \nc"));
  EXPECT_FALSE(document.isUndoAvailable());
}

TEST(TrailingBlanks, ATextWithoutAnyIsNotTouched) {
  PlainDocument document(QStringLiteral("a\n\n b"));
  EXPECT_FALSE(trimTrailingBlanks(document));
  EXPECT_EQ(document.availableUndoSteps(), 0);
  EXPECT_FALSE(document.isModified());
}

TEST(TrailingBlanks, LinesWithoutAnyAreNotTouched) {
  PlainDocument document(QStringLiteral("a\nb \nc"));
  for (QTextBlock line = document.begin(); line.isValid(); line = line.next())
    line.setUserState(7);
  std::vector<int> revisions;
  for (QTextBlock line = document.begin(); line.isValid(); line = line.next())
    revisions.push_back(line.revision());
  trimTrailingBlanks(document);
  EXPECT_EQ(document.findBlockByNumber(0).revision(), revisions[0]);
  EXPECT_NE(document.findBlockByNumber(1).revision(), revisions[1]);
  EXPECT_EQ(document.findBlockByNumber(2).revision(), revisions[2]);
}

TEST(TrailingBlanks, ACursorAmongThemComesToTheEndOfItsLine) {
  PlainDocument document(QStringLiteral("ab    \ncd"));
  QTextCursor among(&document);
  among.setPosition(5);
  QTextCursor below(&document);
  below.setPosition(8);
  trimTrailingBlanks(document);
  EXPECT_EQ(among.position(), 2);
  EXPECT_EQ(below.block().text(), QStringLiteral("cd"));
  EXPECT_EQ(below.positionInBlock(), 1);
}

} // namespace
} // namespace desktop
