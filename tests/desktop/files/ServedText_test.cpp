// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"

namespace desktop {
namespace {

using ServedTextTest = FileTest;

TEST_F(ServedTextTest, EndsEveryLineWithCrLf) {
  EXPECT_EQ(*openBytes("a\nb\r\nc\rd")->servedText(), "a\r\nb\r\nc\r\nd");
  EXPECT_EQ(*openBytes("a\n")->servedText(), "a\r\n");
  EXPECT_EQ(*openBytes("")->servedText(), "");
}

TEST_F(ServedTextTest, HasOneByteForEachCharacter) {
  const auto document = openBytes("a\xC3\xA4\xC2\xA0\xE2\x82\xAC\xF0\x9F\x98\x80z");
  EXPECT_EQ(*document->servedText(), "a\xE4\xA0\xBF\xBFz");
}

TEST_F(ServedTextTest, KeepsNulAndControlCharacters) {
  const std::string bytes("a\0\x1A\fb", 5);
  EXPECT_EQ(*openBytes(bytes)->servedText(), bytes);
}

TEST_F(ServedTextTest, IsTheSameObjectUntilTheTextChanges) {
  const auto document = openBytes("a\nb");
  const auto before = document->servedText();
  EXPECT_EQ(document->servedText(), before);
  type(*document, 1, 1, QStringLiteral("c"));
  EXPECT_NE(document->servedText(), before);
  EXPECT_EQ(*document->servedText(), "a\r\nbc");
  EXPECT_EQ(*before, "a\r\nb");
  document->undo();
  EXPECT_EQ(*document->servedText(), "a\r\nb");
}

TEST_F(ServedTextTest, FollowsEveryKindOfEdit) {
  const auto document = openBytes("one\ntwo\nthree\nfour\n");
  const auto check = [&](const std::string& expected) {
    EXPECT_EQ(*document->servedText(), expected);
    for (int line = 0; line < document->blockCount(); ++line) {
      const std::size_t start = document->servedLineStart(line);
      EXPECT_EQ(document->lineOfServedPosition(start), line);
    }
  };
  check("one\r\ntwo\r\nthree\r\nfour\r\n");
  type(*document, 0, 0, QStringLiteral("\nzero\n"));
  check("\r\nzero\r\none\r\ntwo\r\nthree\r\nfour\r\n");
  QTextCursor cursor(document->findBlockByNumber(1));
  cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, 3);
  cursor.removeSelectedText();
  check("\r\nthree\r\nfour\r\n");
  type(*document, 1, 5, QString::fromUtf8("\xF0\x9F\x98\x80"));
  check("\r\nthree\xBF\r\nfour\r\n");
  type(*document, 2, 0, QStringLiteral("x"));
  check("\r\nthree\xBF\r\nxfour\r\n");
  while (document->isUndoAvailable()) {
    document->undo();
    (void)document->servedText();
  }
  check("one\r\ntwo\r\nthree\r\nfour\r\n");
  while (document->isRedoAvailable())
    document->redo();
  check("\r\nthree\xBF\r\nxfour\r\n");
}

TEST_F(ServedTextTest, KnowsWhereLinesStart) {
  const auto document = openBytes("ab\n\nc\xF0\x9F\x98\x80\nd");
  EXPECT_EQ(document->servedLineStart(0), 0U);
  EXPECT_EQ(document->servedLineStart(1), 4U);
  EXPECT_EQ(document->servedLineStart(2), 6U);
  EXPECT_EQ(document->servedLineStart(3), 10U);
}

TEST_F(ServedTextTest, KnowsTheLineOfAPosition) {
  const auto document = openBytes("ab\n\ncd");
  EXPECT_EQ(document->lineOfServedPosition(0), 0);
  EXPECT_EQ(document->lineOfServedPosition(3), 0); // the LF
  EXPECT_EQ(document->lineOfServedPosition(4), 1);
  EXPECT_EQ(document->lineOfServedPosition(6), 2);
  EXPECT_EQ(document->lineOfServedPosition(1000), 2);
}

} // namespace
} // namespace desktop
