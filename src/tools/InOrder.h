// SPDX-License-Identifier: MIT
// Work spread over threads, whose results come back in order.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace quorvane {

// Does the pieces 0 to count-1 of some work on several threads and hands out their results in order. The threads start
// at once and run ahead of the results taken by a few pieces, so memory does not grow with the number of pieces.
// Destroying it early waits for the pieces at work and leaves the rest undone.
template <typename TResult> class TInOrder {
public:
  // `work` is called in several threads at a time; it and the moves of its results must not throw. Of the threads as
  // many are used as can be started; throws std::system_error if there is none.
  TInOrder(std::size_t count, std::size_t threads, std::function<TResult(std::size_t piece)> work)
      : FCount(count), FWork(std::move(work)), FDone(Ahead(threads)) {
    const std::size_t wanted = std::min(threads, count);
    FThreads.reserve(wanted);
    while (FThreads.size() < wanted && StartThread())
      ;
  }

  ~TInOrder() {
    for (std::jthread& thread : FThreads)
      thread.request_stop();
  }

  TInOrder(const TInOrder&) = delete;
  TInOrder& operator=(const TInOrder&) = delete;

  // By how many pieces so many threads run ahead: a piece starts only when all that come as many places before it have
  // been taken. The few more than there are threads keep these busy while one of them is at a long piece.
  static constexpr std::size_t Ahead(std::size_t threads) { return threads + 8; }

  // Waits for the result of the next piece. To be called once for each piece, from one thread.
  TResult Next() {
    std::unique_lock lock(FMutex);
    std::optional<TResult>& place = PlaceOf(FTaken);
    FChanged.wait(lock, [&place] { return place.has_value(); });
    TResult result = std::move(*place);
    place.reset();
    ++FTaken;
    lock.unlock();
    FChanged.notify_all();
    return result;
  }

private:
  // Says whether there is one thread more. Doing with fewer is better than failing.
  bool StartThread() {
    try {
      FThreads.emplace_back([this](const std::stop_token& stop) { Work(stop); });
      return true;
    } catch (const std::system_error&) {
      if (FThreads.empty())
        throw;
      return false;
    }
  }

  std::optional<TResult>& PlaceOf(std::size_t piece) { return FDone[piece % FDone.size()]; }

  void Work(const std::stop_token& stop) {
    std::unique_lock lock(FMutex);
    while (FChanged.wait(lock, stop, [this] { return FStarted == FCount || FStarted < FTaken + FDone.size(); })) {
      if (stop.stop_requested() || FStarted == FCount)
        return;
      const std::size_t piece = FStarted++;
      lock.unlock();
      TResult result = FWork(piece);
      lock.lock();
      PlaceOf(piece).emplace(std::move(result));
      FChanged.notify_all();
    }
  }

  const std::size_t FCount;
  const std::function<TResult(std::size_t)> FWork;
  std::mutex FMutex;
  std::condition_variable_any FChanged;
  std::vector<std::optional<TResult>> FDone; // the results not yet taken, each at its piece's number modulo the size
  std::size_t FStarted = 0;
  std::size_t FTaken = 0;
  std::vector<std::jthread> FThreads; // last, so that they end before what they use
};

} // namespace quorvane
