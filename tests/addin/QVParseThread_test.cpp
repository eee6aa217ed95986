// SPDX-License-Identifier: MIT
#include "analysis/QVParseThread.h"

#include "AddinFixture.h"
#include "support/Wait.h"

#include <QThread>

#include <atomic>
#include <stdexcept>
#include <utility>

namespace quorvane {
namespace {

const char* const kUnitText = "unit unit1;\r\ninterface\r\ntype TFoo = class end;\r\nimplementation\r\n"
                              "procedure Bar;\r\nbegin\r\n  x := 1;\r\nend;\r\nend.\r\n";
const char* const kFaultyText = "unit unit1;\r\ninterface\r\nimplementation\r\nprocedure Bar;\r\nbegin\r\n"
                                "  if a b;\r\nend;\r\nend.\r\n";

// The thread with its steps counted, and things that happen in between given by the test.
class TWatchedThread : public TQVParseThread {
public:
  // The idle class would let the tests wait for whatever else the machine is doing.
  TWatchedThread() { SetPriority(platform::TThreadPriority::Normal); }
  ~TWatchedThread() override { Stop(); }

  void Stop() {
    Terminate();
    WaitFor();
  }

  std::atomic<int> Pauses = 0;
  std::function<void()> OnPause; // in the thread
  int Begun = 0;
  int Ended = 0;
  std::function<void()> OnBegin; // in the main thread, before the half runs
  std::function<void()> OnEnd;

protected:
  void Pause() override {
    ++Pauses;
    if (OnPause)
      OnPause();
  }
  void BeginParse() override {
    ++Begun;
    if (OnBegin)
      OnBegin();
    TQVParseThread::BeginParse();
  }
  void EndParse() override {
    ++Ended;
    if (OnEnd)
      OnEnd();
    TQVParseThread::EndParse();
  }
};

class QVParseThread : public ProxyTest {
protected:
  QVParseThread() { Show(kUnitText, 40, 12, 0); }
  ~QVParseThread() override { Thread.Stop(); }

  // Runs the thread until `cycles` more have ended.
  void RunCycles(int cycles) {
    const int goal = Thread.Ended + cycles;
    Thread.Resume();
    EXPECT_TRUE(support::waitUntil([&] { return Thread.Ended >= goal; }));
  }

  bool IsRed() {
    const QImage& picture = Editor().Picture();
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixelColor(x, y) == QColor(255, 0, 0))
          return true;
    return false;
  }
  // Runs `action` while the thread waits for an error to be marked.
  void DuringTheFirstMark(std::function<void()> action) {
    Editor().OnBeginDrawing = [this, action = std::move(action), done = false]() mutable {
      if (!std::exchange(done, true))
        action();
    };
  }
  void WipeRed() { Editor().Send(platform::WM_PAINT); }

