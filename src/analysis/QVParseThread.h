// SPDX-License-Identifier: MIT
// The thread that parses the unit on top, over and over.
#pragma once

#include "analysis/QVPasInfo.h"
#include "analysis/QVPasParser.h"
#include "editor/QVEditorProxy.h"
#include "platform/ota/Editor.h"
#include "platform/Thread.h"

#include <QPointer>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace quorvane {

// Parses the unit in the topmost editor for as long as the package is loaded. Each cycle takes the text of the buffer
// in the main thread, runs the outline parser over it in this one, and gives the outline to the proxy of the view in
// the main thread again, if that view is still on top. Errors that the parser meets are underlined on the way, once the
// caret has stood still for long enough.
//
// Nothing tells whether the text has changed: every cycle parses all of it, and only a pause of a millisecond and the
// idle priority hold the thread back. Intended.
//
// What the thread uses of the host, the proxy among it, is touched in the main thread alone, by the operations that
// Synchronize runs there; meanwhile this thread waits. So none of the fields needs a lock. The unit's start creates the
// one instance, its stop ends it and waits for the parse under way.
class TQVParseThread : public platform::TThread, private IQVParseThread {
public:
  // Suspended, of idle priority.
  TQVParseThread();
  ~TQVParseThread() override;

  // Makes the view that is on top now this thread's. Main thread; the loop does not call it.
  void UpdateView();

  // Raises the error that says that this thread has died. Main thread.
  [[noreturn]] static void ThreadDeathError();

protected:
  void Execute() override;

  // The two halves of a cycle that run in the main thread. BeginParse asserts that the view has a proxy; what either
  // throws is dropped by the loop.
  virtual void BeginParse();
  virtual void EndParse();

  // The rest between two cycles.
  virtual void Pause();

private:
  std::int32_t CaretPos() const override { return FCaretPos; }
  // None when the thread is to end: then nothing is worth a way to the main thread any more.
  std::int32_t StillCount() const override { return Terminated() ? 0 : FStillCount; }
  bool IsEnding() const override { return Terminated(); }
  void Synchronize(const std::function<void()>& call) override { TThread::Synchronize(call); }
  void UnderlineErr(std::int32_t col, std::int32_t line, std::int32_t length) override;
  void ShowMessage(const std::string& text) override;

  void RunCycles();
  void SynchronizeDropping(void (TQVParseThread::*half)());
  void CountStillness();
  void Parse();
  void ParseSource();
  TQVEditorProxy* ProxyOnTop() const;

  std::string FSource; // of the buffer on top; its capacity is kept
  std::shared_ptr<platform::IOTAEditView> FEditView;
  std::shared_ptr<platform::IOTAEditView> FSourceView; // whose text the source is; another's gets nothing of it
  bool FIsPascal = false;
  std::int32_t FCaretPos = 0; // index (from 0) into the source
  std::string FUnitName;
  std::shared_ptr<IQVPasInfo> FPasInfo; // of the cycle under way
  std::shared_ptr<platform::IOTAEditView> FLastView;
  std::int32_t FLastCaretPos = 0;
  QPointer<TQVEditorProxy> FProxy;
  std::int32_t FStillCount = 0; // 10 for each cycle since view or caret changed, up to MaxStillCount
};

// How long a stillness is counted: an editor may stand open over many weekends.
inline constexpr std::int32_t MaxStillCount = 1'000'000'000;

// The count after a cycle that saw the caret still or not.
constexpr std::int32_t NextStillCount(std::int32_t count, bool isStill) {
  constexpr std::int32_t step = 10;
  if (!isStill)
    return 0;
  return count < MaxStillCount ? count + step : MaxStillCount;
}

// The one thread, or null while the unit is not started.
extern TQVParseThread* QVThread;

// Start and stop of the unit. The stop waits for the parse under way, which ends early then. It raises EThread inside
// of a call that the thread waits for; the thread ends after that call, and is never freed.
void StartQVParseThread();
void StopQVParseThread();

} // namespace quorvane
