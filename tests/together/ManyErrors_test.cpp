// SPDX-License-Identifier: MIT
// Units whose every line is an error, in the real editor.
#include "together/LiveFixture.h"

#include <QPlainTextEdit>
#include <QScopeGuard>

#include <vector>

namespace together {
namespace {

class ManyErrors : public LiveFixture {
protected:
  // Runs until errors are underlined: the caret has rested for a hundred cycles then.
  bool runIntoUnderlining() {
    return support::waitUntil([this] { return thread->hops > 0; }, 300);
  }
  // Puts a key where the desktop puts one, to be served with the other events.
  void pressKey(Qt::Key key, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
      qt_handleKeyEvent(frame()->windowHandle(), type, key, Qt::NoModifier, text);
  }

  // Whoever watches with what a test holds must not be called when the test is over; the thread stops only later.
  auto quietAtTheEnd() {
    return qScopeGuard([this] {
      thread->onEnded = nullptr;
      thread->onHop = nullptr;
    });
  }
};

class ManyErrorsCount : public ManyErrors, public testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Lines, ManyErrorsCount, testing::Values(300, 5000));

TEST_P(ManyErrorsCount, TakeOneHopEachInACycleWithTheCaretStill) {
  openLive(faultyUnit(GetParam()));
  std::vector<int> perCycle;
  const auto quiet = quietAtTheEnd();
  thread->onEnded = [this, &perCycle, before = 0]() mutable {
    perCycle.push_back(thread->hops - before);
    before = thread->hops;
  };
  ASSERT_TRUE(support::waitUntil([&] { return perCycle.size() >= 104; }, 300));
  thread->stop();
  // The first cycle sees a caret that it does not know yet; 101 further ones make up the rest.
  const std::vector<int> still(perCycle.begin() + 101, perCycle.begin() + 104);
  EXPECT_EQ(std::vector<int>(perCycle.begin(), perCycle.begin() + 101), std::vector<int>(101, 0));
  EXPECT_EQ(still, std::vector<int>(3, GetParam()));
}

TEST_F(ManyErrors, LetAKeyThroughBeforeTheNextButOne) {
  openLive(faultyUnit(5000));
  ASSERT_TRUE(runIntoUnderlining());
  int pressedAt = 0;
  int arrivedAt = 0;
  const auto quiet = quietAtTheEnd();
  const QObject here;
  QObject::connect(editor(), &QPlainTextEdit::textChanged, &here, [&] { arrivedAt = thread->hops; });
  for (const QString& letter : {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")}) {
    pressedAt = 0;
    arrivedAt = 0;
    thread->onHop = [&, cycle = thread->ended, start = thread->hops] {
      // In the middle of the underlining of a cycle.
      if (pressedAt != 0 || (thread->ended == cycle && thread->hops < start + 10))
        return;
      pressedAt = thread->hops;
      pressKey(Qt::Key(letter.at(0).toUpper().unicode()), letter);
    };
    ASSERT_TRUE(support::waitUntil([&] { return arrivedAt != 0; }, 300));
    EXPECT_LE(arrivedAt, pressedAt + 1) << letter.toStdString();
    thread->onHop = nullptr;
  }
  EXPECT_TRUE(editor()->toPlainText().startsWith(QStringLiteral("xyz")));
}

TEST_F(ManyErrors, ArePaintedWithTheTextBetweenHops) {
  openLive(faultyUnit(5000));
  ASSERT_TRUE(runIntoUnderlining());
  int paintsBefore = 0;
  int askedAt = 0;
  int paintedAt = 0;
  const auto quiet = quietAtTheEnd();
  thread->onHop = [&] {
    if (askedAt == 0) {
      askedAt = thread->hops;
      paintsBefore = hostPaints();
      editor()->Invalidate();
    } else if (paintedAt == 0 && hostPaints() > paintsBefore) {
      paintedAt = thread->hops;
    }
  };
  ASSERT_TRUE(support::waitUntil([&] { return paintedAt != 0; }, 300));
  EXPECT_LE(paintedAt, askedAt + 2);
}

TEST_F(ManyErrors, AreLeftInTheMiddleWhenTheThreadStops) {
  openLive(faultyUnit(5000));
  ASSERT_TRUE(runIntoUnderlining());
  int stoppedAt = 0;
  const auto quiet = quietAtTheEnd();
  thread->onHop = [&, ended = thread->ended] {
    if (stoppedAt != 0 || thread->ended == ended)
      return;
    stoppedAt = thread->hops;
    thread->Terminate();
  };
  ASSERT_TRUE(support::waitUntil([&] { return stoppedAt != 0; }, 300));
  const int ended = thread->ended;
  thread->WaitFor();
  // The parser may have been on its way already.
  EXPECT_LE(thread->hops, stoppedAt + 1);
  EXPECT_EQ(thread->ended, ended);
}

TEST_F(ManyErrors, CauseNoPaintOfTheTextByThemselves) {
  openLive(faultyUnit(300));
  ASSERT_TRUE(runIntoUnderlining());
  ASSERT_TRUE(runCycles(1));
  support::settle();
  forgetHostPaints();
  ASSERT_TRUE(runCycles(5));
  EXPECT_EQ(hostPaints(), 0);
  EXPECT_GT(redPixelsOf(*editor()), 0);
}

} // namespace
} // namespace together