  TWatchedThread Thread;
};

TEST_F(QVParseThread, HandsTheOutlineOfTheUnitOnTopToItsProxy) {
  RunCycles(2);
  const auto outline = Proxy->GetPasInfo();
  ASSERT_NE(outline, nullptr);
  EXPECT_TRUE(outline->GetClasses().contains("TFoo"));
  EXPECT_TRUE(outline->GetMethods().contains("Bar"));
}

TEST_F(QVParseThread, NamesTheRoutineAtTheCaret) {
  PutCaret(3, 7);
  RunCycles(2);
  ASSERT_NE(Proxy->GetPasInfo(), nullptr);
  EXPECT_EQ(Proxy->GetPasInfo()->GetCurrentProc(), "Bar");
}

TEST_F(QVParseThread, ParsesTheWholeUnitAgainInEveryCycle) {
  RunCycles(2);
  const auto first = Proxy->GetPasInfo();
  RunCycles(2);
  EXPECT_NE(Proxy->GetPasInfo(), first);
  Buffer->Text = "unit unit1; interface type TOther = class end; implementation end.";
  RunCycles(2);
  EXPECT_TRUE(Proxy->GetPasInfo()->GetClasses().contains("TOther"));
}

TEST_F(QVParseThread, RunsBothHalvesOfACycleInTheMainThread) {
  QThread* begin = nullptr;
  QThread* end = nullptr;
  Thread.OnBegin = [&] { begin = QThread::currentThread(); };
  Thread.OnEnd = [&] { end = QThread::currentThread(); };
  RunCycles(1);
  Thread.Stop(); // it would write to what has gone
  EXPECT_EQ(begin, QThread::currentThread());
  EXPECT_EQ(end, QThread::currentThread());
}

TEST_F(QVParseThread, ThrowsTheOutlineAwayWhenAnotherViewCameOnTopMeanwhile) {
  const auto other = std::make_shared<fakes::FakeView>(
      std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/other.pas"), "unit other;"), Window.get());
  Thread.OnEnd = [&] { Services->TopView = other; };
  Thread.OnBegin = [&] { Services->TopView = View; };
  RunCycles(3);
  Thread.Stop();
  EXPECT_EQ(Proxy->GetPasInfo(), nullptr);
}

TEST_F(QVParseThread, DoesNothingForAFileThatIsNotPascal) {
  Buffer->FileName = QStringLiteral("/home/me/readme.txt");
  RunCycles(3);
  EXPECT_EQ(Proxy->GetPasInfo(), nullptr);
  EXPECT_TRUE(Buffer->Requests.empty());
}

TEST_F(QVParseThread, DoesNothingWithoutATopView) {
  Services->TopView = nullptr;
  RunCycles(3);
  EXPECT_EQ(Proxy->GetPasInfo(), nullptr);
}

TEST_F(QVParseThread, GoesOnInAWindowWithoutAProxy) {
  delete Proxy;
  RunCycles(3);
  EXPECT_TRUE(Buffer->Requests.empty());
}

TEST_F(QVParseThread, GoesOnAfterErrorsOfItsMainThreadHalves) {
  Thread.OnBegin = [] { throw std::runtime_error("no view"); };
  Thread.OnEnd = [] { throw platform::EViewClosed(); };
  RunCycles(3);
  Thread.OnBegin = nullptr;
  Thread.OnEnd = nullptr;
  RunCycles(2);
  EXPECT_NE(Proxy->GetPasInfo(), nullptr);
}

TEST_F(QVParseThread, HandsOverWhatAUnitThatEndsInADeclarationHeldBefore) {
  Buffer->Text = "unit unit1; interface type TWhole = class end; TBroken = class procedure";
  RunCycles(2);
  ASSERT_NE(Proxy->GetPasInfo(), nullptr);
  EXPECT_TRUE(Proxy->GetPasInfo()->GetClasses().contains("TWhole"));
}

TEST_F(QVParseThread, MarksAnErrorFromTheHundredAndSecondStillCycleOn) {
  Show(kFaultyText, 40, 12, 0);
  int firstMarked = 0;
  Thread.OnEnd = [&] {
    if (firstMarked == 0 && IsRed())
      firstMarked = Thread.Ended;
    if (Thread.Ended >= 110)
      Thread.Terminate();
  };
  Thread.Resume();
  EXPECT_TRUE(support::waitUntil([&] { return Thread.Ended >= 110; }));
  Thread.Stop();
  // The first cycle sees a caret that it does not know yet and counts nothing; the 101 after it count up to 1010.
  EXPECT_EQ(firstMarked, 102);
}

TEST_F(QVParseThread, MarksTheErrorAgainInEveryCycle) {
  Show(kFaultyText, 40, 12, 0);
  RunCycles(110);
  for (int i = 0; i < 3; ++i) {
    WipeRed();
    ASSERT_FALSE(IsRed());
    RunCycles(2);
    EXPECT_TRUE(IsRed());
  }
}

TEST_F(QVParseThread, MarksNoErrorWhileTheCaretIsMoving) {
  Show(kFaultyText, 40, 12, 0);
  Thread.OnBegin = [&] { PutCaret(1, 1 + Thread.Begun % 2); };
  RunCycles(150);
  EXPECT_FALSE(IsRed());
}

TEST_F(QVParseThread, MarksNoErrorWithTheOptionOff) {
  OptSyntaxCheck = false;
  Show(kFaultyText, 40, 12, 0);
  RunCycles(150);
  EXPECT_FALSE(IsRed());
}

TEST_F(QVParseThread, MarksEachOfSeveralErrors) {
  Show("unit unit1;\r\ninterface\r\nimplementation\r\nprocedure Bar;\r\nbegin\r\n  if a b;\r\n  while a b;\r\nend;\r\n"
       "end.\r\n",
       40, 12, 0);
  RunCycles(110);
  const int height = Editor().CellSize().height();
  const QImage& picture = Editor().Picture();
  const auto isRedAt = [&](int y) {
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) == QColor(255, 0, 0))
        return true;
    return false;
  };
  EXPECT_TRUE(isRedAt(6 * height - 2));
  EXPECT_TRUE(isRedAt(7 * height - 2));
}

