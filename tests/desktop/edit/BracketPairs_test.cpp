// SPDX-License-Identifier: MIT
// Brackets that are typed as pairs, by keys into a control.
#include "EditFixture.h"

namespace desktop {
namespace {

class BracketPairs : public EditFixture {
protected:
  // Shows `text`, in which | is the caret and a pair of ~ a selection, whose end the caret is.
  void start(const char* marked) {
    QString text = QString::fromUtf8(marked);
    const qsizetype first = text.indexOf(u'~');
    text.remove(u'~');
    const qsizetype second = QString::fromUtf8(marked).remove(first, 1).indexOf(u'~');
    const qsizetype caret = text.indexOf(u'|');
    show(text.remove(u'|'));
    control.setTypesPairs(true);
    QTextCursor cursor = control.textCursor();
    if (first >= 0) {
      cursor.setPosition(static_cast<int>(first));
      cursor.setPosition(static_cast<int>(second), QTextCursor::KeepAnchor);
    } else {
      cursor.setPosition(static_cast<int>(caret));
    }
    control.setTextCursor(cursor);
  }
  // The text with the caret as |.
  std::string now() const {
    QString text = document.toPlainText();
    return text.insert(control.textCursor().position(), u'|').toStdString();
  }
  std::string after(const char* marked, const char* typed) {
    start(marked);
    type(QString::fromUtf8(typed));
    return now();
  }
};

TEST_F(BracketPairs, AreNotTypedUnlessAskedFor) {
  show(QString());
  type(QStringLiteral("("));
  EXPECT_EQ(now(), "(|");
}

TEST_F(BracketPairs, BringTheirPartner) {
  EXPECT_EQ(after("f|", "("), "f(|)");
  EXPECT_EQ(after("a|", "["), "a[|]");
  EXPECT_EQ(after("|", "{"), "{|}");
  EXPECT_EQ(after("s := |", "'"), "s := '|'");
}

TEST_F(BracketPairs, BringItBeforeBlanksClosingBracketsAndLineEndsOnly) {
  EXPECT_EQ(after("f| + 1", "("), "f(|) + 1");
  EXPECT_EQ(after("f|\tx", "("), "f(|)\tx");
  EXPECT_EQ(after("g(f|)", "("), "g(f(|))");
  EXPECT_EQ(after("a[f|]", "("), "a[f(|)]");
  EXPECT_EQ(after("f|\nx", "("), "f(|)\nx");
  EXPECT_EQ(after("f|x", "("), "f(|x");
  EXPECT_EQ(after("f|;", "("), "f(|;");
  EXPECT_EQ(after("f|(x)", "("), "f(|(x)");
  EXPECT_EQ(after("|'x'", "("), "(|'x'");
}

TEST_F(BracketPairs, StepOverWhatCameOfItself) {
  EXPECT_EQ(after("f|", "(x)"), "f(x)|");
  EXPECT_EQ(after("f|", "(a[1])"), "f(a[1])|");
  EXPECT_EQ(after("|", "'x'"), "'x'|");
  EXPECT_EQ(after("|", "{x}"), "{x}|");
  EXPECT_EQ(after("|", "((()))"), "((()))|");
}

TEST_F(BracketPairs, StepOverNothingElse) {
  EXPECT_EQ(after("f(x|)", ")"), "f(x)|)");
  EXPECT_EQ(after("f|", "(x))"), "f(x))|");
}

TEST_F(BracketPairs, AreForgottenWhenTheCaretLeavesThem) {
  start("f| ");
  type(QStringLiteral("("));
  press(Qt::Key_Home);
  press(Qt::Key_Right);
  press(Qt::Key_Right);
  ASSERT_EQ(now(), "f(|) ");
  type(QStringLiteral(")"));
  EXPECT_EQ(now(), "f()|) ");
}

TEST_F(BracketPairs, AreKeptWhileTheCaretMovesInThem) {
  start("f|");
  type(QStringLiteral("(xy"));
  press(Qt::Key_Left);
  press(Qt::Key_Right);
  type(QStringLiteral(")"));
  EXPECT_EQ(now(), "f(xy)|");
}

TEST_F(BracketPairs, AreNotTypedInCommentsAndStrings) {
  EXPECT_EQ(after("// |", "("), "// (|");
  EXPECT_EQ(after("{ |\n}", "["), "{ [|\n}");
  EXPECT_EQ(after("{ a\nb |\n}", "("), "{ a\nb (|\n}");
  EXPECT_EQ(after("s := 'a |", "("), "s := 'a (|");
  EXPECT_EQ(after("{$I |", "("), "{$I (|");
  EXPECT_EQ(after("(* |", "'"), "(* '|");
}

TEST_F(BracketPairs, AreTypedRightBeforeAndBehindThem) {
  EXPECT_EQ(after("f| // x", "("), "f(|) // x");
  EXPECT_EQ(after("'a'|", "["), "'a'[|]");
  EXPECT_EQ(after("{ a }|", "("), "{ a }(|)");
}

TEST_F(BracketPairs, AQuoteInAStringStaysASingleOne) {
  EXPECT_EQ(after("s := 'it|", "'"), "s := 'it'|");
  EXPECT_EQ(after("s := 'it'|", "'"), "s := 'it''|") << "it goes on with the string";
}

TEST_F(BracketPairs, ACommentWithStarsIsClosedByItsBracket) {
  EXPECT_EQ(after("|", "(* x *)"), "(* x *)|");
}

TEST_F(BracketPairs, BackspaceTakesAnEmptyPair) {
  for (const char* const pair : {"a(|)b", "a[|]b", "a{|}b", "a'|'b"}) {
    start(pair);
    press(Qt::Key_Backspace);
    EXPECT_EQ(now(), "a|b") << pair;
  }
}

TEST_F(BracketPairs, BackspaceTakesOneCharacterOfAnythingElse) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"a(|]", "a|]"}, {"a(x|)", "a(|)"}, {"// (|)", "// |)"}, {"'(|)'", "'|)'"}, {"''|''", "'|''"}, {"a|)", "|)"}};
  for (const auto& [before, after] : cases) {
    start(before);
    press(Qt::Key_Backspace);
    EXPECT_EQ(now(), after) << before;
  }
}

