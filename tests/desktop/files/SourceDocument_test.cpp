// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"

#include <algorithm>
#include <array>
#include <random>

using quorvane::TLineEnd;

namespace desktop {
namespace {

using SourceDocumentTest = FileTest;

std::string bytesOf(const SourceDocument& document) {
  return document.toBytes().Bytes;
}

void splitLine(SourceDocument& document, int line, int index) {
  QTextCursor cursor(document.findBlockByNumber(line));
  cursor.setPosition(cursor.position() + index);
  cursor.insertBlock();
}

void joinWithNext(SourceDocument& document, int line) {
  QTextCursor cursor(document.findBlockByNumber(line));
  cursor.movePosition(QTextCursor::EndOfBlock);
  cursor.deleteChar();
}

// As each break has it, without what the document keeps of them.
std::vector<TLineEnd> endsOfBreaks(const SourceDocument& document) {
  std::vector<TLineEnd> ends;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    ends.push_back(document.lineEndOf(block));
  return ends;
}

std::vector<TLineEnd> endsOfSnapshot(const SourceDocument& document) {
  std::vector<TLineEnd> ends;
  document.snapshot().forEachLine([&ends](std::u16string_view, TLineEnd end) { ends.push_back(end); });
  return ends;
}

// Lines that end in all three ways.
std::string mixedLines(int lines) {
  constexpr std::array<const char*, 3> breaks = {"\n", "\r\n", "\r"};
  std::string bytes;
  for (int line = 0; line < lines; ++line)
    bytes += "line" + std::string(breaks.at(static_cast<std::size_t>(line * line % 7 % 3)));
  return bytes;
}

// One edit at any place: text, breaks and a removal are as likely.
void editAnywhere(SourceDocument& document, std::minstd_rand& random) {
  const auto any = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  QTextCursor cursor(&document);
  cursor.setPosition(any(document.characterCount()));
  switch (any(3)) {
  case 0:
    return cursor.insertText(QStringLiteral("x"));
  case 1:
    return cursor.insertText(QStringLiteral("y\nz\n"));
  default:
    cursor.setPosition(std::min(cursor.position() + any(12), document.characterCount() - 1), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
  }
}

TEST_F(SourceDocumentTest, TakesTheLineEndOfMostLinesAsUsual) {
  EXPECT_EQ(openBytes("a\nb\r\nc\r\n")->usualLineEnd(), TLineEnd::CrLf);
  EXPECT_EQ(openBytes("a\rb\rc\n")->usualLineEnd(), TLineEnd::Cr);
  EXPECT_EQ(openBytes("a\nb")->usualLineEnd(), TLineEnd::Lf);
}

TEST_F(SourceDocumentTest, HasLfWhereTheFileHasNoLineEnd) {
  EXPECT_EQ(openBytes("a")->usualLineEnd(), TLineEnd::Lf);
  EXPECT_EQ(openBytes("")->usualLineEnd(), TLineEnd::Lf);
}

TEST_F(SourceDocumentTest, KnowsTheLineEndOfEveryLine) {
  const auto document = openBytes("a\nb\r\n\rd\n\ne");
  EXPECT_TRUE(document->hasMixedLineEnds());
  std::vector<TLineEnd> ends;
  for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
    ends.push_back(document->lineEndOf(block));
  EXPECT_EQ(ends,
            (std::vector{TLineEnd::Lf, TLineEnd::CrLf, TLineEnd::Cr, TLineEnd::Lf, TLineEnd::Lf, TLineEnd::None}));
}

TEST_F(SourceDocumentTest, GivesASplitLineItsOwnLineEndTwice) {
  const auto document = openBytes("aa\nbb\r\ncc\ndd");
  splitLine(*document, 1, 1);
  EXPECT_EQ(bytesOf(*document), "aa\nb\r\nb\r\ncc\ndd");
  splitLine(*document, 3, 1);
  EXPECT_EQ(bytesOf(*document), "aa\nb\r\nb\r\nc\nc\ndd");
}

TEST_F(SourceDocumentTest, GivesALineSplitAtItsStartItsOwnLineEndTwice) {
  const auto document = openBytes("aa\nbb\r\ncc\ndd");
  splitLine(*document, 1, 0);
  EXPECT_EQ(bytesOf(*document), "aa\n\r\nbb\r\ncc\ndd");
}

TEST_F(SourceDocumentTest, GivesALineSplitAtItsEndItsOwnLineEndTwice) {
  const auto document = openBytes("aa\nbb\r\ncc\ndd");
  splitLine(*document, 1, 2);
  EXPECT_EQ(bytesOf(*document), "aa\nbb\r\n\r\ncc\ndd");
}

TEST_F(SourceDocumentTest, EndsTypedLinesAsUsual) {
  const auto document = openBytes("aa\r\nbb");
  type(*document, 1, 2, QStringLiteral("\ncc\ndd"));
  EXPECT_EQ(bytesOf(*document), "aa\r\nbb\r\ncc\r\ndd");
}

TEST_F(SourceDocumentTest, LeavesTheLaterLineEndWhenLinesAreJoined) {
  const auto document = openBytes("aa\nbb\r\ncc\rdd\nee");
  joinWithNext(*document, 0);
  EXPECT_EQ(bytesOf(*document), "aabb\r\ncc\rdd\nee");
  joinWithNext(*document, 1);
  EXPECT_EQ(bytesOf(*document), "aabb\r\nccdd\nee");
}

TEST_F(SourceDocumentTest, LeavesTheOtherLineEndsWhenAnEmptyLineGoes) {
  const auto document = openBytes("aa\r\n\nbb\rcc");
  joinWithNext(*document, 1);
  EXPECT_EQ(bytesOf(*document), "aa\r\nbb\rcc");
}

TEST_F(SourceDocumentTest, LeavesTheOtherLineEndsWhenASelectionOverLinesGoes) {
  const auto document = openBytes("aa\nbb\r\ncc\rdd\nee");
  QTextCursor cursor(document.get());
  cursor.setPosition(1);
  cursor.setPosition(document->findBlockByNumber(2).position() + 1, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
  EXPECT_EQ(bytesOf(*document), "ac\rdd\nee");
}

TEST_F(SourceDocumentTest, KeepsTheLineEndsAroundPastedText) {
  const auto document = openBytes("aa\nbb\r\ncc\ndd");
  QTextCursor cursor(document->findBlockByNumber(1));
  cursor.setPosition(cursor.position() + 1);
  cursor.insertFragment(QTextDocumentFragment::fromPlainText(QStringLiteral("x\ny")));
  EXPECT_EQ(bytesOf(*document), "aa\nbx\r\nyb\r\ncc\ndd");
}

TEST_F(SourceDocumentTest, BringsLineEndsBackByUndo) {
  const std::string bytes = "aa\nbb\r\n\r\rdd\n\r\nee\r";
  const auto document = openBytes(bytes);
  QTextCursor all(document.get());
  all.select(QTextCursor::Document);
  all.removeSelectedText();
  EXPECT_EQ(bytesOf(*document), "");
  document->undo();
  EXPECT_EQ(bytesOf(*document), bytes);
  document->redo();
  document->undo();
  EXPECT_EQ(bytesOf(*document), bytes);
}

TEST_F(SourceDocumentTest, BringsEveryLineEndBackAfterManyEdits) {
  const std::string bytes = "aa\nbb\r\n\r\rdd\n\r\nee\r";
  const auto document = openBytes(bytes);
  for (int line = document->blockCount() - 2; line >= 0; line -= 2)
    joinWithNext(*document, line);
  for (int line = document->blockCount() - 1; line >= 0; --line)
    splitLine(*document, line, 0);
  while (document->isUndoAvailable())
    document->undo();
  EXPECT_EQ(bytesOf(*document), bytes);
}

TEST_F(SourceDocumentTest, KnowsEveryLineEndAfterAnyEdit) {
  const auto document = openBytes(mixedLines(100));
  std::minstd_rand random(1);
  for (int step = 0; step < 1000; ++step) {
    const unsigned kind = random() % 10;
    QTextCursor group(document.get());
    if (kind < 2) {
      document->undo();
    } else if (kind < 3) {
      document->redo();
    } else if (kind < 5) {
      group.beginEditBlock();
      editAnywhere(*document, random);
      ASSERT_EQ(endsOfSnapshot(*document), endsOfBreaks(*document)) << "in the midst of step " << step;
      editAnywhere(*document, random);
      group.endEditBlock();
    } else {
      editAnywhere(*document, random);
    }
    ASSERT_EQ(endsOfSnapshot(*document), endsOfBreaks(*document)) << "step " << step;
  }
}

TEST_F(SourceDocumentTest, KnowsEveryLineEndAfterAnEditAtBothEndsOfALongText) {
  const auto document = openBytes(mixedLines(5000));
  ASSERT_EQ(endsOfSnapshot(*document), endsOfBreaks(*document));
  QTextCursor group(document.get());
  group.beginEditBlock();
  joinWithNext(*document, 4900);
  splitLine(*document, 0, 2);
  joinWithNext(*document, 2);
  group.endEditBlock();
  EXPECT_EQ(endsOfSnapshot(*document), endsOfBreaks(*document));
  document->undo();
  EXPECT_EQ(bytesOf(*document), mixedLines(5000));
}

TEST_F(SourceDocumentTest, HasNothingToUndoWhenItIsOpened) {
  const auto document = openBytes("begin\nend.\n");
  EXPECT_FALSE(document->isUndoAvailable());
  EXPECT_FALSE(document->isModified());
}

TEST_F(SourceDocumentTest, IsUnmodifiedWithNothingToUndoWhenItIsNew) {
  const auto document = newDocument(folder(), [](const QString&) { return false; });
  EXPECT_FALSE(document->isModified());
  EXPECT_FALSE(document->isUndoAvailable());
  EXPECT_EQ(document->documentMargin(), 0);
}

TEST_F(SourceDocumentTest, NamesItsEncoding) {
  EXPECT_EQ(openBytes("a")->encodingName(), QStringLiteral("UTF-8"));
  EXPECT_EQ(openBytes("\xEF\xBB\xBF"
                      "a")
                ->encodingName(),
            QStringLiteral("UTF-8 with BOM"));
  EXPECT_EQ(openBytes("\xE4")->encodingName(), QStringLiteral("windows-1252"));
}

TEST_F(SourceDocumentTest, IsModifiedByAnotherEncoding) {
  const auto document = openBytes("\xE4");
  document->setEncoding(document->encoding());
  EXPECT_FALSE(document->isModified());
  document->setEncoding(quorvane::TEncoding{});
  EXPECT_TRUE(document->isModified());
  EXPECT_EQ(bytesOf(*document), "\xC3\xA4");
}

} // namespace
} // namespace desktop
