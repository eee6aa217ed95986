// SPDX-License-Identifier: MIT
#include "platform/Thread.h"

#include "platform/Application.h"
#include "support/BusyProcessors.h"
#include "support/Wait.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QDialog>
#include <QStringList>
#include <QThread>
#include <QTimer>

#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

// A thread whose body is given as a function.
class TBody : public TThread {
public:
  explicit TBody(std::function<void(TBody&)> body) : Body(std::move(body)) {}
  ~TBody() override {
    Terminate();
    WaitFor();
  }

  using TThread::Synchronize;

private:
  void Execute() override { Body(*this); }

  std::function<void(TBody&)> Body;
};

TEST(Thread, IsCreatedSuspended) {
  std::atomic<bool> ran = false;
  TBody thread([&](TBody&) { ran = true; });
  thread.WaitFor();
  EXPECT_FALSE(ran);
  thread.Resume();
  thread.WaitFor();
  EXPECT_TRUE(ran);
}

TEST(Thread, StartsOnlyOnce) {
  std::atomic<int> runs = 0;
  TBody thread([&](TBody&) { ++runs; });
  thread.Resume();
  thread.WaitFor();
  thread.Resume();
  thread.WaitFor();
  EXPECT_EQ(runs, 1);
}

TEST(Thread, RunsItsBodyInAThreadOfItsOwn) {
  std::atomic<QThread*> where = nullptr;
  TBody thread([&](TBody&) { where = QThread::currentThread(); });
  thread.Resume();
  thread.WaitFor();
  EXPECT_NE(where, nullptr);
  EXPECT_NE(where, QThread::currentThread());
}

TEST(Thread, OfIdlePriorityHasTheLowestNicenessAndLeavesOthersTheirs) {
  const auto niceness = [] { return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid())); };
  const int own = niceness();
  int idle = -1;
  int normal = -1;
  TBody idleThread([&](TBody&) { idle = niceness(); });
  TBody normalThread([&](TBody&) { normal = niceness(); });
  idleThread.SetPriority(TThreadPriority::Idle);
  idleThread.Resume();
  idleThread.WaitFor();
  normalThread.Resume();
  normalThread.WaitFor();
  EXPECT_EQ(idle, 19);
  EXPECT_EQ(normal, own);
  EXPECT_EQ(niceness(), own);
}

TEST(Thread, SynchronizedCallRunsInTheMainThreadWhileTheThreadWaits) {
  QThread* where = nullptr;
  std::atomic<bool> isPast = false;
  TBody thread([&](TBody& self) {
    self.Synchronize([&] { where = QThread::currentThread(); });
    isPast = true;
  });
  thread.Resume();
  EXPECT_TRUE(support::waitUntil([&] { return isPast.load(); }));
  EXPECT_EQ(where, QThread::currentThread());
}

TEST(Thread, SynchronizedCallFromTheMainThreadIsAPlainCall) {
  TBody thread([](TBody&) {});
  bool ran = false;
  thread.Synchronize([&] { ran = true; });
  EXPECT_TRUE(ran);
}

TEST(Thread, WhatASynchronizedCallThrowsIsThrownInTheThread) {
  std::string caught;
  TBody thread([&](TBody& self) {
    try {
      self.Synchronize([] { throw std::runtime_error("no view"); });
    } catch (const std::runtime_error& error) {
      caught = error.what();
    }
  });
  thread.Resume();
  thread.WaitFor();
  EXPECT_EQ(caught, "no view");
}

TEST(Thread, WaitingServesTheCallsThatTheThreadMakes) {
  int calls = 0;
  TBody thread([&](TBody& self) {
    while (!self.Terminated() || calls < 100)
      self.Synchronize([&] { ++calls; });
  });
  thread.Resume();
  thread.Terminate();
  thread.WaitFor();
  EXPECT_GE(calls, 100);
}

TEST(Thread, IsStoppedWhileACallOfItWaits) {
  std::atomic<bool> isCalling = false;
  TBody thread([&](TBody& self) {
    isCalling = true;
    self.Synchronize([] {});
  });
  thread.Resume();
  // No event loop runs here, so the call is waiting or about to wait.
  while (!isCalling)
    QThread::yieldCurrentThread();
  thread.Terminate();
  thread.WaitFor();
}

TEST(Thread, IsServedWhileAModalDialogIsOpen) {
  QDialog dialog;
  bool ran = false;
  TBody thread([&](TBody& self) {
    self.Synchronize([&] {
      ran = dialog.isVisible();
      dialog.accept();
    });
  });
  QTimer::singleShot(0, &dialog, [&] { thread.Resume(); });
  dialog.exec();
  EXPECT_TRUE(ran);
}

TEST(Thread, CannotBeWaitedForInACallThatItWaitsFor) {
  std::string caught;
  TBody thread([](TBody&) {});
  TBody* other = nullptr;
  TBody caller([&](TBody& self) {
    self.Synchronize([&] {
      try {
        other->WaitFor();
      } catch (const EThread& error) {
        caught = error.what();
      }
    });
  });
  other = &caller;
  caller.Resume();
  caller.WaitFor();
  EXPECT_EQ(caught, "A thread cannot be waited for in a call that it waits for");
}

TEST(Thread, WhatEscapesItsBodyIsReportedOnceInTheMainThread) {
  QStringList reports;
  Application().SetReporter([&](const QString& message, int count) {
    EXPECT_EQ(QThread::currentThread(), qApp->thread());
    reports += QStringLiteral("%1 x%2").arg(message).arg(count);
  });
  TBody thread([](TBody&) { throw EThread("out of luck"); });
  thread.Resume();
  thread.WaitFor();
  EXPECT_TRUE(support::waitUntil([&] { return !reports.isEmpty(); }));
  QApplication::processEvents();
  Application().SetReporter({});
  EXPECT_EQ(reports, QStringList{QStringLiteral("out of luck x1")});
}

TEST(Thread, ThatFreesItselfIsGoneAfterItsBody) {
  auto flag = std::make_shared<int>();
  const std::weak_ptr<int> alive = flag;
  auto* thread = new TBody([flag = std::move(flag)](TBody&) {});
  thread->SetFreeOnTerminate(true);
  thread->Resume();
  EXPECT_TRUE(support::waitUntil([&] { return alive.expired(); }));
}

TEST(Thread, StopsThoughAllProcessorsAreBusy) {
  const support::BusyProcessors busy;
  std::atomic<int> steps = 0;
  TBody thread([&](TBody& self) {
    while (!self.Terminated())
      ++steps;
  });
  thread.SetPriority(TThreadPriority::Idle);
  thread.Resume();
  thread.Terminate();
  thread.WaitFor();
}

} // namespace
} // namespace platform