TEST_F(BracketPairs, AreUndoneInOneStepEach) {
  start("f|");
  type(QStringLiteral("x("));
  control.undo();
  EXPECT_EQ(text(), "fx");
  control.redo();
  EXPECT_EQ(text(), "fx()");
  start("f(|)");
  press(Qt::Key_Backspace);
  control.undo();
  EXPECT_EQ(text(), "f()");
}

TEST_F(BracketPairs, ClosingWhatWasUndoneTypesIt) {
  start("|");
  type(QStringLiteral("("));
  control.undo();
  type(QStringLiteral(")"));
  EXPECT_EQ(now(), ")|");
}

TEST_F(BracketPairs, GoRoundASelectionThatStaysSelected) {
  start("a ~b + c~ d");
  type(QStringLiteral("("));
  EXPECT_EQ(text(), "a (b + c) d");
  EXPECT_EQ(control.textCursor().selectedText(), QStringLiteral("b + c"));
  control.undo();
  EXPECT_EQ(text(), "a b + c d");
}

TEST_F(BracketPairs, GoRoundLinesButQuotesDoNot) {
  start("~a\nb~");
  type(QStringLiteral("{"));
  EXPECT_EQ(text(), "{a\nb}");
  start("~a\nb~");
  type(QStringLiteral("'"));
  EXPECT_EQ(text(), "'");
}

TEST_F(BracketPairs, ReplaceASelectionInACommentOrAString) {
  start("// ~word~");
  type(QStringLiteral("("));
  EXPECT_EQ(text(), "// (");
  start("'a ~b~ c'");
  type(QStringLiteral("["));
  EXPECT_EQ(text(), "'a [ c'");
}

TEST_F(BracketPairs, AreNotTypedWhileTypingOverwrites) {
  start("f|");
  control.setInsertMode(false);
  type(QStringLiteral("("));
  EXPECT_EQ(now(), "f(|");
}

TEST_F(BracketPairs, AreForPascalSourceOnly) {
  start("|");
  control.showDocument(&document, Colouring::None);
  type(QStringLiteral("("));
  EXPECT_EQ(now(), "(|");
}

TEST_F(BracketPairs, ChangeNothingInATextThatIsOnlyRead) {
  start("f(|)");
  control.setReadOnly(true);
  type(QStringLiteral("("));
  press(Qt::Key_Backspace);
  EXPECT_EQ(text(), "f()");
}

TEST_F(BracketPairs, AddInsSeeTheTypedCharactersAlone) {
  start("f|");
  MessageRecorder recorder(control);
  type(QStringLiteral("()"));
  std::vector<std::uintptr_t> characters;
  for (const auto& [code, parameter] : recorder.keys()) {
    if (code == platform::WM_CHAR)
      characters.push_back(parameter);
  }
  EXPECT_EQ(characters, (std::vector<std::uintptr_t>{'(', ')'}));
  EXPECT_EQ(now(), "f()|");
}

} // namespace
} // namespace desktop