TEST_F(QVParseThread, WritesALineWhenItStartsAndWhenItEnds) {
  RunCycles(1);
  Thread.Stop();
  EXPECT_EQ(Debug.Take(), (Lines{"Execute Parse Thread", "Exit Parse Thread"}));
}

TEST_F(QVParseThread, DiesWithAnErrorInTheMainThreadWhenACycleFailsOtherwise) {
  Thread.OnPause = [] { throw std::runtime_error("out of memory"); };
  Thread.Resume();
  Thread.WaitFor();
  EXPECT_EQ(Thread.Pauses, 1);
  EXPECT_EQ(TakeReported(),
            Lines{"Quorvane parse thread has died unexpectedly.  Delphi should continue to operate normally, however, "
                  "Quorvane may experience difficulties.  Restarting Delphi is recommended."});
  EXPECT_EQ(Debug.Take(), (Lines{"Execute Parse Thread", "Exit Parse Thread"}));
}

TEST_F(QVParseThread, EndsAtOnceWhenItIsTerminatedBetweenTwoSteps) {
  Thread.OnPause = [&] { Thread.Terminate(); };
  Thread.Resume();
  Thread.WaitFor();
  EXPECT_EQ(Thread.Pauses, 1);
  EXPECT_EQ(Thread.Begun, 0);
}

TEST_F(QVParseThread, BeginsNoParseWhenItIsTerminatedInItsFirstHalf) {
  Thread.OnBegin = [&] { Thread.Terminate(); };
  Thread.Resume();
  Thread.WaitFor();
  EXPECT_EQ(Thread.Begun, 1);
  EXPECT_EQ(Thread.Ended, 0);
}

