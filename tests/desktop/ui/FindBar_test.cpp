// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>

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

} // namespace
} // namespace desktop
