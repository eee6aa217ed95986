// SPDX-License-Identifier: MIT
// Editing by keys, documents that come and go, colours and states.
#include "desktop/edit/EditFixture.h"

#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

namespace desktop {
namespace {

class EditControlTyping : public EditFixture {
protected:
  void enter() { press(Qt::Key_Return, QStringLiteral("\r")); }
  void select(int from, int to) {
    QTextCursor cursor(&document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    control.setTextCursor(cursor);
  }
};

TEST_F(EditControlTyping, UndoesARunOfTypingInOneStep) {
  show(QStringLiteral("x"));
  type(QStringLiteral("abc"));
  EXPECT_EQ(text(), "abcx");
  control.undo();
  EXPECT_EQ(text(), "x");
}

TEST_F(EditControlTyping, ReplacesTheSelection) {
  show(QStringLiteral("one two"));
  select(0, 3);
  type(QStringLiteral("a"));
  EXPECT_EQ(text(), "a two");
}

TEST_F(EditControlTyping, IndentsANewLineAsTheOneBefore) {
  show(QStringLiteral("  begin"));
  press(Qt::Key_End);
  enter();
  type(QStringLiteral("x"));
  EXPECT_EQ(text(), "  begin\n  x");
}

TEST_F(EditControlTyping, BreaksTheLineProperlyWithShiftEnterToo) {
  show(QStringLiteral("ab"));
  press(Qt::Key_Right);
  press(Qt::Key_Return, QStringLiteral("\r"), Qt::ShiftModifier);
  EXPECT_EQ(document.blockCount(), 2);
}

TEST_F(EditControlTyping, PutsATabOfBlanks) {
  show(QStringLiteral("x"));
  press(Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_EQ(text(), "  x");
}

TEST_F(EditControlTyping, IndentsAndUnindentsASelectedBlockInOneStepEach) {
  const std::string before = "a\n  b\nc";
  show(QString::fromStdString(before));
  select(0, 5);
  press(Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_EQ(text(), "  a\n    b\nc");
  press(Qt::Key_Backtab, {}, Qt::ShiftModifier);
  EXPECT_EQ(text(), before);
  control.undo();
  EXPECT_EQ(text(), "  a\n    b\nc");
  control.undo();
  EXPECT_EQ(text(), before);
}

TEST_F(EditControlTyping, ReplacesASelectionWithinALineByATab) {
  show(QStringLiteral("abcd"));
  select(1, 3);
  press(Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_EQ(text(), "a d");
}

TEST_F(EditControlTyping, UnindentsTheCaretsLineWithoutASelection) {
  show(QStringLiteral("    x"));
  press(Qt::Key_End);
  press(Qt::Key_Backtab, {}, Qt::ShiftModifier);
  EXPECT_EQ(text(), "  x");
}

TEST_F(EditControlTyping, OverwritesWithinALineOnly) {
  show(QStringLiteral("ab\nc"));
  press(Qt::Key_Insert);
  EXPECT_FALSE(control.insertMode());
  type(QStringLiteral("xy"));
  EXPECT_EQ(text(), "xy\nc");
  control.undo();
  EXPECT_EQ(text(), "xb\nc") << "each overwritten character is a step";
  control.undo();
  EXPECT_EQ(text(), "ab\nc");
  press(Qt::Key_End);
  type(QStringLiteral("z"));
  EXPECT_EQ(text(), "abz\nc") << "the line end is never overwritten";
}

TEST_F(EditControlTyping, TellsOfTheInsertMode) {
  show({});
  std::vector<bool> told;
  QObject::connect(&control, &TEditControl::insertModeChanged, &control, [&told](bool on) { told.push_back(on); });
  press(Qt::Key_Insert);
  press(Qt::Key_Insert);
  control.setInsertMode(true);
  EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST_F(EditControlTyping, GoesBackToTheIndentationAboveWithBackspace) {
  const std::string before = "begin\n  if\n      x";
  show(QString::fromStdString(before));
  control.setCaret(3, 7);
  press(Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(text(), "begin\n  if\n  x");
  EXPECT_EQ(control.caretColumn(), 3);
  press(Qt::Key_Backspace, QStringLiteral("\b"), Qt::ShiftModifier);
  EXPECT_EQ(text(), "begin\n  if\nx");
  press(Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(text(), "begin\n  ifx") << "at the start of a line the lines are joined";
  control.undo();
  control.undo();
  control.undo();
  EXPECT_EQ(text(), before);
}

TEST_F(EditControlTyping, DeletesOneCharacterWithBackspaceWithoutALineAbove) {
  show(QStringLiteral("    x"));
  control.setCaret(1, 5);
  press(Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(text(), "   x");
}

TEST_F(EditControlTyping, DeletesACharacterOfTwoUnitsAsOne) {
  show(QStringLiteral("a\U0001F600"));
  press(Qt::Key_End);
  press(Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(text(), "a");
}

TEST_F(EditControlTyping, ScrollsToWhatIsTyped) {
  show(QStringLiteral("x\n").repeated(300));
  control.setTopLine(200);
  type(QStringLiteral("a"));
  EXPECT_EQ(control.topLine(), 1);
}

TEST_F(EditControlTyping, LeavesAReadOnlyTextAloneButMovesInIt) {
  show(QStringLiteral("  one\n  two"));
  control.setReadOnly(true);
  type(QStringLiteral("a"));
  enter();
  press(Qt::Key_Tab, QStringLiteral("\t"));
  press(Qt::Key_Backtab, {}, Qt::ShiftModifier);
  press(Qt::Key_Delete);
  control.setCaret(2, 3);
  press(Qt::Key_Backspace, QStringLiteral("\b"));
  control.setCaret(1, 1);
  EXPECT_EQ(text(), "  one\n  two");
  press(Qt::Key_Down);
  EXPECT_EQ(control.caretRow(), 2);
  control.setReadOnly(false);
  type(QStringLiteral("a"));
  EXPECT_EQ(text(), "  one\na  two");
}

TEST_F(EditControlTyping, CopiesNoBreakSpacesAsTheyAre) {
  show(QStringLiteral("a\u00A0b\nc"));
  control.selectAll();
  control.copy();
  EXPECT_EQ(QApplication::clipboard()->mimeData()->text(), QStringLiteral("a\u00A0b\nc"));
}

TEST_F(EditControlTyping, TellsWhereTheCaretGoes) {
  show(QStringLiteral("\tab"));
  std::pair<int, int> told;
  QObject::connect(&control, &TEditControl::caretMoved, &control, [&told](int row, int column) {
    told = {row, column};
  });
  press(Qt::Key_Right);
  EXPECT_EQ(told, std::pair(1, 9));
  type(QStringLiteral("x"));
  EXPECT_EQ(told, std::pair(1, 10));
}

TEST_F(EditControlTyping, KeepsCaretSelectionAndScrollOfAPage) {
  show((QStringLiteral("x").repeated(300) + u'\n').repeated(300));
  select(1000, 900);
  control.setTopLine(120);
  control.setLeftColumn(50);
  const EditState state = control.state();
  PlainDocument other(QStringLiteral("other"));
  control.showDocument(&other);
  EXPECT_EQ(control.topLine(), 1);
  EXPECT_EQ(control.caretRow(), 1);
  control.showDocument(&document);
  control.restoreState(state);
  EXPECT_EQ(control.textCursor().anchor(), 1000);
  EXPECT_EQ(control.textCursor().position(), 900);
  EXPECT_EQ(control.topLine(), 120);
  EXPECT_EQ(control.leftColumn(), 50);
  control.showDocument(nullptr);
}

TEST_F(EditControlTyping, ClipsAStateToTheText) {
  show(QStringLiteral("abc"));
  control.restoreState({999, -4, 999, 999});
  EXPECT_EQ(control.textCursor().position(), 3);
  EXPECT_EQ(control.textCursor().anchor(), 0);
  EXPECT_EQ(control.topLine(), 1);
  EXPECT_EQ(control.leftColumn(), 1);
}

TEST_F(EditControlTyping, LeavesADocumentUsableWithoutTheControl) {
  PlainDocument lasting(QStringLiteral("one\ntwo"));
  {
    TEditControl first;
    first.showDocument(&lasting);
    first.showDocument(nullptr);
  }
  { // and one that is shown until the end
    TEditControl second;
    second.showDocument(&lasting);
  }
  QTextCursor(&lasting).insertText(QStringLiteral("x"));
  EXPECT_EQ(lasting.documentLayout()->documentSize().height() > 0, true);
  control.showDocument(&lasting);
  control.show();
  support::settle();
  control.showDocument(nullptr);
  EXPECT_EQ(lasting.toPlainText(), QStringLiteral("xone\ntwo"));
}

TEST_F(EditControlTyping, ColoursPascalAndLeavesPlainDocumentsAlone) {
  show(QStringLiteral("end"));
  ASSERT_EQ(document.firstBlock().layout()->formats().size(), 1);
  EXPECT_EQ(document.firstBlock().layout()->formats()[0].format.foreground().color(),
            lightScheme().style(SyntaxAttribute::ReservedWord).color);
  PlainDocument plain(QStringLiteral("end"));
  control.showDocument(&plain, Colouring::None);
  support::settle();
  EXPECT_TRUE(plain.firstBlock().layout()->formats().isEmpty());
  EXPECT_EQ(control.property("CursorAttribute").toInt(), 0);
  control.showDocument(nullptr);
}

TEST_F(EditControlTyping, RecoloursWithTheScheme) {
  show(QStringLiteral("end"));
  control.setColorScheme(darkScheme());
  support::settle();
  EXPECT_EQ(document.firstBlock().layout()->formats()[0].format.foreground().color(),
            darkScheme().style(SyntaxAttribute::ReservedWord).color);
  EXPECT_EQ(control.Color(), platform::ToTColor(darkScheme().ground));
}

TEST_F(EditControlTyping, ColoursWhatIsTypedAtOnce) {
  show(QStringLiteral("x\nend"));
  type(QStringLiteral("{"));
  support::settle();
  const QTextBlock second = document.findBlockByNumber(1);
  ASSERT_EQ(second.layout()->formats().size(), 1);
  EXPECT_EQ(second.layout()->formats()[0].format.foreground().color(),
            lightScheme().style(SyntaxAttribute::Comment).color);
}

TEST_F(EditControlTyping, PublishesTheAttributeAtTheCaret) {
  show(QStringLiteral("{ c }\n'str'\nend\n{\nx"));
  const auto attributeAt = [this](int row, int column) {
    control.setCaret(row, column);
    return control.property("CursorAttribute").toInt();
  };
  EXPECT_EQ(attributeAt(1, 3), 1);
  EXPECT_EQ(attributeAt(2, 2), 5);
  EXPECT_EQ(attributeAt(3, 1), 2);
  EXPECT_EQ(attributeAt(3, 4), 0);
  EXPECT_EQ(attributeAt(5, 2), 1) << "the end of a line within a comment";
}

TEST_F(EditControlTyping, OpensALineOfAMillionCharacters) {
  show({});
  PlainDocument lasting(QStringLiteral("begin x; ").repeated(111112));
  control.showDocument(&lasting, Colouring::None);
  support::settle();
  control.moveCursor(QTextCursor::End);
  EXPECT_EQ(control.caretColumn(), 9 * 111112 + 1);
  support::settle();
  const int x = control.cursorRect().x();
  EXPECT_EQ(x % control.cellSize().width(), 0);
  EXPECT_LT(x, control.viewport()->width());
  type(QStringLiteral("a"));
  EXPECT_EQ(lasting.characterCount(), 9 * 111112 + 2);
  control.showDocument(nullptr);
}

TEST_F(EditControlTyping, MovesThroughAMillionLines) {
  show({});
  PlainDocument lasting(QStringLiteral("  x := y; { c }\n").repeated(1000000));
  control.showDocument(&lasting);
  support::settle();
  control.moveCursor(QTextCursor::End);
  support::settle();
  EXPECT_EQ(control.caretRow(), 1000001);
  EXPECT_GT(control.topLine(), 999900);
  type(QStringLiteral("{"));
  control.moveCursor(QTextCursor::Start);
  type(QStringLiteral("{"));
  support::settle();
  EXPECT_EQ(control.topLine(), 1);
  control.showDocument(nullptr);
}

} // namespace
} // namespace desktop
