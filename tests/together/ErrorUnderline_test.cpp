// SPDX-License-Identifier: MIT
// Errors underlined in the real editor, by the real thread.
#include "together/TogetherFixture.h"

#include "analysis/QVParseThread.h"

#include <QElapsedTimer>

#include <algorithm>

namespace together {
namespace {

const QColor red(255, 0, 0);

// The thread gets only what the rest of the machine leaves it, so a hundred of its cycles may take a while.
constexpr int patience = 300;

class ErrorUnderline : public TogetherFixture {
protected:
  ~ErrorUnderline() override { quorvane::StopQVParseThread(); }

  // A unit whose sixth line lacks a word in front of its last letter, the eighth character.
  void openFaultyUnit() {
    openWithAddIn("unit u;\ninterface\nimplementation\nprocedure p;\nbegin\n  if a b;\nend;\nend.\n");
    quorvane::StartQVParseThread();
  }

  int redPixels() const { return countOf(editor()->picture(), red); }
  bool waitForRed() {
    return support::waitUntil([this] { return redPixels() > 0; }, patience);
  }

  // Waits for so many outlines; the caret has rested after about a hundred.
  bool waitForOutlines(int count) {
    std::shared_ptr<quorvane::IQVPasInfo> last;
    int seen = 0;
    const auto isSeen = [&] {
      const auto outline = proxy().GetPasInfo();
      seen += outline != last;
      last = outline;
      return seen >= count;
    };
    return support::waitUntil(isSeen, patience);
  }

  // The red pixels of the picture, in logical pixels of the text area.
  QRectF redArea() const {
    const QImage& picture = editor()->picture();
    QRect area;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixelColor(x, y) == red)
          area |= QRect(x, y, 1, 1);
    const qreal ratio = picture.devicePixelRatio();
    return {area.x() / ratio - editor()->gutterWidth(), area.y() / ratio, area.width() / ratio, area.height() / ratio};
  }

  const quorvane::TQVEditorProxy& proxy() const { return *quorvane::TQVEditorProxy::GetProxy(*window()); }
};

TEST_F(ErrorUnderline, StandsUnderAWrongTokenOnceTheCaretHasRested) {
  openFaultyUnit();
  ASSERT_TRUE(waitForOutlines(1));
  EXPECT_EQ(redPixels(), 0) << "the caret has not rested yet";
  ASSERT_TRUE(waitForRed());
  const QSize cell = editor()->cellSize();
  const QRectF area = redArea();
  // It overhangs the token by a character on each side.
  EXPECT_NEAR(area.left(), 6 * cell.width(), 1);
  EXPECT_LE(area.right(), 9 * cell.width() + 1);
  EXPECT_GT(area.right(), 9 * cell.width() - 6);
  EXPECT_NEAR(area.top(), 6 * cell.height() - 2, 1);
  EXPECT_NEAR(area.bottom(), 6 * cell.height() + 3, 1);
}

TEST_F(ErrorUnderline, CausesNoPaintInTenSecondsOfStillness) {
  openFaultyUnit();
  ASSERT_TRUE(waitForRed());
  support::settle();
  forgetHostPaints();
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < 10000)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // the thread's own calls end the wait
  EXPECT_EQ(hostPaints(), 0);
  ASSERT_TRUE(waitForOutlines(3)) << "the thread has drawn no mark again";
  EXPECT_EQ(hostPaints(), 0);
  EXPECT_GT(redPixels(), 0);
}

TEST_F(ErrorUnderline, GoesWithAKeyAndComesBackWithTheNextRest) {
  openFaultyUnit();
  ASSERT_TRUE(waitForRed());
  QTest::keyClick(editor(), Qt::Key_Down);
  EXPECT_EQ(redPixels(), 0);
  EXPECT_TRUE(waitForRed());
}

TEST_F(ErrorUnderline, GoesForGoodWhenTheErrorIsMended) {
  openFaultyUnit();
  ASSERT_TRUE(waitForRed());
  editor()->setCaret(6, 8);
  QTest::keyClicks(editor(), QStringLiteral("then "));
  ASSERT_EQ(editor()->lineText(), QStringLiteral("  if a then b;"));
  ASSERT_TRUE(waitForOutlines(150));
  EXPECT_EQ(redPixels(), 0);
}

TEST_F(ErrorUnderline, IsNotDrawnWithTheOptionOff) {
  quorvane::OptSyntaxCheck = false;
  openFaultyUnit();
  ASSERT_TRUE(waitForOutlines(150));
  EXPECT_EQ(redPixels(), 0);
}

} // namespace
} // namespace together
