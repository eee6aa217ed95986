// SPDX-License-Identifier: MIT
// Work spread over threads, whose results come back in order.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace quorvane {

// Gives threads that are started from now on a stack that a parse of any depth fits in, whatever the shell's limit is.
void SetThreadStacks();

// Does the pieces 0 to count-1 of some work on several threads and hands out their results in order. The threads start
// at once and run ahead of the results taken by a few pieces each, so memory does not grow with the number of pieces.
// Destroying it early waits for the pieces at work and leaves the rest undone.
template <typename TResult> class TInOrder {
public:
  // `work` is called in several threads at a time and must not throw.
  TInOrder(std::size_t count, std::size_t threads, std::function<TResult(std::size_t piece)> work)
      : FCount(count), FAhead(threads * PiecesAhead), FWork(std::move(work)) {
    SetThreadStacks();
    for (std::size_t thread = 0; thread < std::min(threads, count); ++thread)
      FThreads.emplace_back([this](const std::stop_token& stop) { Work(stop); });
  }

  ~TInOrder() {
    for (std::jthread& thread : FThreads)
      thread.request_stop();
  }

  TInOrder(const TInOrder&) = delete;
  TInOrder& operator=(const TInOrder&) = delete;

  // Waits for the result of the next piece. To be called once for each piece, from one thread.
  TResult Next() {
    std::unique_lock lock(FMutex);
    FChanged.wait(lock, [this] { return FDone.contains(FTaken); });
    TResult result = std::move(FDone.extract(FTaken).mapped());
    ++FTaken;
    lock.unlock();
    FChanged.notify_all();
    return result;
  }

private:
  static constexpr std::size_t PiecesAhead = 16;

  void Work(const std::stop_token& stop) {
    std::unique_lock lock(FMutex);
    while (FChanged.wait(lock, stop, [this] { return FStarted == FCount || FStarted < FTaken + FAhead; })) {
      if (stop.stop_requested() || FStarted == FCount)
        return;
      const std::size_t piece = FStarted++;
      lock.unlock();
      TResult result = FWork(piece);
      lock.lock();
      FDone.emplace(piece, std::move(result));
      FChanged.notify_all();
    }
  }

  const std::size_t FCount;
  const std::size_t FAhead;
  const std::function<TResult(std::size_t)> FWork;
  std::mutex FMutex;
  std::condition_variable_any FChanged;
  std::map<std::size_t, TResult> FDone;
  std::size_t FStarted = 0;
  std::size_t FTaken = 0;
  std::vector<std::jthread> FThreads; // last, so that they end before what they use
};

} // namespace quorvane
