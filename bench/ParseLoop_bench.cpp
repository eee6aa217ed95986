// SPDX-License-Identifier: MIT
// What the background parse costs while nothing is typed: its share of a processor, its cycles per second, and how
// long each of them holds the main thread, next to one copy of the text. Prints a Markdown table.
#include "OpenUnit.h"

#include "analysis/QVParseThread.h"
#include "editor/QVEditorProxy.h"
#include "toolbar/QVEditorToolbar.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <time.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds Span(4);
constexpr int CyclesToWarmUp = 5;
constexpr std::size_t Samples = 100;

double milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

// The processor time of the calling thread, in milliseconds.
double threadTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

template <class TWork> double timeOf(TWork&& work) {
  const auto start = Clock::now();
  work();
  return milliseconds(Clock::now() - start);
}

// The thread of the add-in, with a watch on what it does in the main thread. Its fields are the main thread's, but for
// the processor time, which is read while the thread waits in a call.
class WatchedParseThread : public quorvane::TQVParseThread {
public:
  WatchedParseThread() { Resume(); }
  ~WatchedParseThread() override {
    Terminate();
    WaitFor();
  }

  int cycles = 0;
  double workTime = 0; // of the processor, for this thread
  // Lets every second cycle copy `text` before it begins, in the same state of the caches, and keeps the times.
  const std::string* text = nullptr;
  std::vector<double> begins;
  std::vector<double> ends;
  std::vector<double> copies;

protected:
  void BeginParse() override {
    const bool copying = text != nullptr && cycles % 2 != 0;
    if (copying)
      copies.push_back(timeOf([this] {
        copy_.resize(text->size());
        std::memcpy(copy_.data(), text->data(), text->size());
      }));
    const double time = timeOf([this] { TQVParseThread::BeginParse(); });
    if (!copying)
      begins.push_back(time);
  }

  void EndParse() override {
    ends.push_back(timeOf([this] { TQVParseThread::EndParse(); }));
    workTime = latestTime_;
    ++cycles;
  }

  void Pause() override {
    latestTime_ = threadTime();
    // What was copied is read here, as the source is, so that its next copy too takes it away from this processor.
    benchmark::DoNotOptimize(std::hash<std::string>()(copy_));
    TQVParseThread::Pause();
  }

private:
  double latestTime_ = 0; // handed to the main thread with the next call, which orders the two
  std::string copy_;
};

template <class TDone> void runUntil(TDone&& done) {
  while (!done())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

struct Share {
  double Loop;       // of one processor
  double Main;       // of one processor, for the main thread, whatever it did
  double CyclesASec; // per second
};

Share measureShare(const WatchedParseThread& thread) {
  const auto start = Clock::now();
  const double work = thread.workTime;
  const double main = threadTime();
  const int cycles = thread.cycles;
  runUntil([&] { return Clock::now() - start >= Span; });
  const double wall = milliseconds(Clock::now() - start);
  return {(thread.workTime - work) / wall, (threadTime() - main) / wall, (thread.cycles - cycles) / wall * 1e3};
}

void measureLines(int lines) {
  const bench::OpenUnit unit(lines);
  quorvane::TQVEditorProxy::InjectExistingProxies();
  quorvane::RegisterEditorToolbar();
  {
    WatchedParseThread thread;
    runUntil([&] { return thread.cycles >= CyclesToWarmUp; });
    const Share share = measureShare(thread);
    thread.begins.clear();
    thread.ends.clear();
    const std::shared_ptr<const std::string> text = unit.servedText();
    thread.text = text.get();
    runUntil([&] { return thread.begins.size() > Samples && thread.copies.size() > Samples; });
    thread.text = nullptr;
    const double begin = bench::percentile(thread.begins, 0.5);
    const double end = bench::percentile(thread.ends, 0.5);
    const double copy = bench::percentile(thread.copies, 0.5);
    std::printf("| %d | %.0f | %.0f | %.1f | %.3f | %.3f | %.3f | %.2f |\n", lines, share.Loop * 100, share.CyclesASec,
                share.Main * 100, begin, end, copy, (begin + end) / copy);
  }
  quorvane::StopEditorToolbar();
  quorvane::TQVEditorProxy::RemoveExistingProxies();
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  std::printf("\nThe background parse while nothing is typed; shares of one processor, medians in milliseconds\n\n");
  std::printf("| lines | its thread, %% | cycles a second | main thread, %% | BeginParse | EndParse | one copy | "
              "halves / copy |\n|---|---|---|---|---|---|---|---|\n");
  for (const int lines : {1000, 10'000, 100'000})
    measureLines(lines);
  return EXIT_SUCCESS;
}
