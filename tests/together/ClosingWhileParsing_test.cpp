// SPDX-License-Identifier: MIT
// Files and windows that close in the middle of a cycle of the parse thread.
#include "together/LiveFixture.h"

namespace together {
namespace {

using desktop::Page;
using desktop::TEditWindow;

// Where the thread is when something closes: in the parse, or waiting to hand the outline over.
enum class Middle { Parsing, Waiting };

class ClosingWhileParsing : public LiveFixture, public testing::WithParamInterface<Middle> {
protected:
  // The thread is then in the middle of a cycle over the huge unit on top.
  void runIntoMiddle() {
    ASSERT_TRUE(runIntoParse());
    if (GetParam() == Middle::Waiting)
      letThreadWait();
    ASSERT_GT(thread->begun, thread->ended);
  }

  void expectNextIsParsed() {
    ASSERT_NE(openText(QStringLiteral("next.pas"), unitOf("Next")), nullptr);
    EXPECT_TRUE(comes(window(), "Next"));
    EXPECT_TRUE(support::waitUntil([this] { return methodsOf(window()).count() == 1; }));
  }
};

INSTANTIATE_TEST_SUITE_P(Middles, ClosingWhileParsing, testing::Values(Middle::Parsing, Middle::Waiting),
                         [](const auto& each) { return each.param == Middle::Parsing ? "Parsing" : "Waiting"; });

TEST_P(ClosingWhileParsing, TheLastFileLeavesNothingOnTopUntilTheNextIsOpened) {
  openLive(hugeUnitOf("Huge"));
  ASSERT_NO_FATAL_FAILURE(runIntoMiddle());
  const auto before = proxyOf(window())->GetPasInfo();
  window()->closePage(window()->currentPage());
  EXPECT_EQ(services->GetTopView(), nullptr);
  ASSERT_TRUE(runCycles(2));
  EXPECT_EQ(proxyOf(window())->GetPasInfo(), before) << "the outline of a closed file was handed over";
  expectNextIsParsed();
}

TEST_P(ClosingWhileParsing, OneOfTwoFilesHandsNothingToTheOther) {
  openLive(unitOf("Small"));
  ASSERT_TRUE(comes(window(), "Small"));
  ASSERT_NE(openText(QStringLiteral("huge.pas"), hugeUnitOf("Huge")), nullptr);
  thread->onEnded = [this] { EXPECT_FALSE(holds(window(), "Huge")); };
  // The cycle under way may be one over the small unit.
  ASSERT_TRUE(support::waitUntil([begun = thread->begun, this] { return thread->begun > begun; }));
  ASSERT_NO_FATAL_FAILURE(runIntoMiddle());
  window()->closePage(window()->currentPage());
  ASSERT_TRUE(runCycles(3));
  EXPECT_TRUE(holds(window(), "Small"));
  expectNextIsParsed();
}

TEST_P(ClosingWhileParsing, AWindowLeavesTheThreadToTheOther) {
  openLive(unitOf("Small"));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  ASSERT_NE(openText(QStringLiteral("huge.pas"), hugeUnitOf("Huge")), nullptr);
  ASSERT_TRUE(support::waitUntil([begun = thread->begun, this] { return thread->begun > begun; }));
  ASSERT_NO_FATAL_FAILURE(runIntoMiddle());
  workspace.frameOf(second)->close();
  ASSERT_TRUE(support::waitUntil([this] { return workspace.windows().size() == 1; }));
  EXPECT_TRUE(comes(window(), "Small"));
  expectNextIsParsed();
}

TEST_P(ClosingWhileParsing, AWindowThatHasGoneAtOnceHurtsNoHandOver) {
  openLive(unitOf("Small"));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  ASSERT_NE(openText(QStringLiteral("huge.pas"), hugeUnitOf("Huge")), nullptr);
  ASSERT_TRUE(support::waitUntil([begun = thread->begun, this] { return thread->begun > begun; }));
  ASSERT_NO_FATAL_FAILURE(runIntoMiddle());
  desktop::MainWindow* const closing = workspace.frameOf(second);
  closing->close();
  QCoreApplication::sendPostedEvents(closing, QEvent::DeferredDelete); // before the thread is served again
  EXPECT_TRUE(comes(window(), "Small"));
}

TEST_P(ClosingWhileParsing, TheLastWindowAndShowingItAgainGoesOn) {
  openLive(hugeUnitOf("Huge"));
  ASSERT_NO_FATAL_FAILURE(runIntoMiddle());
  frame()->close();
  EXPECT_FALSE(frame()->isVisible());
  ASSERT_TRUE(runCycles(2));
  activate(window());
  expectNextIsParsed();
}

} // namespace
} // namespace together
