// SPDX-License-Identifier: MIT
#include "tools/InOrder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <thread>

namespace quorvane {
namespace {

TEST(InOrder, HandsOutResultsInOrderWhicheverIsDoneFirst) {
  std::atomic<bool> isSecondDone = false;
  TInOrder<std::size_t> results(2, 2, [&isSecondDone](std::size_t piece) {
    if (piece == 0)
      isSecondDone.wait(false);
    else {
      isSecondDone = true;
      isSecondDone.notify_all();
    }
    return piece * 10;
  });
  EXPECT_EQ(results.Next(), 0U);
  EXPECT_EQ(results.Next(), 10U);
}

TEST(InOrder, DoesEachPieceOnce) {
  constexpr std::size_t Count = 1000;
  std::atomic<std::size_t> done = 0;
  TInOrder<std::size_t> results(Count, 4, [&done](std::size_t piece) {
    ++done;
    return piece;
  });
  for (std::size_t piece = 0; piece < Count; ++piece)
    ASSERT_EQ(results.Next(), piece);
  EXPECT_EQ(done, Count);
}

// 16 pieces for each thread; the first is at work until the others are done.
TEST(InOrder, RunsAheadByAFewPiecesOnly) {
  constexpr std::size_t Ahead = 32;
  std::atomic<std::size_t> started = 0;
  std::atomic<bool> mayEnd = false;
  TInOrder<std::size_t> results(10 * Ahead, 2, [&](std::size_t piece) {
    ++started;
    started.notify_all();
    if (piece == 0)
      mayEnd.wait(false);
    return piece;
  });
  for (std::size_t seen = started; seen < Ahead; seen = started)
    started.wait(seen);
  EXPECT_EQ(started, Ahead);
  mayEnd = true;
  mayEnd.notify_all();
  EXPECT_EQ(results.Next(), 0U);
}

TEST(InOrder, LeavesTheRestUndoneWhenItGoes) {
  constexpr std::size_t Count = 1000;
  std::atomic<std::size_t> done = 0;
  {
    TInOrder<int> results(Count, 2, [&done](std::size_t) {
      ++done;
      return 0;
    });
    results.Next();
  }
  EXPECT_LE(done, 34U);
}

TEST(InOrder, NoPiecesAreNoWork) {
  const TInOrder<int> results(0, 8, [](std::size_t) { return 0; });
}

} // namespace
} // namespace quorvane
