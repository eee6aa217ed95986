// SPDX-License-Identifier: MIT
#include "tools/InOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
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

// Before each result is taken the threads have gone as far as they may, and are given the time to go too far.
TEST(InOrder, RunsAheadByAFewPiecesOnly) {
  constexpr std::size_t Threads = 2;
  constexpr std::size_t Ahead = TInOrder<std::size_t>::Ahead(Threads);
  constexpr std::size_t Count = 300;
  std::atomic<std::size_t> started = 0;
  std::atomic<std::size_t> asked = 0; // how many results, the one being waited for included
  std::atomic<std::size_t> tooEarly = 0;
  TInOrder<std::size_t> results(Count, Threads, [&](std::size_t piece) {
    if (piece >= asked + Ahead)
      ++tooEarly;
    ++started;
    started.notify_all();
    return piece;
  });
  for (std::size_t piece = 0; piece < Count; ++piece) {
    for (std::size_t seen = started; seen < std::min(piece + Ahead, Count); seen = started)
      started.wait(seen);
    for (int turn = 0; turn < 100; ++turn)
      std::this_thread::yield();
    ++asked;
    ASSERT_EQ(results.Next(), piece);
  }
  EXPECT_EQ(tooEarly, 0U);
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
  EXPECT_LE(done, 1 + TInOrder<int>::Ahead(2));
}

TEST(InOrder, NoPiecesAreNoWork) {
  const TInOrder<int> results(0, 8, [](std::size_t) { return 0; });
}

} // namespace
} // namespace quorvane
