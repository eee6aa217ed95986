// SPDX-License-Identifier: MIT
#include "platform/Thread.h"

#include "platform/Application.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <sys/resource.h>
#include <unistd.h>

#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

namespace platform {

namespace {

// A parser descends deep into source that nests deep. Only what is used is ever backed by memory.
constexpr unsigned kStackSize = 16U * 1024 * 1024;

// A niceness is a thread's own in Linux.
constexpr int lowestNiceness = 19;

bool IsMainThread() {
  return QCoreApplication::instance() == nullptr || QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace

EThread::~EThread() = default;

// The system's thread, and the one call that may be on its way to the main thread. The object lives in the main thread,
// where the queued half of a call arrives; with the object it is dropped.
class TThread::TImpl : public QThread {
public:
  explicit TImpl(TThread& owner) : owner_(owner) { setStackSize(kStackSize); }

  void Synchronize(const std::function<void()>& call) {
    Offer(call);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return call_ == nullptr; });
    if (const std::exception_ptr error = std::exchange(error_, nullptr)) {
      lock.unlock();
      std::rethrow_exception(error);
    }
  }

  // Main thread: serves calls until the body has returned; at once when it has.
  void ServeToTheEnd() {
    for (;;) {
      {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return done_ || (call_ != nullptr && !serving_); });
        if (done_)
          break;
      }
      Serve();
    }
    wait();
  }

  // Main thread, which alone changes it: so no lock, for which the main thread might have to wait.
  bool IsServing() const { return serving_; }

  bool WasStarted() const { return isRunning() || isFinished(); }

protected:
  void run() override {
    owner_.Run();
    const std::lock_guard lock(mutex_);
    done_ = true;
    changed_.notify_all();
  }

  // The event of Offer.
  void customEvent(QEvent*) override { Serve(); }

private:
  // Main thread: runs the call that waits, if there is one that nobody has begun to run.
  void Serve() {
    std::unique_lock lock(mutex_);
    if (call_ == nullptr || serving_)
      return;
    serving_ = true;
    lock.unlock();
    std::exception_ptr error;
    try {
      (*call_)();
    } catch (...) {
      error = std::current_exception();
    }
    lock.lock();
    error_ = error;
    serving_ = false;
    call_ = nullptr;
    changed_.notify_all();
  }

  // Leaves the call where WaitFor finds it, and an event for the main thread. The lock is not held while the event is
  // sent: the main thread wakes up by it, and must not have to wait until this thread, which may be of the lowest
  // priority, comes to give the lock back.
  void Offer(const std::function<void()>& call) {
    {
      const std::lock_guard lock(mutex_);
      call_ = &call;
      changed_.notify_all();
    }
    try {
      QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    } catch (...) {
      TakeBack();
      throw;
    }
  }

  void TakeBack() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !serving_; });
    call_ = nullptr;
  }

  TThread& owner_;
  std::mutex mutex_;
  std::condition_variable changed_;
  const std::function<void()>* call_ = nullptr; // of the thread that waits; guarded by mutex_, as all below
  std::exception_ptr error_;                    // what that call threw
  bool serving_ = false;                        // the main thread is in that call; changed by it alone
  bool done_ = false;                           // the body has returned
};

TThread::TThread() : impl_(std::make_unique<TImpl>(*this)) {}

TThread::~TThread() {
  Terminate();
  Guarded([this] { WaitFor(); });
}

void TThread::Resume() {
  if (impl_->WasStarted())
    return;
  if (freeOnTerminate_)
    QObject::connect(impl_.get(), &QThread::finished, QCoreApplication::instance(), [this] {
      WaitFor();
      delete this;
    });
  impl_->start();
  if (!impl_->WasStarted())
    throw EThread("The system gives no further thread");
}

void TThread::WaitFor() {
  if (!impl_->WasStarted())
    return;
  if (impl_->IsServing())
    throw EThread("A thread cannot be waited for in a call that it waits for");
  impl_->ServeToTheEnd();
}

void TThread::Synchronize(const std::function<void()>& call) {
  if (IsMainThread())
    call();
  else
    impl_->Synchronize(call);
}

void TThread::Run() noexcept {
  if (priority_ == TThreadPriority::Idle)
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), lowestNiceness);
  Guarded([this] { Execute(); });
}

} // namespace platform
