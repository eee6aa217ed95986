// SPDX-License-Identifier: MIT
#include "desktop/edit/PascalHighlighter.h"

#include "desktop/edit/EditFixture.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QTextLayout>

namespace desktop {
namespace {

constexpr QRgb colorOf(SyntaxAttribute attribute) {
  return qRgb(static_cast<int>(attribute) + 1, 0, 0);
}

class PascalHighlighterTest : public testing::Test {
protected:
  // Every attribute its own colour, shown by `letters` below.
  PascalHighlighter& highlighter() {
    PascalHighlighter& result = PascalHighlighter::of(document);
    SyntaxFormats formats;
    for (int i = 0; i < syntaxAttributeCount; ++i)
      formats[static_cast<std::size_t>(i)].setForeground(QColor(colorOf(static_cast<SyntaxAttribute>(i))));
    result.setFormats(formats);
    return result;
  }

  void prepareAll() { highlighter().prepare(document.begin(), document.lastBlock()); }

  // The attributes that the layout of line `number` (from 0) shows, one letter a unit.
  std::string letters(int number) {
    const QTextBlock block = document.findBlockByNumber(number);
    std::string result(static_cast<std::size_t>(block.length() - 1), ' ');
    for (const QTextLayout::FormatRange& range : block.layout()->formats())
      for (int unit = range.start; unit < range.start + range.length; ++unit)
        result[static_cast<std::size_t>(unit)] =
            " cris#ndx"[static_cast<std::size_t>(qRed(range.format.foreground().color().rgb()) - 1)];
    return result;
  }

