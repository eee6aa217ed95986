// SPDX-License-Identifier: MIT
#include "analysis/QVParseThread.h"

#include "host/QVIDEHackUtils.h"
#include "host/QVSourceUtils.h"
#include "platform/Debug.h"
#include "platform/Errors.h"

#include <QFileInfo>
#include <QMessageBox>

#include <chrono>
#include <thread>
#include <utility>

namespace quorvane {

namespace {

constexpr const char* kUnit = "QVParseThread";
constexpr std::chrono::milliseconds kPause(1);

// Writes a line when it goes.
struct TExitLine {
  const char* Line;
  ~TExitLine() { platform::OutputDebugString(Line); }
};

} // namespace

TQVParseThread* QVThread = nullptr;

TQVParseThread::TQVParseThread() {
  SetPriority(platform::TThreadPriority::Idle);
  SetFreeOnTerminate(false);
}

TQVParseThread::~TQVParseThread() {
  Terminate();
  WaitFor();
}

void TQVParseThread::Execute() {
  platform::OutputDebugString("Execute Parse Thread");
  const TExitLine exit{"Exit Parse Thread"};
  try {
    RunCycles();
  } catch (...) {
    Synchronize(ThreadDeathError);
  }
}

void TQVParseThread::RunCycles() {
  const std::function<void()> steps[] = {
      [this] { Pause(); },
      [this] { SynchronizeDropping(&TQVParseThread::BeginParse); },
      [this] {
        if (FIsPascal)
          Parse();
      },
      [this] { SynchronizeDropping(&TQVParseThread::EndParse); },
      [this] { FPasInfo.reset(); },
  };
  for (;;)
    for (const auto& step : steps) {
      if (Terminated())
        return;
      step();
    }
}

void TQVParseThread::Pause() {
  std::this_thread::sleep_for(kPause);
}

void TQVParseThread::SynchronizeDropping(void (TQVParseThread::*half)()) {
  Synchronize([this, half] {
    try {
      (this->*half)();
    } catch (...) {
      // The view, the buffer or the proxy has gone; the next cycle asks anew.
    }
  });
}

void TQVParseThread::BeginParse() {
  FEditView = GetTopView();
  FIsPascal = false;
  if (!FEditView)
    return;
  const auto buffer = FEditView->GetBuffer();
  const QString fileName = buffer->GetFileName();
  FIsPascal = IsPascalFile(fileName);
  if (!FIsPascal)
    return;
  FSourceView.reset();
  FProxy = TQVEditorProxy::GetProxy(FEditView);
  platform::Require(!FProxy.isNull(), kUnit);
  FCaretPos = FProxy->LinearPos();
  CountStillness();
  const auto reader = buffer->CreateReader();
  platform::Require(reader != nullptr, kUnit);
  GetSourceFromReader(reader, FSource);
  FSourceView = FEditView;
  FUnitName = QFileInfo(fileName).completeBaseName().toStdString();
}

void TQVParseThread::CountStillness() {
  FStillCount = NextStillCount(FStillCount, FLastView == FEditView && FLastCaretPos == FCaretPos);
  FLastView = FEditView;
  FLastCaretPos = FCaretPos;
}

// An error that ends the parse, of whatever kind, leaves the outline with what came before it.
void TQVParseThread::Parse() {
  try {
    ParseSource();
  } catch (...) {
  }
}

void TQVParseThread::ParseSource() {
  FPasInfo = std::make_shared<TQVPasInfo>();
  std::string stream;
  stream.reserve(FSource.size() + 1);
  stream = FSource;
  TQVPasParser parser;
  parser.SetPasInfo(FPasInfo);
  parser.SetThread(this);
  parser.InitDefines();
  try {
    parser.Run(FUnitName, &stream);
  } catch (...) {
    // What was read so far is of use.
  }
  FPasInfo->GetMethods().Settle();
  FPasInfo->GetClasses().Settle();
}

// The proxy of the view whose text is parsed; null if that view is on top no more.
TQVEditorProxy* TQVParseThread::ProxyOnTop() const {
  if (!FSourceView || FSourceView != FEditView || GetTopView() != FEditView)
    return nullptr;
  return TQVEditorProxy::GetProxy(FEditView);
}

void TQVParseThread::EndParse() {
  if (!FIsPascal || !FPasInfo)
    return;
  TQVEditorProxy* const proxy = ProxyOnTop();
  if (proxy == nullptr)
    return;
  proxy->SetPasInfo(FPasInfo);
  FLastCaretPos = FCaretPos;
}

void TQVParseThread::UpdateView() {
  FEditView = GetTopView();
}

void TQVParseThread::ThreadDeathError() {
  throw platform::EThread("Quorvane parse thread has died unexpectedly.  Delphi should continue to operate normally, "
                          "however, Quorvane may experience difficulties.  Restarting Delphi is recommended.");
}

// Once the caret has moved the error may be mended, or stand elsewhere.
void TQVParseThread::UnderlineErr(std::int32_t col, std::int32_t line, std::int32_t length) {
  TQVEditorProxy* const proxy = ProxyOnTop();
  if (proxy != nullptr && proxy->LinearPos() == FCaretPos)
    proxy->UnderlineErr(col, line, length);
}

void TQVParseThread::ShowMessage(const std::string& text) {
  QMessageBox::information(nullptr, QString(), QString::fromStdString(text));
}

void StartQVParseThread() {
  auto thread = std::make_unique<TQVParseThread>();
  thread->Resume();
  QVThread = thread.release();
}

void StopQVParseThread() {
  platform::OutputDebugString("QVThread.Terminage");
  if (QVThread)
    QVThread->Terminate();
  platform::OutputDebugString("QVThread.Free");
  if (QVThread)
    QVThread->WaitFor();
  delete std::exchange(QVThread, nullptr);
  platform::OutputDebugString("QVParse Thread Finalized");
}

} // namespace quorvane
