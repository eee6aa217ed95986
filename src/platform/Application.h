// SPDX-License-Identifier: MIT
// The application object and the screen: what the whole process has once.
#pragma once

#include "platform/Export.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <exception>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {

// The application: its main form, the components it owns, and the last resort for exceptions.
//
// Wherever the host calls an add-in (message, action, hook, timer) it catches what comes out and gives it to
// HandleException, so that no exception ever crosses the event loop. HandleException shows nothing inside the call: the
// message is queued for the main thread, and equal messages that wait together are reported once with their count.
class VIRELLE_PLATFORM TApplication : public QObject {
public:
  // Shows one message (UTF-8 turned to a string) that occurred `count` times. Called in the main thread from its event
  // loop.
  using TReporter = std::function<void(const QString& message, int count)>;

  TApplication();
  ~TApplication() override;

  // The form that the user sees first, or null while there is none.
  QWidget* MainForm() const { return mainForm_; }
  void SetMainForm(QWidget* form) { mainForm_ = form; }

  // The folder of the user's program data, ending in "/"; empty until the host has set it.
  const QString& ProgramDirectory() const { return programDirectory_; }
  void SetProgramDirectory(const QString& directory) { programDirectory_ = directory; }

  // Whether add-ins may greet with a splash window when they start; true at first.
  bool ShowSplash() const { return showSplash_; }
  void SetShowSplash(bool show) { showSplash_ = show; }

  // Takes ownership: a component that still lives when the application ends is freed then.
  void InsertComponent(QObject* component);

  // Queues the message of `error` for the reporter. Safe from any thread and at any time; never throws. While no event
  // loop runs the message waits; ReportPending delivers it.
  void HandleException(const std::exception_ptr& error) noexcept;
  // Replaces the reporter. An empty one, as at first, stands for writing to the debugger output.
  void SetReporter(TReporter reporter) { reporter_ = std::move(reporter); }
  // Delivers what waits, now. A reporter that throws does not keep the other messages back: its own goes to the
  // debugger output. Main thread.
  void ReportPending();

protected:
  // ReportPending, queued.
  void customEvent(QEvent* event) override;

private:
  void Report(const QString& message, int count);

  QPointer<QWidget> mainForm_;
  QString programDirectory_;
  bool showSplash_ = true;
  std::vector<QPointer<QObject>> components_;
  TReporter reporter_;
  std::mutex mutex_;
  std::vector<std::pair<QString, int>> pending_; // guarded by mutex_
  bool posted_ = false;                          // ReportPending is on its way; guarded by mutex_
};

// The open forms of the process. Main thread.
class VIRELLE_PLATFORM TScreen {
public:
  // All forms in the order of their creation. The list is a copy: forms may come and go while it is walked.
  std::vector<QWidget*> Forms() const;
  // Adds `form` at the end; it leaves the list by itself when it is destroyed.
  void AddForm(QWidget* form);

private:
  std::vector<QPointer<QWidget>> forms_;
};

// The one application object; it exists from the first call to the end of the process.
VIRELLE_PLATFORM TApplication& Application();
// The one screen object.
VIRELLE_PLATFORM TScreen& Screen();

// Calls `call` and hands whatever it throws to HandleException. Returns whether nothing was thrown.
template <class TCall> bool Guarded(TCall&& call) noexcept {
  try {
    std::forward<TCall>(call)();
    return true;
  } catch (...) {
    Application().HandleException(std::current_exception());
    return false;
  }
}

} // namespace platform
