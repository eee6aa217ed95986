// SPDX-License-Identifier: MIT
// How often the host paints while the add-in is attached.
#include "together/TogetherFixture.h"

#include <QElapsedTimer>
#include <QScrollBar>

namespace together {
namespace {

class PaintPasses : public TogetherFixture {
protected:
  void openText() { openWithAddIn(QByteArray("procedure P(X: Integer); begin F(X) end;\n").repeated(300)); }
};

TEST_F(PaintPasses, NoneInTenSecondsOfStillness) {
  openText();
  forgetHostPaints();
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < 10000)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // the caret's timer ends the wait
  EXPECT_EQ(hostPaints(), 0);
}

TEST_F(PaintPasses, AtMostTwoForAKey) {
  openText();
  for (const int key : {Qt::Key_A, Qt::Key_ParenLeft, Qt::Key_Return, Qt::Key_Down, Qt::Key_Right, Qt::Key_Backspace,
                        Qt::Key_Delete, Qt::Key_PageDown, Qt::Key_Tab}) {
    forgetHostPaints();
    QTest::keyPress(editor(), static_cast<Qt::Key>(key));
    support::settle();
    QTest::keyRelease(editor(), static_cast<Qt::Key>(key));
    support::settle();
    EXPECT_GE(hostPaints(), 1) << key;
    EXPECT_LE(hostPaints(), 2) << key;
  }
}

TEST_F(PaintPasses, FewForAScroll) {
  openText();
  forgetHostPaints();
  editor()->verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
  support::settle();
  EXPECT_GE(hostPaints(), 1);
  EXPECT_LE(hostPaints(), 2);
}

TEST_F(PaintPasses, LineNumbersStandInTheHostsGutterWhenWanted) {
  quorvane::OptLinesInGutter = true;
  quorvane::OptLineNumberColor = 0xFF00FF;
  openWithAddIn("a\nb\nc\n");
  const QImage& picture = editor()->picture();
  const qreal ratio = picture.devicePixelRatio();
  const auto inked = [&](int row) {
    int count = 0;
    for (int y = qRound((row - 1) * editor()->cellSize().height() * ratio);
         y < qRound(row * editor()->cellSize().height() * ratio); ++y) {
      for (int x = 0; x < qRound(editor()->gutterWidth() * ratio); ++x) {
        const QColor pixel = picture.pixelColor(x, y);
        count += pixel.red() > pixel.green() + 60 && pixel.blue() > pixel.green() + 60;
      }
    }
    return count;
  };
  for (const int row : {1, 2, 3, 4})
    EXPECT_GT(inked(row), 0) << row;
  EXPECT_EQ(inked(5), 0) << "the file has four lines, the last one empty";
}

} // namespace
} // namespace together