TEST_F(QVParseThread, IsStoppedOnlyAfterTheParseUnderWay) {
  Show(kFaultyText, 40, 12, 0);
  RunCycles(99); // the caret rests; the mark comes with one of the next cycles
  std::string text = "unit unit1; interface implementation procedure Bar; begin if a b;\r\n";
  for (int i = 0; i < 100'000; ++i)
    text += "  x := y + f(z[1], 2) * 3;\r\n";
  Buffer->Text = text + "end; end.";
  int ended = 0;
  std::shared_ptr<IQVPasInfo> last;
  DuringTheFirstMark([&] {
    ended = Thread.Ended;
    last = Proxy->GetPasInfo();
    Thread.Terminate();
  });
  EXPECT_TRUE(support::waitUntil([&] { return ended > 0; }));
  (void)Debug.Take();
  Thread.WaitFor();
  EXPECT_EQ(Debug.Take(), Lines{"Exit Parse Thread"});
  EXPECT_EQ(Thread.Ended, ended) << "the outline of the parse under way is not handed over";
  EXPECT_EQ(Proxy->GetPasInfo(), last);
}

TEST_F(QVParseThread, MarksNothingOnceTheCaretHasMovedDuringTheParse) {
  Show("unit unit1;\r\ninterface\r\nimplementation\r\nprocedure Bar;\r\nbegin\r\n  if a b;\r\n  if a b;\r\n"
       "end;\r\nend.\r\n",
       40, 12, 0);
  int cycle = 0;
  DuringTheFirstMark([&] {
    cycle = Thread.Begun;
    PutCaret(2, 1);
    Thread.OnBegin = [&] { Thread.Terminate(); };
  });
  Thread.Resume();
  EXPECT_TRUE(support::waitUntil([&] { return cycle > 0 && Thread.Begun > cycle; }));
  Thread.Stop();
  const int lineOfTheSecond = 7 * Editor().CellSize().height();
  for (int y = lineOfTheSecond - 2; y < lineOfTheSecond + 3; ++y)
    for (int x = 0; x < Editor().Picture().width(); ++x)
      ASSERT_NE(Editor().Picture().pixelColor(x, y), QColor(255, 0, 0)) << x << ", " << y;
}

TEST_F(QVParseThread, GoesOnAfterAMarkThatCouldNotBeDrawn) {
  Show(kFaultyText, 40, 12, 0);
  bool failed = false;
  DuringTheFirstMark([&] {
    failed = true;
    throw std::runtime_error("no memory for the picture");
  });
  Thread.Resume();
  EXPECT_TRUE(support::waitUntil([&] { return failed; }));
  const auto last = Proxy->GetPasInfo();
  RunCycles(2);
  EXPECT_NE(Proxy->GetPasInfo(), last);
  EXPECT_TRUE(IsRed()) << "the next cycle draws it";
  EXPECT_TRUE(TakeReported().empty());
}

TEST_F(QVParseThread, GivesAViewNothingOfATextThatIsNotItsOwn) {
  RunCycles(2);
  const auto own = Proxy->GetPasInfo();
  const auto other = std::make_shared<fakes::FakeView>(
      std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/other.pas"), "unit other;"), Window.get());
  other->Buffer->ReadError = std::make_exception_ptr(std::bad_alloc());
  Services->TopView = other;
  const auto before = Proxy->GetPasInfo();
  RunCycles(3); // they cannot read, and parse what they have
  EXPECT_NE(own, nullptr);
  EXPECT_EQ(Proxy->GetPasInfo(), before);
}

TEST_F(QVParseThread, UpdateViewTakesTheViewOnTop) {
  const auto other = std::make_shared<fakes::FakeView>(
      std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/other.pas"), "unit other;"), Window.get());
  Thread.OnBegin = [&] { Services->TopView = View; };
  Thread.OnEnd = [&] {
    Services->TopView = other;
    Thread.UpdateView();
    Services->TopView = View; // which is not the thread's any more
  };
  RunCycles(3);
  Thread.Stop();
  EXPECT_EQ(Proxy->GetPasInfo(), nullptr);
}

TEST(QVParseThreadStillness, IsCountedInTensAndStartsAnewWithAMove) {
  EXPECT_EQ(NextStillCount(0, true), 10);
  EXPECT_EQ(NextStillCount(1010, true), 1020);
  EXPECT_EQ(NextStillCount(1010, false), 0);
}

TEST(QVParseThreadStillness, NeverOverflows) {
  EXPECT_EQ(NextStillCount(MaxStillCount, true), MaxStillCount);
  EXPECT_EQ(NextStillCount(MaxStillCount - 1, true), MaxStillCount + 9);
  EXPECT_EQ(NextStillCount(MaxStillCount, false), 0);
}

TEST_F(QVParseThread, OutlivesTheWindowItParses) {
  RunCycles(2);
  Services->TopView = nullptr;
  Window.reset();
  RunCycles(2);
}

TEST(QVParseThreadUnit, StartsOneThreadOfIdlePriorityAndStopsItWithItsLines) {
  fakes::DebugRecorder debug;
  StartQVParseThread();
  ASSERT_NE(QVThread, nullptr);
  EXPECT_EQ(QVThread->Priority(), platform::TThreadPriority::Idle);
  EXPECT_FALSE(QVThread->FreeOnTerminate());
  StopQVParseThread();
  EXPECT_EQ(QVThread, nullptr);
  std::vector<std::string> lines = debug.Take();
  // Those of the thread come at their own time.
  std::erase(lines, "Execute Parse Thread");
  std::erase(lines, "Exit Parse Thread");
  EXPECT_EQ(lines, (Lines{"QVThread.Terminage", "QVThread.Free", "QVParse Thread Finalized"}));
}

} // namespace
} // namespace quorvane
