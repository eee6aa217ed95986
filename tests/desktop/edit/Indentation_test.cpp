// SPDX-License-Identifier: MIT
#include "desktop/edit/Indentation.h"

#include "desktop/edit/TextColumns.h"

#include "desktop/edit/EditFixture.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

constexpr IndentOptions byTwo{2, 8, TabInsertion::Blanks};
constexpr IndentOptions byTab{2, 8, TabInsertion::Character};

QTextCursor select(PlainDocument& document, int from, int to) {
  QTextCursor cursor(&document);
  cursor.setPosition(from);
  cursor.setPosition(to, QTextCursor::KeepAnchor);
  return cursor;
}

std::string textOf(const PlainDocument& document) {
  return document.toPlainText().toStdString();
}

TEST(Indentation, BreaksALineWithItsLeadingWhiteSpace) {
  struct Case {
    const char16_t* before;
    int at;
    const char* after;
  };
  const Case cases[] = {
      {u"  begin", 7, "  begin\n  "}, {u"\t  x", 4, "\t  x\n\t  "},
      {u"begin", 5, "begin\n"},       {u"    x", 2, "  \n    x"}, // no more than stands before the caret
      {u"  ab", 3, "  a\n  b"},       {u"", 0, "\n"},
  };
  for (const Case& c : cases) {
    PlainDocument document(QString::fromUtf16(c.before));
    QTextCursor cursor = select(document, c.at, c.at);
    breakLine(cursor);
    EXPECT_EQ(textOf(document), c.after);
    document.undo();
    EXPECT_EQ(document.toPlainText(), QString::fromUtf16(c.before)) << "one step undoes it";
  }
}

TEST(Indentation, ReplacesTheSelectionByALineBreak) {
  PlainDocument document(QStringLiteral("  ab\ncd"));
  QTextCursor cursor = select(document, 3, 6);
  breakLine(cursor);
  EXPECT_EQ(textOf(document), "  a\n  d");
}

TEST(Indentation, TakesOverNoMoreThanFiveHundredCharacters) {
  PlainDocument document(QString(500, u' ') + QStringLiteral("a"));
  QTextCursor cursor = select(document, 501, 501);
  breakLine(cursor);
  EXPECT_EQ(cursor.positionInBlock(), 500);
  cursor.insertText(QStringLiteral(" b"));
  breakLine(cursor);
  EXPECT_EQ(cursor.positionInBlock(), 500);
}

TEST(Indentation, TellsTheColumnBehindATabAndTakesTheOneBefore) {
  for (const IndentOptions& options : {byTwo, byTab}) {
    PlainDocument counted(QStringLiteral("\tabc"));
    PlainDocument told(QStringLiteral("\tabc"));
    QTextCursor first = select(counted, 2, 2);
    QTextCursor second = select(told, 2, 2);
    const int column = insertTab(first, options);
    EXPECT_EQ(column, columnOfUnit(first.block().text(), first.positionInBlock(), options.tabWidth));
    EXPECT_EQ(insertTab(second, options, options.tabWidth + 2), column);
    EXPECT_EQ(textOf(told), textOf(counted));
  }
}

TEST(Indentation, PutsBlanksUpToTheNextStop) {
  PlainDocument document(QStringLiteral("abc"));
  QTextCursor cursor = select(document, 1, 1);
  insertTab(cursor, byTwo);
  EXPECT_EQ(textOf(document), "a bc");
  insertTab(cursor, byTwo);
  EXPECT_EQ(textOf(document), "a   bc");
}

TEST(Indentation, CountsTabCharactersByTheirCells) {
  PlainDocument document(QStringLiteral("\tx"));
  QTextCursor cursor = select(document, 2, 2);
  insertTab(cursor, byTwo);
  EXPECT_EQ(textOf(document), "\tx ");
}

TEST(Indentation, PutsATabCharacterWhereThatIsWanted) {
  PlainDocument document(QStringLiteral("abc"));
  QTextCursor cursor = select(document, 1, 2);
  insertTab(cursor, byTab);
  EXPECT_EQ(textOf(document), "a\tc");
}

