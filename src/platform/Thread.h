// SPDX-License-Identifier: MIT
// A thread of an add-in, and its way into the main thread.
#pragma once

#include "platform/Errors.h"
#include "platform/Export.h"

#include <atomic>
#include <functional>
#include <memory>

namespace platform {

// The error of threads.
class VIRELLE_PLATFORM EThread : public Exception {
public:
  using Exception::Exception;
  ~EThread() override;
};

// The priorities of a thread. Idle is the lowest niceness. It is not the scheduler's idle class, in which a thread gets
// next to nothing while others keep all processors busy: no ordinary user may raise it again, and so nobody could wait
// for it. At the lowest niceness it gets one or two hundredths, so a body that looks at Terminated often is soon at its
// end.
enum class TThreadPriority { Idle, Normal };

// A thread whose body is Execute. It is created suspended, so that it can be set up; Resume starts it, once. It stops
// by itself: Terminate only asks, and Execute looks at Terminated where it can leave off. A thread that is resumed must
// be waited for before it is destroyed, since Execute uses what the derived class holds.
//
// All of it is for the main thread, but for Terminated and, in the thread itself, Synchronize. What escapes Execute
// goes to TApplication::HandleException, once.
class VIRELLE_PLATFORM TThread {
public:
  TThread();
  virtual ~TThread();

  TThread(const TThread&) = delete;
  TThread& operator=(const TThread&) = delete;

  // Before Resume. Normal at first.
  void SetPriority(TThreadPriority priority) { priority_ = priority; }
  TThreadPriority Priority() const { return priority_; }

  // Whether the thread destroys itself when Execute returns; then nobody else may. False at first. Before Resume.
  void SetFreeOnTerminate(bool value) { freeOnTerminate_ = value; }
  bool FreeOnTerminate() const { return freeOnTerminate_; }

  // Starts Execute. Raises EThread if the system gives no thread.
  void Resume();

  // Asks Execute to return.
  void Terminate() { terminated_ = true; }
  bool Terminated() const { return terminated_; }

  // Waits until Execute has returned; at once for a thread that was never resumed. Meanwhile the calls that the thread
  // synchronises are served, so it may be waiting for one. Calls of other threads stay where they are. Raises EThread
  // inside of a call that this thread has synchronised, which could never end.
  void WaitFor();

protected:
  // The body; runs in the new thread.
  virtual void Execute() = 0;

  // Runs `call` in the main thread and waits for it. What it throws is thrown here. In the main thread it is a plain
  // call. The main thread serves it from its event loop or from WaitFor, whichever comes first, also while a modal
  // dialog is open.
  void Synchronize(const std::function<void()>& call);

private:
  class TImpl;

  void Run() noexcept;

  std::unique_ptr<TImpl> impl_;
  TThreadPriority priority_ = TThreadPriority::Normal;
  bool freeOnTerminate_ = false;
  std::atomic<bool> terminated_ = false;
};

} // namespace platform
