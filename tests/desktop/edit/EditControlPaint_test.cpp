// SPDX-License-Identifier: MIT
// When the control paints, and what becomes of drawings on its canvas.
#include "desktop/edit/EditFixture.h"
#include "platform/Application.h"
#include "platform/Errors.h"

#include <QElapsedTimer>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>

namespace desktop {
namespace {

using namespace platform;

class EditControlPaint : public EditFixture {
protected:
  // Draws as an add-in does at any time.
  void mark(int row, int column) {
    control.Canvas().Brush.Color = clRed;
    control.Canvas().FillRect(cellRect(row, column));
  }
  bool isMarked(int row, int column) const { return cellColor(row, column) == QColor(Qt::red); }
};

const QString lines = QStringLiteral("begin x end\n").repeated(200);

TEST_F(EditControlPaint, PaintsNothingInTenSecondsOfStillness) {
  show(lines);
  MessageRecorder recorder(control);
  PaintEvents copies(*control.viewport());
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < 10000) {
    const QPoint place(50 + static_cast<int>(clock.elapsed() % 100), 50);
    QMouseEvent hover(QEvent::MouseMove, place, control.viewport()->mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(control.viewport(), &hover);
    QHelpEvent tip(QEvent::ToolTip, place, control.viewport()->mapToGlobal(place));
    QApplication::sendEvent(control.viewport(), &tip);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // the caret's timers end the wait
  }
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
  EXPECT_EQ(recorder.count(WM_ERASEBKGND), 0);
  EXPECT_GE(copies.count, 5) << "the caret has been blinking";
}

TEST_F(EditControlPaint, PaintsOnceForACaretMove) {
  show(lines);
  MessageRecorder recorder(control);
  pressOnly(Qt::Key_Right);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
}

TEST_F(EditControlPaint, PaintsOnceForATypedCharacter) {
  show(lines);
  MessageRecorder recorder(control);
  pressOnly(Qt::Key_A, QStringLiteral("a"));
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
}

TEST_F(EditControlPaint, PaintsAtMostTwiceForAKeyWhoseReleaseRepaints) {
  show(lines);
  MessageRecorder recorder(control);
  recorder.afterMessage = [this](const TMessage& message) {
    if (message.Msg == WM_KEYUP)
      control.Repaint();
  };
  for (const int key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Down, Qt::Key_Backspace, Qt::Key_PageDown, Qt::Key_Tab}) {
    recorder.clear();
    const QString typed = key == Qt::Key_A ? QStringLiteral("a") : QString();
    pressOnly(key, typed);
    support::settle();
    release(key, typed);
    support::settle();
    EXPECT_LE(recorder.count(WM_PAINT), 2) << key;
    EXPECT_GE(recorder.count(WM_PAINT), 1) << key;
  }
}

TEST_F(EditControlPaint, PaintsOnceForAScroll) {
  show(lines);
  MessageRecorder recorder(control);
  control.setTopLine(20);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  recorder.clear();
  control.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
}

TEST_F(EditControlPaint, PaintsOnceForManyRequests) {
  show(lines);
  MessageRecorder recorder(control);
  for (int i = 0; i < 10; ++i)
    control.Invalidate();
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
}

TEST_F(EditControlPaint, RepaintsAtOnce) {
  show(lines);
  MessageRecorder recorder(control);
  control.Repaint();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1) << "nothing is left to paint";
}

TEST_F(EditControlPaint, TakesWhatIsPendingIntoARepaint) {
  show(lines);
  MessageRecorder recorder(control);
  control.textCursor().insertText(QStringLiteral("x"));
  control.Repaint();
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
}

TEST_F(EditControlPaint, OnlySchedulesARepaintAskedForWhilePainting) {
  show(lines);
  MessageRecorder recorder(control);
  int depth = 0;
  int deepest = 0;
  bool asked = false;
  recorder.onMessage = [&](const TMessage& message) {
    if (message.Msg != WM_PAINT)
      return true;
    deepest = std::max(deepest, ++depth);
    if (!asked) {
      asked = true;
      control.Repaint();
    }
    return true;
  };
  recorder.afterMessage = [&](const TMessage& message) { depth -= message.Msg == WM_PAINT ? 1 : 0; };
  control.Repaint();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 2);
  EXPECT_EQ(deepest, 1);
}

TEST_F(EditControlPaint, PaintsNothingWhileHidden) {
  show(lines);
  control.hide();
  support::settle();
  MessageRecorder recorder(control);
  control.Repaint();
  control.Invalidate();
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
}

