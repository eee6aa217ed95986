// SPDX-License-Identifier: MIT
// Marks that the hot key asks for: they live in the picture until the text is painted again.
#include "together/TogetherFixture.h"

#include <QApplication>
#include <QScrollBar>

namespace together {
namespace {

// Counts the paint events of a widget, which for a still editor are those of its caret.
class PaintEvents : public QObject {
public:
  explicit PaintEvents(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint;
    return false;
  }
};

class MarksOnDemand : public TogetherFixture {
protected:
  MarksOnDemand() {
    markInMagenta();
    quorvane::OptMarkerLive = false;
  }
  // Only the press: the release of a key takes the marks away.
  void pressHotKey() {
    QTest::keyPress(editor(), Qt::Key_0, Qt::ShiftModifier | Qt::AltModifier);
    support::settle();
  }
  void openAtBracket() {
    openWithAddIn(QByteArray("f(x);\n") + QByteArray("y := 1;\n").repeated(200));
    putCaret(1, 2);
  }
};

TEST_F(MarksOnDemand, NothingIsMarkedUnasked) {
  openAtBracket();
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(MarksOnDemand, HotKeyMarksThePair) {
  openAtBracket();
  pressHotKey();
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(1, 4));
}

// Qt makes no shortcut of this press, since it takes Shift for used up by the digit.
TEST_F(MarksOnDemand, HotKeyMarksThePairOnAFrenchKeyboard) {
  openAtBracket();
  constexpr quint32 codeOfZero = 19;
  QKeyEvent press(QEvent::KeyPress, Qt::Key_0, Qt::ShiftModifier | Qt::AltModifier, codeOfZero, '0', 0,
                  QStringLiteral("0"));
  QApplication::sendEvent(editor(), &press);
  support::settle();
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(1, 4));
}

TEST_F(MarksOnDemand, OutliveThreeBlinksOfTheCaret) {
  openAtBracket();
  pressHotKey();
  const int paintsBefore = hostPaints();
  PaintEvents copies(*editor()->viewport());
  ASSERT_TRUE(support::waitUntil([&] { return copies.count >= 6; })) << "on and off, three times";
  EXPECT_EQ(hostPaints(), paintsBefore);
  EXPECT_TRUE(isMarked(1, 2));
  EXPECT_TRUE(isMarked(1, 4));
}

TEST_F(MarksOnDemand, GoWithAScroll) {
  openAtBracket();
  pressHotKey();
  ASSERT_GT(markedPixels(), 0);
  editor()->verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
  support::settle();
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(MarksOnDemand, GoWithATypedKey) {
  openAtBracket();
  pressHotKey();
  ASSERT_GT(markedPixels(), 0);
  QTest::keyClick(editor(), 'a');
  support::settle();
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(MarksOnDemand, GoWithTheReleaseOfAnotherKey) {
  openAtBracket();
  pressHotKey();
  ASSERT_GT(markedPixels(), 0);
  QTest::keyRelease(editor(), Qt::Key_Control);
  support::settle();
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(MarksOnDemand, ComeBackWithTheNextPress) {
  openAtBracket();
  pressHotKey();
  editor()->Repaint();
  ASSERT_EQ(markedPixels(), 0);
  pressHotKey();
  EXPECT_TRUE(isMarked(1, 2));
}

TEST_F(MarksOnDemand, ASecondPressDrawsNothingAgain) {
  openAtBracket();
  pressHotKey();
  const QImage once = editor()->picture().copy();
  quorvane::OptParenMatchColor = 0x00FF00; // what a second drawing would show
  pressHotKey();
  EXPECT_EQ(editor()->picture(), once);
}

TEST_F(MarksOnDemand, AreNotMadeInOtherFiles) {
  openWithAddIn("f(x);\n", "readme.txt");
  putCaret(1, 2);
  pressHotKey();
  EXPECT_EQ(markedPixels(), 0);
}

} // namespace
} // namespace together
