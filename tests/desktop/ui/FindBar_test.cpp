// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextDocumentLayout>
#include <QProgressDialog>
#include <QTextBlock>
#include <QToolButton>
#include <QWindow>

namespace desktop {
namespace {

class FindBarTest : public UiFixture {
protected:
  FindBarTest() {
    openText(QStringLiteral("a.pas"), "one Two\none two\nthree\n");
    activate(window());
  }

  FindBar& bar() { return *window()->findBar(); }
  QLineEdit& line() { return *bar().findChild<QLineEdit*>(QStringLiteral("FindText")); }

  void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(widget, &down);
    QCoreApplication::sendEvent(widget, &up);
  }
  void typeText(const QString& text) {
    for (const QChar character : text)
      press(&line(), 0, Qt::NoModifier, character);
  }
  std::pair<int, int> selection() const {
    return {editor()->textCursor().selectionStart(), editor()->textCursor().selectionEnd()};
  }
};

TEST_F(FindBarTest, OpensWithTheFocusAndIsClosedByEscapeWhichGivesItBack) {
  EXPECT_FALSE(bar().isVisible());
  bar().open();
  EXPECT_TRUE(bar().isVisible());
  EXPECT_TRUE(line().hasFocus());
  press(&line(), Qt::Key_Escape);
  EXPECT_FALSE(bar().isVisible());
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(FindBarTest, FindsWhileTheTextIsTyped) {
  bar().open();
  typeText(QStringLiteral("tw"));
  EXPECT_EQ(selection(), std::pair(4, 6));
  typeText(QStringLiteral("o"));
  EXPECT_EQ(selection(), std::pair(4, 7));
}

TEST_F(FindBarTest, ALineThatIsPastedWithItsLineEndIsFound) {
  bar().open();
  QApplication::clipboard()->setText(QStringLiteral("three\n"));
  line().paste();
  EXPECT_EQ(selection(), std::pair(16, 21));
  EXPECT_EQ(bar().text(), QStringLiteral("three"));
}

TEST_F(FindBarTest, AShorterTextIsSoughtFromWhereTheSearchBegan) {
  bar().open();
  typeText(QStringLiteral("th"));
  ASSERT_EQ(selection(), std::pair(16, 18));
  press(&line(), Qt::Key_Backspace);
  EXPECT_EQ(selection(), std::pair(4, 5));
}

TEST_F(FindBarTest, EnterGoesOnAndShiftEnterGoesBack) {
  bar().open();
  typeText(QStringLiteral("one"));
  ASSERT_EQ(selection(), std::pair(0, 3));
  press(&line(), Qt::Key_Return);
  EXPECT_EQ(selection(), std::pair(8, 11));
  press(&line(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(selection(), std::pair(0, 3));
}

TEST_F(FindBarTest, EnterOnAButtonDoesWhatTheButtonSays) {
  bar().open();
  typeText(QStringLiteral("t"));
  ASSERT_EQ(selection(), std::pair(4, 5));
  auto* const previous = bar().findChild<QToolButton*>(QStringLiteral("FindPreviousButton"));
  previous->setFocus();
  ASSERT_TRUE(previous->hasFocus());
  press(previous, Qt::Key_Return);
  EXPECT_EQ(selection(), std::pair(16, 17));
}

TEST_F(FindBarTest, WrapsAtBothEndsAndSaysSo) {
  bar().open();
  typeText(QStringLiteral("one"));
  bar().findPrevious();
  EXPECT_EQ(selection(), std::pair(8, 11));
  EXPECT_EQ(bar().message(), QStringLiteral("Reached the top, went on from the end"));
  bar().findNext();
  EXPECT_EQ(selection(), std::pair(0, 3));
  EXPECT_EQ(bar().message(), QStringLiteral("Reached the end, went on from the top"));
  bar().findNext();
  EXPECT_EQ(bar().message(), QString());
}

TEST_F(FindBarTest, IgnoresCaseUnlessItIsToMatch) {
  bar().open();
  typeText(QStringLiteral("two"));
  EXPECT_EQ(selection(), std::pair(4, 7));
  bar().findChild<QCheckBox*>(QStringLiteral("MatchCase"))->setChecked(true);
  EXPECT_EQ(selection(), std::pair(12, 15));
}

TEST_F(FindBarTest, ATextThatIsNotThereIsToldInWordsAndColour) {
  bar().open();
  const QColor usual = line().palette().color(QPalette::Base);
  typeText(QStringLiteral("xyz"));
  EXPECT_EQ(bar().message(), QStringLiteral("Not found"));
  EXPECT_NE(line().palette().color(QPalette::Base), usual);
  line().selectAll();
  press(&line(), Qt::Key_Delete);
  EXPECT_EQ(bar().message(), QString());
  EXPECT_EQ(line().palette().color(QPalette::Base), usual);
}

TEST_F(FindBarTest, TakesTheSelectionOfOneLineAsTheTextToFind) {
  select(4, 7);
  bar().open();
  EXPECT_EQ(bar().text(), QStringLiteral("Two"));
  bar().findNext();
  EXPECT_EQ(selection(), std::pair(12, 15));
}

TEST_F(FindBarTest, LeavesASelectionOfSeveralLinesAlone) {
  select(4, 10);
  bar().open();
  EXPECT_EQ(bar().text(), QString());
  EXPECT_EQ(selection(), std::pair(4, 10));
}

TEST_F(FindBarTest, FindNextWithoutATextOpensTheBar) {
  bar().findNext();
  EXPECT_TRUE(bar().isVisible());
  EXPECT_TRUE(line().hasFocus());
}

TEST_F(FindBarTest, FindNextWorksWhileTheBarIsClosed) {
  bar().open();
  typeText(QStringLiteral("one"));
  press(&line(), Qt::Key_Escape);
  bar().findNext();
  EXPECT_EQ(selection(), std::pair(8, 11));
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(FindBarTest, WhatASearchHasToSayIsInTheStatusBarWhileTheBarIsClosed) {
  bar().open();
  typeText(QStringLiteral("three"));
  bar().close();
  bar().findNext();
  EXPECT_EQ(status(QStringLiteral("Remark")), QStringLiteral("“three”: Reached the end, went on from the top"));
  editor()->selectAll();
  type(QStringLiteral("x"));
  bar().findNext();
  EXPECT_EQ(status(QStringLiteral("Remark")), QStringLiteral("“three”: Not found"));
}

TEST_F(FindBarTest, SearchesThePageInFront) {
  bar().open();
  typeText(QStringLiteral("three"));
  openText(QStringLiteral("b.pas"), "x three");
  bar().findNext();
  EXPECT_EQ(selection(), std::pair(2, 7));
}

TEST_F(FindBarTest, TheFoundPlaceIsScrolledIntoView) {
  openText(QStringLiteral("b.pas"), QByteArray("x\n").repeated(500) + "needle\n");
  bar().open();
  typeText(QStringLiteral("needle"));
  EXPECT_GT(editor()->topLine(), 400);
  EXPECT_LE(editor()->topLine(), 501);
}

TEST_F(FindBarTest, TheCaretPublishesTheMatchThatWasFoundLast) {
  const qlonglong before = editor()->property("SearchAfter").toLongLong();
  bar().open();
  typeText(QStringLiteral("three"));
  EXPECT_NE(editor()->property("SearchAfter").toLongLong(), before);
}

class ReplaceBarTest : public FindBarTest {
protected:
  QLineEdit& replacement() { return *bar().findChild<QLineEdit*>(QStringLiteral("ReplaceText")); }
  QCheckBox& option(const char* name) { return *bar().findChild<QCheckBox*>(QString::fromLatin1(name)); }
  void click(const char* name) { bar().findChild<QToolButton*>(QString::fromLatin1(name))->click(); }
  std::string text() const { return editor()->toPlainText().toStdString(); }

  void openWith(const QString& find, const QString& with) {
    trigger("SearchReplaceCommand");
    typeText(find);
    replacement().setText(with);
  }
  void trigger(const char* name) { action(QString::fromLatin1(name))->trigger(); }
};

TEST_F(ReplaceBarTest, OnlyTheReplaceCommandShowsTheRow) {
  trigger("SearchFindCommand");
  EXPECT_FALSE(replacement().isVisible());
  trigger("SearchReplaceCommand");
  EXPECT_TRUE(replacement().isVisible());
  EXPECT_TRUE(line().hasFocus());
  bar().close();
  trigger("SearchFindCommand");
  EXPECT_FALSE(replacement().isVisible());
}

TEST_F(ReplaceBarTest, TheSearchCommandsHaveTheirKeys) {
  const auto pressInWindow = [this](int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(frame()->windowHandle(), &down);
    support::settle();
  };
  for (const int key : {Qt::Key_H, Qt::Key_R}) {
    pressInWindow(key, Qt::ControlModifier);
    EXPECT_TRUE(replacement().isVisible()) << key;
    bar().close();
  }
  editor()->setCaret(1, 1);
  pressInWindow(Qt::Key_F3, Qt::ControlModifier);
  EXPECT_EQ(selection(), std::pair(8, 11));
  pressInWindow(Qt::Key_F3, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(selection(), std::pair(0, 3));
}

TEST_F(ReplaceBarTest, EnterReplacesTheMatchAndGoesToTheNext) {
  openWith(QStringLiteral("two"), QStringLiteral("2"));
  replacement().setFocus();
  press(&replacement(), Qt::Key_Return);
  EXPECT_EQ(text(), "one 2\none two\nthree\n");
  EXPECT_EQ(selection(), std::pair(10, 13));
  press(&replacement(), Qt::Key_Return);
  EXPECT_EQ(text(), "one 2\none 2\nthree\n");
  EXPECT_EQ(bar().message(), QStringLiteral("Replaced the last occurrence"));
}

TEST_F(ReplaceBarTest, WhatIsSelectedButNoMatchIsNotReplaced) {
  openWith(QStringLiteral("two"), QStringLiteral("2"));
  select(0, 3);
  click("ReplaceButton");
  EXPECT_EQ(text(), "one Two\none two\nthree\n");
  EXPECT_EQ(selection(), std::pair(4, 7));
}

TEST_F(ReplaceBarTest, AReplacementThatHoldsTheTextIsNotReplacedAgain) {
  openWith(QStringLiteral("one"), QStringLiteral("one one"));
  click("ReplaceButton");
  EXPECT_EQ(selection(), std::pair(12, 15));
}

TEST_F(ReplaceBarTest, EmptyMatchesAreReplacedOneAfterTheOther) {
  openWith(QString(), QStringLiteral("> "));
  option("RegularExpression").setChecked(true);
  typeText(QStringLiteral("^"));
  for (int i = 0; i < 3; ++i)
    click("ReplaceButton");
  EXPECT_EQ(text(), "one Two\n> one two\n> three\n> ");
}

TEST_F(ReplaceBarTest, ReplacesAllAsOneStepAndTellsHowMany) {
  openWith(QStringLiteral("two"), QStringLiteral("2"));
  click("ReplaceAllButton");
  EXPECT_EQ(text(), "one 2\none 2\nthree\n");
  EXPECT_EQ(bar().message(), QStringLiteral("2 replaced"));
  editor()->undo();
  EXPECT_EQ(text(), "one Two\none two\nthree\n");
}

TEST_F(ReplaceBarTest, ReplacesAHundredThousandMatchesOfAPascalFile) {
  openText(QStringLiteral("b.pas"), QByteArray("  x := x + 1; // ;\n").repeated(50'000));
  openWith(QStringLiteral("x"), QStringLiteral("total"));
  click("ReplaceAllButton");
  EXPECT_EQ(bar().message(), QStringLiteral("%L1 replaced").arg(100'000));
  EXPECT_EQ(editor()->document()->lastBlock().previous().text(), QStringLiteral("  total := total + 1; // ;"));
  editor()->undo();
  EXPECT_EQ(editor()->document()->firstBlock().text(), QStringLiteral("  x := x + 1; // ;"));
  EXPECT_FALSE(editor()->document()->isUndoAvailable());
}

// What a pattern needs tens of seconds for: it tries every way to part a line of x, without coming near its bound.
class SlowSearchTest : public ReplaceBarTest {
protected:
  void openSlowText() {
    const QByteArray quick = QByteArray("xx1\n").repeated(200);
    const QByteArray slow = (QByteArray("x").repeated(16) + '\n').repeated(200'000);
    openText(QStringLiteral("b.txt"), slow + quick);
    openWith(QString(), QStringLiteral("y"));
    option("RegularExpression").setChecked(true);
    line().setText(QStringLiteral("(x+x+)+\\d")); // as if pasted, so that nothing is searched for yet
    option("MatchCase").setChecked(true);
  }
  static support::ModalAnswer<QProgressDialog>::Function stopping() {
    return [](QProgressDialog& dialog) { support::clickButton(dialog, QStringLiteral("Stop")); };
  }
};

TEST_F(SlowSearchTest, WhileThePatternIsTypedItIsSoughtForAMomentOnly) {
  openSlowText();
  EXPECT_EQ(bar().message(), QStringLiteral("This takes long, Enter goes on"));
  EXPECT_FALSE(editor()->textCursor().hasSelection());
}

TEST_F(SlowSearchTest, GoingToTheNextMatchCanBeStopped) {
  openSlowText();
  const support::ModalAnswer<QProgressDialog> answer(stopping());
  bar().findNext();
  EXPECT_EQ(bar().message(), QStringLiteral("Stopped"));
  EXPECT_FALSE(editor()->textCursor().hasSelection());
}

TEST_F(SlowSearchTest, LookingForAllMatchesCanBeStoppedAndHasChangedNothing) {
  openSlowText();
  const support::ModalAnswer<QProgressDialog> answer(stopping());
  click("ReplaceAllButton");
  EXPECT_EQ(bar().message(), QStringLiteral("Stopped, nothing was replaced"));
  EXPECT_FALSE(editor()->document()->isModified());
}

TEST_F(SlowSearchTest, EscapeStopsToo) {
  openSlowText();
  const support::ModalAnswer<QProgressDialog> answer([](QProgressDialog& dialog) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(dialog.windowHandle(), &down);
  });
  bar().findNext();
  EXPECT_EQ(bar().message(), QStringLiteral("Stopped"));
}

TEST_F(SlowSearchTest, AWindowThatGoesMeanwhileEndsTheSearch) {
  QTextDocument document((QString(16, u'x') + u'\n').repeated(200'000));
  document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
  const QPointer<QWidget> other = new QWidget;
  auto* const otherEditor = new TEditControl(other);
  otherEditor->showDocument(&document, Colouring::None);
  auto* const otherBar = new FindBar(otherEditor, other);
  otherBar->findChild<QCheckBox*>(QStringLiteral("RegularExpression"))->setChecked(true);
  otherBar->findChild<QLineEdit*>(QStringLiteral("FindText"))->setText(QStringLiteral("(x+x+)+\\d"));
  otherBar->findChild<QCheckBox*>(QStringLiteral("MatchCase"))->setChecked(true);
  const support::ModalAnswer<QProgressDialog> answer([other](QProgressDialog&) { delete other; });
  otherBar->replaceAll();
  EXPECT_TRUE(other.isNull());
}

TEST_F(ReplaceBarTest, ALineThatThePatternIsTooComplexForIsNamed) {
  openText(QStringLiteral("b.txt"), "one\n" + QByteArray(40, 'x') + "\nxx1\n");
  openWith(QString(), QStringLiteral("y"));
  option("RegularExpression").setChecked(true);
  typeText(QStringLiteral("(x+x+)+\\d"));
  EXPECT_EQ(bar().message(), QStringLiteral("Too complex for line 2, passed over"));
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("xx1"));
  click("ReplaceAllButton");
  EXPECT_EQ(bar().message(), QStringLiteral("Too complex for line 2, nothing was replaced"));
  EXPECT_FALSE(editor()->document()->isModified());
}

TEST_F(ReplaceBarTest, HeedsCaseWholeWordsAndPatterns) {
  openWith(QStringLiteral("two"), QStringLiteral("2"));
  option("MatchCase").setChecked(true);
  click("ReplaceAllButton");
  EXPECT_EQ(text(), "one Two\none 2\nthree\n");
  option("WholeWord").setChecked(true);
  line().clear();
  typeText(QStringLiteral("hree"));
  click("ReplaceAllButton");
  EXPECT_EQ(bar().message(), QStringLiteral("Not found"));
  option("RegularExpression").setChecked(true);
  line().clear();
  typeText(QStringLiteral("t(h)re+"));
  replacement().setText(QStringLiteral("\\1\\1"));
  click("ReplaceAllButton");
  EXPECT_EQ(text(), "one Two\none 2\nhh\n");
}

TEST_F(ReplaceBarTest, ABadPatternIsToldInTheBarAndChangesNothing) {
  openWith(QString(), QString());
  option("RegularExpression").setChecked(true);
  typeText(QStringLiteral("(o"));
  EXPECT_EQ(bar().message(), QStringLiteral("Bad pattern at character 3: missing closing parenthesis"));
  click("ReplaceAllButton");
  EXPECT_EQ(bar().message(), QStringLiteral("Bad pattern at character 3: missing closing parenthesis"));
  EXPECT_EQ(text(), "one Two\none two\nthree\n");
  typeText(QStringLiteral(")"));
  EXPECT_EQ(bar().message(), QString());
}

TEST_F(ReplaceBarTest, ReplacesWithinTheLinesThatWereSelectedWhenTheBarOpened) {
  select(8, 21);
  openWith(QStringLiteral("o"), QStringLiteral("0"));
  option("InSelection").setChecked(true);
  EXPECT_EQ(selection(), std::pair(8, 9)) << "the first one in the selection";
  click("ReplaceAllButton");
  EXPECT_EQ(text(), "one Two\n0ne tw0\nthree\n");
}

TEST_F(ReplaceBarTest, SearchingASelectionGoesRoundInIt) {
  select(8, 21);
  openWith(QStringLiteral("one"), QString());
  option("InSelection").setChecked(true);
  bar().findNext();
  EXPECT_EQ(selection(), std::pair(8, 11));
  EXPECT_EQ(bar().message(), QStringLiteral("Reached the end, went on from the top"));
  bar().findPrevious();
  EXPECT_EQ(selection(), std::pair(8, 11));
}

TEST_F(ReplaceBarTest, WithoutASelectionThereIsNoneToSearch) {
  openWith(QStringLiteral("one"), QString());
  option("InSelection").setChecked(true);
  EXPECT_FALSE(option("InSelection").isChecked());
  EXPECT_EQ(bar().message(), QStringLiteral("Nothing is selected"));
}

TEST_F(ReplaceBarTest, AnotherPageIsSearchedWhole) {
  select(8, 21);
  openWith(QStringLiteral("one"), QString());
  option("InSelection").setChecked(true);
  openText(QStringLiteral("b.pas"), "x one");
  bar().findNext();
  EXPECT_FALSE(option("InSelection").isChecked());
  EXPECT_EQ(selection(), std::pair(2, 5));
}

TEST_F(ReplaceBarTest, AReadOnlyTextIsSearchedButNotChanged) {
  openText(QStringLiteral("b.pas"), "a\xE2\x80\xA9z");
  const std::string before = text();
  EXPECT_FALSE(action(QStringLiteral("SearchReplaceCommand"))->isEnabled());
  bar().openReplace();
  typeText(QStringLiteral("z"));
  for (const char* const button : {"ReplaceButton", "ReplaceAllButton"}) {
    click(button);
    EXPECT_EQ(bar().message(), QStringLiteral("This text is read-only"));
  }
  EXPECT_EQ(text(), before);
}

TEST_F(ReplaceBarTest, OtherLineEndsStayAsTheyWere) {
  openText(QStringLiteral("b.pas"), "one\r\none\ntwo\r\none");
  openWith(QStringLiteral("one"), QStringLiteral("1"));
  click("ReplaceAllButton");
  trigger("FileSaveCommand");
  EXPECT_EQ(read(QStringLiteral("b.pas")), "1\r\n1\ntwo\r\n1");
}

TEST_F(ReplaceBarTest, GoesToTheNextAndThePreviousOccurrenceOfTheWordAtTheCaret) {
  openText(QStringLiteral("b.pas"), "max maximum\nMax x max");
  editor()->setCaret(1, 2);
  trigger("SearchNextWordCommand");
  EXPECT_EQ(selection(), std::pair(12, 15));
  EXPECT_FALSE(bar().isVisible());
  bar().findNext();
  EXPECT_EQ(selection(), std::pair(18, 21));
  editor()->setCaret(2, 2);
  trigger("SearchPreviousWordCommand");
  EXPECT_EQ(selection(), std::pair(0, 3));
  editor()->setCaret(2, 5);
  trigger("SearchNextWordCommand");
  EXPECT_EQ(bar().text(), QStringLiteral("x"));
}

TEST_F(ReplaceBarTest, WhileTheBarIsOpenEveryMatchInSightIsFramed) {
  openWith(QStringLiteral("two"), QString());
  support::settle();
  const QSize cell = editor()->cellSize();
  const int left = editor()->gutterWidth() + 4 * cell.width();
  EXPECT_EQ(editor()->frames(), (QList<QRect>{{QPoint(left, 0), QSize(3 * cell.width(), cell.height())},
                                              {QPoint(left, cell.height()), QSize(3 * cell.width(), cell.height())}}));
  bar().close();
  support::settle();
  EXPECT_TRUE(editor()->frames().isEmpty());
}

TEST_F(ReplaceBarTest, FramesFollowTheTextAndTheOptions) {
  openWith(QStringLiteral("two"), QString());
  option("MatchCase").setChecked(true);
  support::settle();
  EXPECT_EQ(editor()->frames().size(), 1);
  QTextCursor(editor()->document()).insertText(QStringLiteral("two two\n"));
  support::settle();
  EXPECT_EQ(editor()->frames().size(), 3);
}

TEST_F(ReplaceBarTest, FramesAreSeenOnTheScreenButAreNotInThePicture) {
  openWith(QStringLiteral("two"), QString());
  select(0, 0);
  support::settle();
  ASSERT_FALSE(editor()->frames().isEmpty());
  const QImage with = editor()->picture();
  const QPoint corner = editor()->frames().constFirst().bottomRight();
  const QImage screen = editor()->grab().toImage();
  EXPECT_EQ(screen.pixelColor(corner), editor()->colorScheme().matchFrame);
  bar().close();
  select(0, 0);
  support::settle();
  EXPECT_EQ(editor()->picture().copy(with.rect()), with);
}

} // namespace
} // namespace desktop
