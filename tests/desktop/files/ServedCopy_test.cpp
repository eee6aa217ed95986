// SPDX-License-Identifier: MIT
// Whatever is done to a document, the copy that add-ins read is the one that serving the whole text anew would give.
#include "desktop/files/FileFixture.h"
#include "text/ServedText.h"

#include <rapidcheck/gtest.h>

#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <string>
#include <vector>

namespace desktop {
namespace {

// A text served line by line, with the places where its lines start.
struct Expected {
  std::string text;
  std::vector<std::size_t> lineStarts;
};

Expected expected(const SourceDocument& document) {
  Expected served;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    served.lineStarts.push_back(served.text.size());
    quorvane::AppendServedLine(block.text().toStdU16String(), served.text);
    if (block.next().isValid())
      served.text += "\r\n";
  }
  return served;
}

void expectExact(const SourceDocument& document) {
  const Expected served = expected(document);
  ASSERT_EQ(*document.servedText(), served.text);
  for (int line = 0; line < document.blockCount(); ++line)
    ASSERT_EQ(document.servedLineStart(line), served.lineStarts[static_cast<std::size_t>(line)]) << "line " << line;
}

bool isExact(const SourceDocument& document) {
  const Expected served = expected(document);
  if (*document.servedText() != served.text)
    return false;
  for (int line = 0; line < document.blockCount(); ++line) {
    if (document.servedLineStart(line) != served.lineStarts[static_cast<std::size_t>(line)])
      return false;
  }
  return true;
}

QTextCursor cursorAt(SourceDocument& document, int begin, int end) {
  QTextCursor cursor(&document);
  cursor.setPosition(begin);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  return cursor;
}

class ServedCopyTest : public FileTest {
protected:
  // A hundred numbered lines.
  std::unique_ptr<SourceDocument> numbered() const {
    std::string bytes;
    for (int line = 0; line < 100; ++line)
      bytes += "line " + std::to_string(line) + "\n";
    return openBytes(bytes);
  }
};

TEST_F(ServedCopyTest, IsPatchedInPlaceWhenNobodyHoldsIt) {
  const auto document = numbered();
  const char* const before = document->servedText()->data();
  cursorAt(*document, 20, 21).removeSelectedText();
  EXPECT_EQ(document->servedText()->data(), before);
  expectExact(*document);
}

TEST_F(ServedCopyTest, LeavesATextThatSomebodyHoldsAlone) {
  const auto document = numbered();
  const auto held = document->servedText();
  const std::string text = expected(*document).text;
  cursorAt(*document, 20, 21).removeSelectedText();
  EXPECT_NE(document->servedText(), held);
  EXPECT_EQ(*held, text);
  expectExact(*document);
}

TEST_F(ServedCopyTest, CollectsSeveralEditsUntilItIsAsked) {
  const auto document = numbered();
  (void)document->servedText();
  type(*document, 70, 0, QStringLiteral("a\nb\n"));
  cursorAt(*document, 5, 60).removeSelectedText();
  type(*document, 40, 2, QStringLiteral("\n\n"));
  document->undo();
  expectExact(*document);
}

TEST_F(ServedCopyTest, IsNeverStaleInsideAnEditBlock) {
  const auto document = numbered();
  (void)document->servedText();
  QTextCursor cursor(document.get());
  cursor.beginEditBlock();
  cursor.insertText(QStringLiteral("one\n"));
  expectExact(*document);
  cursor.insertText(QStringLiteral("two"));
  expectExact(*document);
  cursor.setPosition(80);
  cursor.deleteChar();
  expectExact(*document);
  cursor.endEditBlock();
  expectExact(*document);
}

TEST_F(ServedCopyTest, OutlivesAnEditBlockWithoutEdits) {
  const auto document = numbered();
  (void)document->servedText();
  QTextCursor cursor(document.get());
  cursor.beginEditBlock();
  cursor.endEditBlock();
  expectExact(*document);
}

TEST_F(ServedCopyTest, HearsOfEditsAtBothEndsInOneBlock) {
  const auto document = numbered();
  (void)document->servedText();
  QTextCursor cursor(document.get());
  cursor.beginEditBlock();
  cursor.insertText(QStringLiteral("top\n"));
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(QStringLiteral("\nbottom"));
  cursor.endEditBlock();
  expectExact(*document);
}

TEST_F(ServedCopyTest, FollowsTextsThatBecomeEmptyAndFullAgain) {
  const auto document = numbered();
  (void)document->servedText();
  cursorAt(*document, 0, document->characterCount() - 1).removeSelectedText();
  EXPECT_EQ(*document->servedText(), "");
  document->undo();
  expectExact(*document);
  document->setPlainText(QStringLiteral("a\nb"));
  EXPECT_EQ(*document->servedText(), "a\r\nb");
  document->clear();
  EXPECT_EQ(*document->servedText(), "");
}

TEST_F(ServedCopyTest, NoticesEditsThatItCouldNotHearOf) {
  const auto document = numbered();
  (void)document->servedText();
  {
    const QSignalBlocker blocker(document.get());
    cursorAt(*document, 10, 11).insertText(QStringLiteral("X"));
  }
  expectExact(*document);
  type(*document, 50, 0, QStringLiteral("y"));
  expectExact(*document);
}

TEST_F(ServedCopyTest, NoticesEditsMadeWhileAnotherIsReported) {
  const auto document = numbered();
  (void)document->servedText();
  bool edited = false;
  const auto edit = [&document, &edited] {
    if (!std::exchange(edited, true))
      cursorAt(*document, 300, 301).insertText(QStringLiteral("Z"));
  };
  QObject::connect(document.get(), &QTextDocument::contentsChange, edit);
  type(*document, 0, 0, QStringLiteral("y"));
  EXPECT_TRUE(edited);
  expectExact(*document);
  edited = false;
  QObject::connect(document.get(), &QTextDocument::contentsChanged, edit);
  type(*document, 0, 0, QStringLiteral("y"));
  expectExact(*document);
}

TEST_F(ServedCopyTest, NoticesEditsWhoseReportWasCutShort) {
  const auto document = numbered();
  (void)document->servedText();
  QTextCursor cursor(document.get());
  cursor.beginEditBlock();
  cursor.insertText(QStringLiteral("lost"));
  document->markContentsDirty(400, 10);
  cursor.setPosition(500);
  cursor.insertText(QStringLiteral("told"));
  cursor.endEditBlock();
  expectExact(*document);
}

TEST_F(ServedCopyTest, ServesALargeChangeAsAWhole) {
  const auto document = numbered();
  (void)document->servedText();
  type(*document, 50, 3, QStringLiteral("many\n").repeated(5000));
  expectExact(*document);
  document->undo();
  expectExact(*document);
}

// One random edit; the numbers are cut to what the document has.
struct Edit {
  enum Kind { Insert, Remove, Replace, Undo, Redo, Format, BeginBlock, EndBlock, Serve };
  int kind = Serve;
  int place = 0;
  int length = 0;
  int text = 0;
};

const std::vector<QString>& texts() {
  static const std::vector<QString> all = {QStringLiteral("x"),
                                           QStringLiteral("\n"),
                                           QStringLiteral("a\nbc\n"),
                                           QStringLiteral("\n\n\n"),
                                           QStringLiteral("begin"),
                                           QString::fromUtf8("\xC3\xA4\xE2\x82\xAC"),
                                           QString::fromUtf8("\xF0\x9F\x98\x80"),
                                           QString(QChar(0xD83D)),
                                           QString(QChar(0xDE00))};
  return all;
}

void apply(const Edit& edit, SourceDocument& document, QTextCursor& block, int& depth) {
  const int size = document.characterCount();
  const int begin = edit.place % size;
  QTextCursor cursor = cursorAt(document, begin, std::min(begin + edit.length, size - 1));
  switch (edit.kind) {
  case Edit::Insert:
    cursor.clearSelection();
    cursor.insertText(texts()[static_cast<std::size_t>(edit.text)]);
    break;
  case Edit::Remove:
    cursor.removeSelectedText();
    break;
  case Edit::Replace:
    cursor.insertText(texts()[static_cast<std::size_t>(edit.text)]);
    break;
  case Edit::Undo:
    if (depth == 0)
      document.undo();
    break;
  case Edit::Redo:
    if (depth == 0)
      document.redo();
    break;
  case Edit::Format: {
    QTextCharFormat format;
    format.setProperty(QTextFormat::UserProperty, edit.text);
    cursor.mergeCharFormat(format);
    break;
  }
  case Edit::BeginBlock:
    block.beginEditBlock();
    ++depth;
    break;
  case Edit::EndBlock:
    if (depth > 0) {
      block.endEditBlock();
      --depth;
    }
    break;
  default:
    (void)document.servedText();
    break;
  }
}

rc::Gen<Edit> anyEdit() {
  return rc::gen::build<Edit>(rc::gen::set(&Edit::kind, rc::gen::inRange<int>(Edit::Insert, Edit::Serve + 1)),
                              rc::gen::set(&Edit::place, rc::gen::inRange(0, 1000)),
                              rc::gen::set(&Edit::length, rc::gen::inRange(0, 40)),
                              rc::gen::set(&Edit::text, rc::gen::inRange(0, 9)));
}

// How many of the edits are followed by a look at the served text: all, or none but those that the edits ask for.
void checkRandomEdits(bool lookAfterEach) {
  const auto edits = *rc::gen::container<std::vector<Edit>>(anyEdit());
  const std::string start = *rc::gen::element<std::string>("", "a", "a\r\nb\rc\nd", "one\ntwo\nthree\nfour\nfive\n");
  QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("unit.pas")));
  RC_ASSERT(file.open(QIODevice::WriteOnly));
  file.write(start.data(), static_cast<qint64>(start.size()));
  file.close();
  const LoadResult loaded = load(file.fileName());
  RC_ASSERT(loaded.document != nullptr);
  SourceDocument& document = *loaded.document;
  (void)document.servedText();
  QTextCursor block(&document);
  int depth = 0;
  for (const Edit& edit : edits) {
    apply(edit, document, block, depth);
    if (lookAfterEach)
      RC_ASSERT(isExact(document));
  }
  while (depth-- > 0)
    block.endEditBlock();
  RC_ASSERT(isExact(document));
}

RC_GTEST_PROP(ServedCopyProperty, IsExactAfterEveryOneOfRandomEdits, ()) {
  checkRandomEdits(true);
}

RC_GTEST_PROP(ServedCopyProperty, IsExactAfterARunOfRandomEdits, ()) {
  checkRandomEdits(false);
}

} // namespace
} // namespace desktop