  void insert(int line, int unit, const QString& text) {
    QTextCursor cursor(document.findBlockByNumber(line));
    cursor.setPosition(cursor.position() + unit);
    cursor.insertText(text);
  }
  void remove(int line, int unit, int count) {
    QTextCursor cursor(document.findBlockByNumber(line));
    cursor.setPosition(cursor.position() + unit);
    cursor.setPosition(cursor.position() + count, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
  }

  PlainDocument document;
};

TEST_F(PascalHighlighterTest, BelongsToItsDocument) {
  PascalHighlighter& first = PascalHighlighter::of(document);
  EXPECT_EQ(&PascalHighlighter::of(document), &first);
  EXPECT_EQ(first.parent(), &document);
}

TEST_F(PascalHighlighterTest, CarriesACommentFromLineToLine) {
  document.setPlainText(QStringLiteral("x {\nend\n} end"));
  prepareAll();
  EXPECT_EQ(letters(0), "i c");
  EXPECT_EQ(letters(1), "ccc");
  EXPECT_EQ(letters(2), "c rrr");
}

TEST_F(PascalHighlighterTest, RecoloursWhatFollowsAnOpenedAndAClosedComment) {
  document.setPlainText(QStringLiteral("x\nend\n{c}\nend"));
  prepareAll();
  insert(0, 1, QStringLiteral("{"));
  prepareAll();
  EXPECT_EQ(letters(0), "ic");
  EXPECT_EQ(letters(1), "ccc");
  EXPECT_EQ(letters(2), "ccc") << "the comment ends here";
  EXPECT_EQ(letters(3), "rrr");
  remove(0, 1, 1);
  prepareAll();
  EXPECT_EQ(letters(1), "rrr");
}

TEST_F(PascalHighlighterTest, FollowsUndoAndRedo) {
  document.setPlainText(QStringLiteral("x\nend"));
  prepareAll();
  insert(0, 0, QStringLiteral("(*"));
  document.undo();
  prepareAll();
  EXPECT_EQ(letters(1), "rrr");
  document.redo();
  prepareAll();
  EXPECT_EQ(letters(1), "ccc");
}

TEST_F(PascalHighlighterTest, ColoursOnlyTheLinesAskedFor) {
  document.setPlainText(QStringLiteral("end\nend\nend"));
  highlighter().prepare(document.findBlockByNumber(1), document.findBlockByNumber(1));
  EXPECT_EQ(letters(0), "   ");
  EXPECT_EQ(letters(1), "rrr");
  EXPECT_EQ(letters(2), "   ");
}

TEST_F(PascalHighlighterTest, KnowsTheStateOfALineFarBelowAChange) {
  document.setPlainText(QStringLiteral("x\n") + QStringLiteral("end\n").repeated(500));
  prepareAll();
  insert(0, 1, QStringLiteral("{"));
  highlighter().prepare(document.begin(), document.begin()); // the rest is left for later
  highlighter().prepare(document.findBlockByNumber(400), document.findBlockByNumber(400));
  EXPECT_EQ(letters(400), "ccc");
}

// Whatever is done to the text, what is prepared afterwards equals what a new document with that text shows.
TEST_F(PascalHighlighterTest, EqualsAFreshScanAfterAnyChanges) {
  const QStringList pieces = {QStringLiteral("{"),    QStringLiteral("}"),      QStringLiteral("(*"),
                              QStringLiteral("*)"),   QStringLiteral("\n"),     QStringLiteral("end\nx {\nbegin"),
                              QStringLiteral("end "), QStringLiteral("'it'\n"), QStringLiteral("//")};
  document.setPlainText(QStringLiteral("begin x end\n").repeated(20));
  QRandomGenerator random(7);
  for (int round = 0; round < 600; ++round) {
    const int at = random.bounded(document.characterCount());
    QTextCursor cursor(&document);
    cursor.setPosition(at);
    switch (random.bounded(4)) {
    case 0:
      cursor.setPosition(std::min(at + random.bounded(40), document.characterCount() - 1), QTextCursor::KeepAnchor);
      cursor.removeSelectedText();
      break;
    case 1:
      document.undo();
      break;
    default:
      cursor.insertText(pieces[random.bounded(static_cast<int>(pieces.size()))]);
    }
    const int first = random.bounded(document.blockCount());
    const int last = std::min(first + random.bounded(8), document.blockCount() - 1);
    highlighter().prepare(document.findBlockByNumber(first), document.findBlockByNumber(last));

    LineScanner scanner;
    quorvane::TCommentState state = quorvane::csNo;
    for (int number = 0; number <= last; ++number) {
      const QString line = document.findBlockByNumber(number).text();
      std::vector<ColourRun> runs;
      state = scanner.scan(line, state, &runs);
      if (number < first)
        continue;
      std::string expected(static_cast<std::size_t>(line.size()), ' ');
      for (const ColourRun& run : runs)
        std::fill_n(expected.begin() + run.start, run.length, " cris#ndx"[static_cast<std::size_t>(run.attribute)]);
      ASSERT_EQ(letters(number), expected) << "round " << round << ", line " << number;
    }
  }
}

TEST_F(PascalHighlighterTest, TakesNewFormats) {
  document.setPlainText(QStringLiteral("end"));
  prepareAll();
  PascalHighlighter::of(document).setFormats({});
  PascalHighlighter::of(document).prepare(document.begin(), document.begin());
  EXPECT_TRUE(document.begin().layout()->formats().isEmpty());
}

TEST_F(PascalHighlighterTest, LeavesTextUndoAndModifiedStateAlone) {
  document.setPlainText(QStringLiteral("begin { x }"));
  document.setModified(false);
  const int revision = document.revision();
  int changes = 0;
  QObject::connect(&document, &QTextDocument::contentsChange, &document, [&changes] { ++changes; });
  prepareAll();
  EXPECT_EQ(document.revision(), revision);
  EXPECT_FALSE(document.isModified());
  EXPECT_FALSE(document.isUndoAvailable());
  EXPECT_EQ(changes, 0);
}

TEST_F(PascalHighlighterTest, FinishesALongScanWhileIdleAndTellsWhenItHasArrived) {
  document.setPlainText(QStringLiteral("{ open\n") +
                        QStringLiteral("  x := y + 1; (a) [b] 'c' // end\n").repeated(400000));
  bool told = false;
  QObject::connect(&highlighter(), &PascalHighlighter::coloursChanged, &document, [&told] { told = true; });
  const QTextBlock last = document.lastBlock().previous();
  highlighter().prepare(last, last);
  ASSERT_FALSE(told) << "no scan of this length is done at once";
  ASSERT_TRUE(support::waitUntil([&told] { return told; }, 300));
  highlighter().prepare(last, last);
  EXPECT_EQ(letters(last.blockNumber()), std::string(static_cast<std::size_t>(last.length() - 1), 'c'));
}

TEST_F(PascalHighlighterTest, ScansNoMoreAfterAChangeThanWhatIsAskedFor) {
  document.setPlainText(QStringLiteral("x := 1;\n").repeated(300000));
  ASSERT_EQ(highlighter().attributeAt(document.begin(), 0), SyntaxAttribute::Identifier);
  insert(0, 0, QStringLiteral("{"));
  bool told = false;
  QObject::connect(&highlighter(), &PascalHighlighter::coloursChanged, &document, [&told] { told = true; });
  highlighter().prepare(document.begin(), document.findBlockByNumber(50));
  EXPECT_EQ(letters(50), "ccccccc");
  support::settle();
  EXPECT_FALSE(told) << "fifty lines need no idle scan";
}

TEST_F(PascalHighlighterTest, ColoursALongLineOnlyAtItsStart) {
  document.setPlainText(QStringLiteral("end ").repeated(20000));
  prepareAll();
  const std::string shown = letters(0);
  EXPECT_EQ(shown.substr(0, 8), "rrr rrr ");
  EXPECT_EQ(shown.substr(40000, 8), "        ");
  EXPECT_EQ(highlighter().attributeAt(document.begin(), 40000), SyntaxAttribute::ReservedWord);
}

} // namespace
} // namespace desktop