TEST(Indentation, MovesTheTouchedLinesAsOneStep) {
  PlainDocument document(QStringLiteral("a\n\n  b\nc"));
  indentLines(select(document, 0, 5), byTwo);
  EXPECT_EQ(textOf(document), "  a\n\n    b\nc");
  document.undo();
  EXPECT_EQ(textOf(document), "a\n\n  b\nc");
  document.redo();
  unindentLines(select(document, 0, 8), byTwo);
  EXPECT_EQ(textOf(document), "a\n\n  b\nc");
  document.undo();
  EXPECT_EQ(textOf(document), "  a\n\n    b\nc");
}

TEST(Indentation, LeavesALineThatTheSelectionOnlyReaches) {
  PlainDocument document(QStringLiteral("a\nb\nc"));
  indentLines(select(document, 0, 4), byTwo);
  EXPECT_EQ(textOf(document), "  a\n  b\nc");
}

TEST(Indentation, MovesALineOutAsFarAsThereIsWhiteSpace) {
  PlainDocument document(QStringLiteral(" a\nb"));
  unindentLines(select(document, 0, 4), byTwo);
  EXPECT_EQ(textOf(document), "a\nb");
}

TEST(Indentation, TakesPartOfATabAsBlanks) {
  PlainDocument document(QStringLiteral("\ta"));
  unindentLines(select(document, 0, 0), byTwo);
  EXPECT_EQ(textOf(document), "      a");
}

TEST(Indentation, MovesByTabCharacters) {
  PlainDocument document(QStringLiteral("a\n\tb"));
  indentLines(select(document, 0, 4), byTab);
  EXPECT_EQ(textOf(document), "\ta\n\t\tb");
  unindentLines(select(document, 0, 6), byTab);
  EXPECT_EQ(textOf(document), "a\n\tb");
}

TEST(Indentation, GoesBackToTheIndentationOfALineAbove) {
  struct Case {
    const char16_t* before;
    int at; // in the last line
    const char* after;
    int caret;
  };
  const Case cases[] = {
      {u"a\n  b\n    c", 4, "a\n  b\n  c", 2},
      {u"a\n  b\n  c", 2, "a\n  b\nc", 0},                         // the nearest one is not further left
      {u"a\n  b\n      \n\n    c", 4, "a\n  b\n      \n\n  c", 2}, // blank lines say nothing
      {u"  a\n      c", 4, "  a\n    c", 2},                       // only what stands before the caret goes
      {u"  a\n     ", 5, "  a\n  ", 2},
      {u"  a\n\tc", 1, "  a\n  c", 2}, // part of a tab becomes blanks
      {u"\ta\n\t\tc", 2, "\ta\n\tc", 1},
  };
  for (const Case& c : cases) {
    PlainDocument document(QString::fromUtf16(c.before));
    QTextCursor cursor(document.lastBlock());
    cursor.setPosition(cursor.position() + c.at);
    EXPECT_TRUE(unindentToLineAbove(cursor, byTwo)) << c.after;
    EXPECT_EQ(textOf(document), c.after);
    EXPECT_EQ(cursor.positionInBlock(), c.caret) << c.after;
    document.undo();
    EXPECT_EQ(document.toPlainText(), QString::fromUtf16(c.before)) << "one step undoes it";
  }
}

TEST(Indentation, GoesBackNowhereWithoutALineToGoBackTo) {
  struct Case {
    const char16_t* text;
    int from;
    int to;
  };
  const Case cases[] = {
      {u"    a", 4, 4},            // no line above
      {u"      a\n    b", 12, 12}, // only one that begins further right
      {u"a\n    b", 2, 2},         // the caret is at the start of its line
      {u"a\n  b", 5, 5},           // or behind text
      {u"a\n    b", 4, 6},         // or there is a selection
  };
  for (const Case& c : cases) {
    PlainDocument document(QString::fromUtf16(c.text));
    QTextCursor cursor = select(document, c.from, c.to);
    EXPECT_FALSE(unindentToLineAbove(cursor, byTwo)) << textOf(document);
    EXPECT_EQ(document.toPlainText(), QString::fromUtf16(c.text));
    EXPECT_FALSE(document.isUndoAvailable());
  }
}

TEST(Indentation, KeepsTheSameTextSelected) {
  PlainDocument document(QStringLiteral("aa\nbb\ncc"));
  const QTextCursor selection = select(document, 0, 5);
  indentLines(selection, byTwo);
  EXPECT_EQ(selection.selectedText(), QStringLiteral("aa") + QChar(QChar::ParagraphSeparator) + QStringLiteral("  bb"));
}

} // namespace
} // namespace desktop