TEST_F(EditControlPaint, KeepsAMarkThroughThreeBlinksOfTheCaret) {
  show(lines);
  MessageRecorder recorder(control);
  mark(2, 3);
  PaintEvents copies(*control.viewport());
  ASSERT_TRUE(support::waitUntil([&copies] { return copies.count > 6; }));
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
  EXPECT_TRUE(isMarked(2, 3));
}

TEST_F(EditControlPaint, ShowsAMarkOnTheScreen) {
  show(lines);
  mark(2, 3);
  support::settle();
  const QPointF middle = QRectF(cellRect(2, 3)).center() * control.devicePixelRatioF();
  EXPECT_EQ(control.grab().toImage().pixelColor(middle.toPoint()), QColor(Qt::red));
}

TEST_F(EditControlPaint, KeepsAMarkWhenAPictureOfTheControlIsTaken) {
  show(lines);
  mark(2, 3);
  MessageRecorder recorder(control);
  control.grab();
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
  EXPECT_TRUE(isMarked(2, 3));
}

TEST_F(EditControlPaint, TakesWhatIsPendingIntoAPictureOfTheControl) {
  show(QStringLiteral("\n"));
  MessageRecorder recorder(control);
  control.textCursor().insertText(QStringLiteral("\u2588"));
  const QImage taken = control.grab().toImage();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  const QColor ink = lightScheme().style(SyntaxAttribute::Illegal).color;
  const QPointF middle = QRectF(cellRect(1, 1)).center() * control.devicePixelRatioF();
  EXPECT_EQ(taken.pixelColor(middle.toPoint()), ink);
  EXPECT_EQ(cellColor(1, 1), ink);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1) << "the screen gets a copy";
}

TEST_F(EditControlPaint, RemovesAMarkWithTheNextKey) {
  show(lines);
  mark(2, 3);
  pressOnly(Qt::Key_Right);
  support::settle();
  EXPECT_FALSE(isMarked(2, 3));
}

TEST_F(EditControlPaint, RemovesAMarkWithTheNextScroll) {
  show(lines);
  mark(2, 3);
  control.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  support::settle();
  EXPECT_FALSE(isMarked(2, 3));
  EXPECT_FALSE(isMarked(1, 3));
}

TEST_F(EditControlPaint, PaintsWhatIsPendingBeforeAMarkIsDrawn) {
  show(lines);
  MessageRecorder recorder(control);
  control.textCursor().insertText(QStringLiteral("x"));
  mark(2, 3);
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  EXPECT_TRUE(isMarked(2, 3));
}

TEST_F(EditControlPaint, KeepsAMarkInTheGutter) {
  show(lines);
  control.Canvas().Brush.Color = clRed;
  control.Canvas().FillRect(QRect(0, 0, 10, 10));
  MessageRecorder recorder(control);
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
  EXPECT_EQ(control.grab().toImage().pixelColor(2, 2), QColor(Qt::red));
}

TEST_F(EditControlPaint, TakesMarksThatLieOutside) {
  show(lines);
  MessageRecorder recorder(control);
  control.Canvas().FillRect(QRect(-500, -500, 20, 20));
  control.Canvas().FillRect(QRect(5000, 5000, 20, 20));
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 0);
}

TEST_F(EditControlPaint, ShowsWhatAProcedureDrawsAfterTheHost) {
  show(lines);
  MessageRecorder recorder(control);
  recorder.afterMessage = [this](const TMessage& message) {
    if (message.Msg == WM_PAINT)
      mark(4, 4);
  };
  control.Repaint();
  EXPECT_TRUE(isMarked(4, 4));
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1) << "drawing in a paint pass asks for nothing more";
}

TEST_F(EditControlPaint, PaintsTheWholePictureForAnExposedCorner) {
  show(lines);
  mark(2, 3);
  MessageRecorder recorder(control);
  control.viewport()->update(QRect(300, 300, 10, 10));
  support::settle();
  EXPECT_EQ(recorder.count(WM_PAINT), 1);
  EXPECT_FALSE(isMarked(2, 3));
}

TEST_F(EditControlPaint, ErasesOnFirstShowResizePaletteAndDocumentOnly) {
  document.setPlainText(lines);
  control.showDocument(&document);
  MessageRecorder recorder(control);
  const auto erased = [&recorder] {
    support::settle();
    const int count = recorder.count(WM_ERASEBKGND);
    recorder.clear();
    return count;
  };
  control.show();
  control.activateWindow();
  control.setFocus();
  EXPECT_EQ(erased(), 1) << "first show";
  type(QStringLiteral("ab"));
  EXPECT_EQ(erased(), 0) << "typing";
  press(Qt::Key_Down);
  EXPECT_EQ(erased(), 0) << "caret";
  control.setTopLine(30);
  EXPECT_EQ(erased(), 0) << "scrolling";
  control.Repaint();
  EXPECT_EQ(erased(), 0) << "repainting";
  control.resize(500, 300);
  EXPECT_EQ(erased(), 1) << "size";
  control.setColorScheme(darkScheme());
  EXPECT_EQ(erased(), 1) << "palette";
  PlainDocument other(QStringLiteral("other"));
  control.showDocument(&other);
  EXPECT_EQ(erased(), 1) << "document";
  control.showDocument(nullptr);
  EXPECT_EQ(erased(), 1);
}

