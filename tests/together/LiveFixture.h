// SPDX-License-Identifier: MIT
// The whole live add-in in the real host: toolbars, gutters, proxies, and a parse thread that a test can watch.
#pragma once

#include "together/TogetherFixture.h"

#include "analysis/QVParseThread.h"
#include "toolbar/QVEditorToolbar.h"
#include "toolbar/QVLineNumbers.h"
#include "toolbar/QVLocalVars.h"
#include "toolbar/QVNameCombo.h"

#include <QThread>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace together {

// The thread with its ways into the main thread counted. It runs at the usual priority: at the lowest one a test would
// wait for whatever else the machine is doing.
class WatchedThread : public quorvane::TQVParseThread {
public:
  WatchedThread() { SetPriority(platform::TThreadPriority::Normal); }
  ~WatchedThread() override { stop(); }

  void stop() {
    Terminate();
    WaitFor();
  }

  // Main thread only, as the functions are called there.
  int begun = 0;                 // cycles whose first half has run
  int ended = 0;                 // and whose second half has, too
  int hops = 0;                  // calls on behalf of the parser that have been served
  std::function<void()> onBegun; // after a first half: the parse begins when it returns
  std::function<void()> onEnded; // after a second half
  std::function<void()> onHop;   // after a call on behalf of the parser

  // Whether the thread waits for the main thread, or is just about to. Any thread.
  std::atomic<bool> isWaiting = false;

protected:
  void BeginParse() override {
    ++begun;
    TQVParseThread::BeginParse();
    if (onBegun)
      onBegun();
  }
  void EndParse() override {
    ++ended;
    TQVParseThread::EndParse();
    if (onEnded)
      onEnded();
  }
  void Synchronize(const std::function<void()>& call) override {
    isWaiting = true;
    TThread::Synchronize([&] {
      const int halves = begun + ended;
      call();
      if (begun + ended != halves)
        return;
      ++hops;
      if (onHop)
        onHop();
    });
    isWaiting = false;
  }
};

class LiveFixture : public TogetherFixture {
protected:
  ~LiveFixture() override {
    thread.reset();
    quorvane::StopEditorToolbar();
  }

  // Opens a file in a window with the whole add-in, whose thread is at work.
  void openLive(const QByteArray& bytes, const char* name = "unit.pas") {
    openWithAddIn(bytes, name);
    quorvane::RegisterEditorToolbar();
    thread = std::make_unique<WatchedThread>();
    thread->Resume();
    support::settle();
  }

  // Runs until so many further cycles have ended.
  bool runCycles(int count) {
    const int goal = thread->ended + count;
    return support::waitUntil([&] { return thread->ended >= goal; });
  }
  // Runs until the thread is parsing.
  bool runIntoParse() {
    return support::waitUntil([&] { return thread->begun > thread->ended && !thread->isWaiting; });
  }
  // Lets the thread come to where it waits for the main thread, which serves nothing meanwhile.
  void letThreadWait() const {
    while (!thread->isWaiting)
      QThread::yieldCurrentThread();
  }

  static quorvane::TQVEditorProxy* proxyOf(const desktop::TEditWindow* window) {
    return quorvane::TQVEditorProxy::GetProxy(*window);
  }
  static quorvane::TQVEditorToolbar& toolbarOf(const desktop::TEditWindow* window) {
    return *quorvane::GetEditorToolbar(window->editor());
  }
  static quorvane::TQVNameCombo& methodsOf(const desktop::TEditWindow* window) {
    return *toolbarOf(window).findChild<quorvane::TQVNameCombo*>(QStringLiteral("Methods"));
  }
  // Whether the outline of a window is the one with exactly this routine.
  static bool holds(const desktop::TEditWindow* window, const std::string& routine) {
    const auto outline = proxyOf(window)->GetPasInfo();
    return outline != nullptr && outline->GetMethods().size() == 1 && outline->GetMethods().contains(routine);
  }
  bool comes(const desktop::TEditWindow* window, const std::string& routine) {
    return support::waitUntil([&] { return holds(window, routine); });
  }

  static int redPixelsOf(const desktop::TEditControl& control) { return countOf(control.picture(), Qt::red); }

  std::unique_ptr<WatchedThread> thread;
};

// A unit with one routine.
inline QByteArray unitOf(const QByteArray& routine) {
  return "unit unit1;\ninterface\nimplementation\nprocedure " + routine + ";\nbegin\nend;\nend.\n";
}

// The same with so many lines in the routine that a parse of it is a while.
inline QByteArray hugeUnitOf(const QByteArray& routine, int lines = 60'000) {
  return "unit unit1;\ninterface\nimplementation\nprocedure " + routine + ";\nbegin\n" +
         QByteArray("  x := y + f(z[1], 2) * 3;\n").repeated(lines) + "end;\nend.\n";
}

// A unit with an error on each of so many lines.
inline QByteArray faultyUnit(int lines) {
  return "unit unit1;\ninterface\nimplementation\nprocedure Faulty;\nbegin\n" +
         QByteArray("  if a b;\n").repeated(lines) + "end;\nend.\n";
}

} // namespace together
