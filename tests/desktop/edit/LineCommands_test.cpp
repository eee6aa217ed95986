// SPDX-License-Identifier: MIT
#include "desktop/edit/LineCommands.h"

#include "desktop/edit/EditFixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace desktop {
namespace {

using Command = std::function<void(QTextCursor&)>;

// A text in which "[" stands for the anchor of the selection and "|" for the caret; without "[" both are one.
struct Marked {
  QString text;
  int anchor;
  int caret;

  explicit Marked(const std::string& marked) : text(QString::fromStdString(marked)) {
    anchor = static_cast<int>(text.indexOf(u'['));
    caret = static_cast<int>(text.indexOf(u'|'));
    if (anchor >= 0 && anchor < caret)
      --caret;
    else if (anchor >= 0)
      --anchor;
    else
      anchor = caret;
    text.remove(u'[').remove(u'|');
  }
};

std::string marked(const QTextCursor& cursor) {
  QString text = cursor.document()->toPlainText();
  const bool caretIsLast = cursor.position() >= cursor.anchor();
  text.insert(caretIsLast ? cursor.position() : cursor.anchor(), caretIsLast ? u'|' : u'[');
  if (cursor.hasSelection())
    text.insert(caretIsLast ? cursor.anchor() : cursor.position(), caretIsLast ? u'[' : u'|');
  return text.toStdString();
}

// What `command` makes of a marked text; one undo must bring the text back.
std::string after(const std::string& before, const Command& command) {
  const Marked start(before);
  PlainDocument document(start.text);
  QTextCursor cursor(&document);
  cursor.setPosition(start.anchor);
  cursor.setPosition(start.caret, QTextCursor::KeepAnchor);
  command(cursor);
  const std::string result = marked(cursor);
  document.undo();
  EXPECT_EQ(document.toPlainText(), start.text) << "one step undoes it";
  return result;
}

void comment(QTextCursor& cursor) {
  commentLines(cursor, 8);
}

TEST(LineCommands, CommentsLinesAtTheColumnOfTheOutermost) {
  EXPECT_EQ(after("[  if x\n    y;\n\n  z|", comment), "[  // if x\n  //   y;\n\n  // z|");
  EXPECT_EQ(after("        [a\n\tb|", comment), "        // [a\n\t// b|");
}

TEST(LineCommands, CommentsTheCaretsLine) {
  EXPECT_EQ(after("a\n  b|c\nd", comment), "a\n  // b|c\nd");
}

TEST(LineCommands, ALineOnlyReachedByTheSelectionIsNotTouched) {
  EXPECT_EQ(after("[a\n|b", comment), "// [a\n|b");
  EXPECT_EQ(after("[a\n|b", duplicateLines), "a\n[a\n|b");
  EXPECT_EQ(after("x\n[a\n|b", moveLinesUp), "[a\n|x\nb");
}

TEST(LineCommands, UncommentsLinesThatBeginWithAComment) {
  EXPECT_EQ(after("[// a\n  //b\n//  c\nd // e|", uncommentLines), "[a\n  b\n c\nd // e|");
}

TEST(LineCommands, UncommentingUndoesCommenting) {
  const std::string text = "x\n[  if a\n    b;\n\n\tc|";
  EXPECT_EQ(after(text,
                  [](QTextCursor& cursor) {
                    cursor.beginEditBlock();
                    commentLines(cursor, 8);
                    uncommentLines(cursor);
                    cursor.endEditBlock();
                  }),
            text);
}

TEST(LineCommands, DuplicatesBelowAndGoesIntoTheCopy) {
  EXPECT_EQ(after("a\nb|c\nd", duplicateLines), "a\nbc\nb|c\nd");
  EXPECT_EQ(after("a[b\nc|d\ne", duplicateLines), "ab\ncd\na[b\nc|d\ne");
  EXPECT_EQ(after("c|d[e\nf", duplicateLines), "cde\nc|d[e\nf");
}

TEST(LineCommands, DuplicatesTheLastLine) {
  EXPECT_EQ(after("a\nb|c", duplicateLines), "a\nbc\nb|c");
  EXPECT_EQ(after("a\n|", duplicateLines), "a\n\n|");
}

TEST(LineCommands, MovesLinesWithTheirSelection) {
  EXPECT_EQ(after("a\nb|c\nd", moveLinesUp), "b|c\na\nd");
  EXPECT_EQ(after("a\n\nb|\nc[d\ne", moveLinesUp), "a\nb|\nc[d\n\ne");
  EXPECT_EQ(after("a\nb|c\nd\ne", moveLinesDown), "a\nd\nb|c\ne");
  EXPECT_EQ(after("[a\nb|c\nd\ne", moveLinesDown), "d\n[a\nb|c\ne");
}

TEST(LineCommands, MovesToAndFromTheEndOfATextWithoutALastLineEnd) {
  EXPECT_EQ(after("a|\nb", moveLinesDown), "b\na|");
  EXPECT_EQ(after("a\nb|", moveLinesUp), "b|\na");
  EXPECT_EQ(after("[a\n|b", moveLinesDown), "b\n[a|");
}

TEST(LineCommands, LinesDoNotMoveBeyondTheText) {
  PlainDocument document(QStringLiteral("a\nb\n"));
  QTextCursor cursor(&document);
  moveLinesUp(cursor);
  cursor.setPosition(2);
  moveLinesDown(cursor); // would put an empty line in front of it
  cursor.setPosition(4);
  moveLinesUp(cursor);
  moveLinesDown(cursor);
  EXPECT_FALSE(document.isUndoAvailable());
}

class LineCommandsOfTheControl : public EditFixture {};

TEST_F(LineCommandsOfTheControl, LeaveAReadOnlyTextAlone) {
  show(QStringLiteral("a\n// b\nc"));
  control.setCaret(2, 1);
  control.setReadOnly(true);
  control.indentBlock();
  control.unindentBlock();
  control.commentBlock();
  control.uncommentBlock();
  control.duplicateBlock();
  control.moveBlockUp();
  control.moveBlockDown();
  EXPECT_EQ(text(), "a\n// b\nc");
}

TEST_F(LineCommandsOfTheControl, ShowTheCaretAgain) {
  show(QStringLiteral("x\n").repeated(200));
  control.setCaret(1, 1);
  control.setTopLine(150);
  control.duplicateBlock();
  EXPECT_EQ(control.caretRow(), 2);
  EXPECT_LE(control.topLine(), 2);
}

} // namespace
} // namespace desktop