TEST_F(EditControlPaint, ErasesBeforeItPaints) {
  show(lines);
  MessageRecorder recorder(control);
  control.resize(500, 300);
  support::settle();
  ASSERT_GE(recorder.messages().size(), 2U);
  EXPECT_EQ(recorder.messages()[0].Msg, static_cast<unsigned>(WM_ERASEBKGND));
  EXPECT_EQ(recorder.messages()[1].Msg, static_cast<unsigned>(WM_PAINT));
}

TEST_F(EditControlPaint, PaintsItsGroundWhenErasingIsKeptFromIt) {
  show(lines);
  MessageRecorder recorder(control);
  recorder.onMessage = [](const TMessage& message) { return message.Msg != WM_ERASEBKGND; };
  control.setColorScheme(darkScheme());
  support::settle();
  EXPECT_EQ(cellColor(1, 40), darkScheme().ground);
}

TEST_F(EditControlPaint, ReportsWhatAProcedureThrowsAndGoesOn) {
  show(lines);
  std::vector<std::string> reported;
  Application().SetReporter([&reported](const QString& message, int) { reported.push_back(message.toStdString()); });
  MessageRecorder recorder(control);
  recorder.onMessage = [](const TMessage& message) -> bool {
    if (message.Msg == WM_PAINT || message.Msg == WM_CHAR)
      throw Exception(message.Msg == WM_PAINT ? "in paint" : "in char");
    return true;
  };
  EXPECT_NO_THROW(control.Repaint());
  EXPECT_NO_THROW(press(Qt::Key_A, QStringLiteral("a")));
  recorder.onMessage = nullptr;
  Application().ReportPending();
  Application().SetReporter({});
  EXPECT_EQ(reported, (std::vector<std::string>{"in paint", "in char"}));
  control.Repaint();
  EXPECT_EQ(cellColor(1, 40), lightScheme().ground);
}

TEST_F(EditControlPaint, ShowsTheCaretOnTheScreenButNotInThePicture) {
  show(QStringLiteral("x"));
  control.setColorScheme([] {
    ColorScheme scheme = lightScheme();
    scheme.caret = Qt::magenta;
    return scheme;
  }());
  control.setInsertMode(false);
  const auto has = [](const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y) == color)
          return true;
    return false;
  };
  control.setInsertMode(true);
  press(Qt::Key_End);
  EXPECT_TRUE(has(control.grab().toImage(), Qt::magenta));
  EXPECT_FALSE(has(control.picture(), Qt::magenta));
  control.clearFocus();
  EXPECT_FALSE(has(control.grab().toImage(), Qt::magenta)) << "without focus there is no caret";
}

TEST_F(EditControlPaint, TheRightMarginLiesOverThePicture) {
  show(QStringLiteral("x"));
  const QImage before = control.picture();
  control.setRightMargin(20);
  support::settle();
  const int x = control.gutterWidth() + 20 * control.cellSize().width();
  const QImage screen = control.grab().toImage();
  EXPECT_EQ(screen.pixelColor(x, 50), control.colorScheme().gutterLine);
  EXPECT_EQ(screen.pixelColor(x - 1, 50), control.colorScheme().ground);
  EXPECT_EQ(control.picture(), before);
  control.setRightMargin(0);
  support::settle();
  EXPECT_EQ(control.grab().toImage().pixelColor(x, 50), control.colorScheme().ground);
}

TEST_F(EditControlPaint, BlanksAreDrawnInEveryDocumentWhileTheyAreToBeShown) {
  show(QStringLiteral("    \t|"));
  const QImage without = control.picture();
  control.setShowsBlanks(true);
  support::settle();
  const QImage with = control.picture();
  EXPECT_NE(with, without);
  PlainDocument other(QStringLiteral("    \t|"));
  control.showDocument(&other);
  support::settle();
  EXPECT_EQ(control.picture(), with);
  control.setShowsBlanks(false);
  support::settle();
  EXPECT_EQ(control.picture(), without);
  control.showDocument(&document);
  support::settle();
  EXPECT_EQ(control.picture(), without);
  control.showDocument(nullptr);
}

} // namespace
} // namespace desktop
