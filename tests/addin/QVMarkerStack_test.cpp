// SPDX-License-Identifier: MIT
#include "editor/QVMarkerStack.h"

#include "MarkerFixture.h"
#include "platform/Errors.h"

#include <QFile>
#include <QTemporaryDir>

#include <type_traits>

namespace quorvane {
namespace {

using fakes::FakeBuffer;
using fakes::FakeView;
using platform::TOTAEditPos;

class QVMarkerStack : public MarkerTest {};

// Dropping and picking up.

TEST_F(QVMarkerStack, IsEmptyAtFirst) {
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVMarkerStack, PopOnAnEmptyStackDoesNothing) {
  View->Cursor = {3, 4};
  EXPECT_NO_THROW(Stack().Pop());
  EXPECT_EQ(View->Cursor, (TOTAEditPos{3, 4}));
  EXPECT_EQ(View->Paints, 0);
  EXPECT_TRUE(Services->OpenedFiles.isEmpty());
  EXPECT_TRUE(Services->Messages.isEmpty());
  EXPECT_EQ(LogForm.Take(), Lines{});
}

TEST_F(QVMarkerStack, TheLastMarkerIsPickedUpFirst) {
  Push(1, 10);
  Push(2, 20);
  Push(3, 30);
  EXPECT_EQ(Stack().Count(), 3);
  EXPECT_EQ(Pop(), (TOTAEditPos{3, 30}));
  EXPECT_EQ(Pop(), (TOTAEditPos{2, 20}));
  EXPECT_EQ(Pop(), (TOTAEditPos{1, 10}));
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVMarkerStack, SaysWhatItDoes) {
  Push(7, 12);
  EXPECT_EQ(LogForm.Take(), (Lines{"Marker Dropped at Row 12 Col 7", "Marker Stack Count: 1"}));
  Tracker().MoveLine(12, 15);
  EXPECT_EQ(LogForm.Take(), Lines{"Marker: Line 12 has become 15"});
  Pop();
  EXPECT_EQ(LogForm.Take(), (Lines{"Marker Picked Up Row 15 Col 7)", "Destroying tracker for line 15"}));
}

TEST_F(QVMarkerStack, PickingUpBringsTheOpenFileForwardScrollsAndRepaints) {
  Push(5, 10);
  Pop();
  EXPECT_EQ(Buffer->Shown, 1);
  EXPECT_EQ(View->Moves, 1);
  EXPECT_EQ(View->Paints, 1);
  EXPECT_TRUE(Services->OpenedFiles.isEmpty());
}

TEST_F(QVMarkerStack, PickingUpMovesTheCaretOfTheTopView) {
  Push(5, 10);
  const TFile other = OpenAnother(QStringLiteral("/home/me/unit2.pas"));
  Services->TopView = other.View;
  Stack().Pop();
  EXPECT_EQ(other.View->Cursor, (TOTAEditPos{5, 10}));
  EXPECT_EQ(other.View->Paints, 1);
}

TEST_F(QVMarkerStack, DroppingNeedsAView) {
  EXPECT_EQ(AssertionOf([] { Stack().Push(nullptr); }).Unit(), "QVMarkerStack");
  EXPECT_EQ(Stack().Count(), 0);
}

// Following lines.

TEST_F(QVMarkerStack, TracksItsLineWithoutAValue) {
  Push(4, 10);
  EXPECT_EQ(Tracker().Lines, (std::vector<fakes::FakeLineTracker::TrackedLine>{{10, 0}}));
  EXPECT_EQ(Tracker().LiveNotifiers(), 1);
}

TEST_F(QVMarkerStack, AMarkerFollowsItsLineAndKeepsItsColumn) {
  Push(4, 10);
  Tracker().MoveLine(10, 13);
  EXPECT_EQ(Pop(), (TOTAEditPos{4, 13}));
}

TEST_F(QVMarkerStack, AMarkerDoesNotFollowOtherLines) {
  Push(4, 10);
  Push(4, 12);
  LogForm.Take();
  Tracker().MoveLine(12, 13);
  EXPECT_EQ(Markers(), (Rows{{10, 4, 1}, {13, 4, 2}}));
  EXPECT_EQ(LogForm.Take(), Lines{"Marker: Line 12 has become 13"});
}

TEST_F(QVMarkerStack, TwoMarkersOnOneLineFollowItBothAndStayTwo) {
  Push(4, 10);
  Push(9, 10);
  Tracker().MoveLine(10, 11);
  EXPECT_EQ(Markers(), (Rows{{11, 4, 1}, {11, 9, 2}}));
  EXPECT_EQ(Pop(), (TOTAEditPos{9, 11}));
  EXPECT_EQ(Tracker().Lines.size(), 1U);
  Tracker().MoveLine(11, 12);
  EXPECT_EQ(Pop(), (TOTAEditPos{4, 12}));
}

TEST_F(QVMarkerStack, AMarkerPickedUpIsNotTrackedAnyMore) {
  Push(4, 10);
  Push(4, 20);
  Pop();
  EXPECT_EQ(Tracker().Lines, (std::vector<fakes::FakeLineTracker::TrackedLine>{{10, 0}}));
  EXPECT_EQ(Tracker().LiveNotifiers(), 1);
}

TEST_F(QVMarkerStack, PickingUpALineThatTheHostHasLostIsNoError) {
  Push(4, 10);
  Tracker().Lines.clear();
  EXPECT_EQ(Pop(), (TOTAEditPos{4, 10}));
  EXPECT_EQ(Stack().Count(), 0);
}

// Turning round.

TEST_F(QVMarkerStack, ReverseTopLetsThePickUpsComeInTheOrderOfTheDrops) {
  Push(1, 10);
  Push(2, 20);
  Push(3, 30);
  Stack().ReverseTop(3);
  EXPECT_EQ(Pop(), (TOTAEditPos{1, 10}));
  EXPECT_EQ(Pop(), (TOTAEditPos{2, 20}));
  EXPECT_EQ(Pop(), (TOTAEditPos{3, 30}));
}

struct TurnRow {
  int Count;
  std::vector<int> Expected; // columns, from the bottom of the stack
};

class QVMarkerStackTurned : public QVMarkerStack, public testing::WithParamInterface<TurnRow> {};
INSTANTIATE_TEST_SUITE_P(By, QVMarkerStackTurned,
                         testing::Values(TurnRow{0, {1, 2, 3, 4}}, TurnRow{1, {1, 2, 3, 4}}, TurnRow{2, {1, 2, 4, 3}},
                                         TurnRow{3, {1, 4, 3, 2}}, TurnRow{4, {4, 3, 2, 1}}, TurnRow{5, {4, 3, 2, 1}},
                                         TurnRow{-1, {1, 2, 3, 4}}),
                         [](const auto& row) {
                           return row.param.Count < 0 ? std::string("LessThanNone")
                                                      : std::to_string(row.param.Count) + "OfFour";
                         });

TEST_P(QVMarkerStackTurned, KeepsWhatIsBelow) {
  for (const int column : {1, 2, 3, 4})
    Push(column, 10);
  Stack().ReverseTop(GetParam().Count);
  std::vector<int> columns;
  for (const auto& marker : Markers())
    columns.push_back(marker[1]);
  EXPECT_EQ(columns, GetParam().Expected);
}

// Enumerating.

TEST_F(QVMarkerStack, ReportsTheMarkersOfAFileWithTheirPlacesInTheWholeStack) {
  const TFile other = OpenAnother(QStringLiteral("/home/me/unit2.pas"));
  Push(4, 10);
  other.View->Cursor = {1, 2};
  Stack().Push(other.View);
  Push(6, 5);
  EXPECT_EQ(Markers(), (Rows{{10, 4, 1}, {5, 6, 3}}));
  EXPECT_EQ(Markers(other.Buffer->FileName), (Rows{{2, 1, 2}}));
  EXPECT_EQ(Markers(QStringLiteral("/home/me/unit3.pas")), Rows{});
}

TEST_F(QVMarkerStack, ReportsTheMarkersBetweenTwoLinesBothIncluded) {
  for (const int line : {4, 5, 6, 7, 8})
    Push(1, line);
  EXPECT_EQ(Markers(Buffer->FileName, 5, 7), (Rows{{5, 1, 2}, {6, 1, 3}, {7, 1, 4}}));
}

TEST_F(QVMarkerStack, KnowsAFileUnderTheNameThatItHasNow) {
  Push(4, 10);
  Buffer->FileName = QStringLiteral("/home/me/renamed.pas");
  EXPECT_EQ(Markers(Buffer->FileName), (Rows{{10, 4, 1}}));
  CloseFile();
  Services->CanOpen = false;
  Stack().Pop();
  EXPECT_EQ(Services->OpenedFiles, QStringList{QStringLiteral("/home/me/renamed.pas")});
}

// Files that are closed, and gone.

TEST_F(QVMarkerStack, AClosedFileIsOpenedAgainByItsName) {
  Push(4, 10);
  CloseFile();
  OpenFileAgain();
  Stack().Pop();
  EXPECT_EQ(Services->OpenedFiles, QStringList{Buffer->FileName});
  EXPECT_EQ(View->Cursor, (TOTAEditPos{4, 10}));
  EXPECT_EQ(Buffer->Shown, 0) << "opening brings it forward";
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVMarkerStack, AViewThatAnswersWithAnErrorCountsAsClosed) {
  class ClosedView : public FakeView {
  public:
    using FakeView::FakeView;
    bool Closed = false;
    std::shared_ptr<platform::IOTAEditBuffer> GetBuffer() override {
      return Closed ? throw platform::EViewClosed() : FakeView::GetBuffer();
    }
  };
  const auto closing = std::make_shared<ClosedView>(Buffer, Window.get());
  Stack().Push(closing);
  closing->Closed = true;
  Stack().Pop();
  EXPECT_EQ(Services->OpenedFiles, QStringList{Buffer->FileName});
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVMarkerStack, AFileThatIsGoneIsSaidToBeAndTheMarkerIsDroppedWhereTheCaretStays) {
  Push(4, 10);
  CloseFile();
  const TFile other = OpenAnother(QStringLiteral("/home/me/unit2.pas"));
  other.View->Cursor = {7, 8};
  Services->TopView = other.View;
  Services->CanOpen = false;
  Stack().Pop();
  EXPECT_EQ(other.View->Cursor, (TOTAEditPos{7, 8}));
  EXPECT_EQ(other.View->Moves, 0);
  EXPECT_EQ(Services->Messages,
            QStringList{QStringLiteral("The marker in /home/me/unit1.pas is gone, since the file cannot be shown")});
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVMarkerStack, AFileThatOpensOutOfReachIsSaidToBeShownAndTheMarkerIsDroppedToo) {
  Push(4, 10);
  CloseFile();
  EXPECT_NO_THROW(Stack().Pop());
  EXPECT_EQ(
      Services->Messages,
      QStringList{QStringLiteral("The marker in /home/me/unit1.pas is gone, since the file is shown as plain text")});
  EXPECT_EQ(Stack().Count(), 0);
}

// A view whose operations fail when told to.
class TFailingView : public FakeView {
public:
  using FakeView::FakeView;
  bool Fails = false;
  std::shared_ptr<platform::IOTAEditPosition> GetPosition() override {
    return Fails ? throw platform::Exception("no position") : FakeView::GetPosition();
  }
};

TEST_F(QVMarkerStack, AFailureOfTheHostWhilePickingUpDropsTheMarkerAndTheNextOneCanBeReached) {
  Push(4, 10);
  const auto failing = std::make_shared<TFailingView>(std::make_shared<FakeBuffer>(QStringLiteral("/f.pas")), nullptr);
  Stack().Push(failing);
  failing->Fails = true;
  Services->TopView = failing;
  EXPECT_THROW(Stack().Pop(), platform::Exception);
  EXPECT_EQ(Stack().Count(), 1);
  EXPECT_TRUE(failing->Buffer->Tracker->Lines.empty());
  EXPECT_EQ(failing->Buffer->Tracker->LiveNotifiers(), 0);
  Services->TopView = View;
  EXPECT_EQ(Pop(), (TOTAEditPos{4, 10}));
}

TEST_F(QVMarkerStack, AFileThatGotItsNameWhileItWasClosedIsOpenedByThatName) {
  Push(4, 10);
  Buffer->FileName = QStringLiteral("/home/me/saved.pas");
  CloseFile();
  Services->CanOpen = false;
  Stack().Pop();
  EXPECT_EQ(Services->OpenedFiles, QStringList{QStringLiteral("/home/me/saved.pas")});
}

TEST_F(QVMarkerStack, MarkersAreTrackedAgainUnderAnotherNameOfTheirFile) {
  const QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("unit.pas"));
  const QString link = folder.filePath(QStringLiteral("link.pas"));
  QFile file(name);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  ASSERT_TRUE(QFile::link(name, link));
  {
    const TFile open = OpenAnother(name);
    open.View->Cursor = {4, 10};
    Stack().Push(open.View);
  }
  const TFile again = OpenAnother(link);
  Stack().Resume(again.View);
  EXPECT_EQ(again.Buffer->Tracker->Lines.size(), 1U);
  EXPECT_EQ(Markers(link), (Rows{{10, 4, 1}}));
}

TEST_F(QVMarkerStack, AViewThatHasBeenResumedAsksClosedOnesNothingMore) {
  class ClosedView : public FakeView {
  public:
    using FakeView::FakeView;
    bool Closed = false;
    int Asked = 0;
    std::shared_ptr<platform::IOTAEditBuffer> GetBuffer() override {
      ++Asked;
      return Closed ? throw platform::EViewClosed() : FakeView::GetBuffer();
    }
  };
  const TFile other = OpenAnother(QStringLiteral("/home/me/unit2.pas"));
  const auto closing = std::make_shared<ClosedView>(other.Buffer, Window.get());
  Stack().Push(closing);
  closing->Closed = true;
  closing->Asked = 0;
  for (int paint = 0; paint < 3; ++paint) {
    Stack().Resume(View);
    (void)Markers();
  }
  EXPECT_EQ(closing->Asked, 1);
}

TEST_F(QVMarkerStack, AMarkerOfAClosedFileIsKept) {
  Push(4, 10);
  CloseFile();
  EXPECT_EQ(Stack().Count(), 1);
  EXPECT_EQ(Markers(), (Rows{{10, 4, 1}}));
}

TEST_F(QVMarkerStack, AMarkerIsTrackedAgainWhenItsFileIsOpenAgain) {
  Push(4, 10);
  CloseFile();
  OpenFileAgain();
  Stack().Resume(View);
  Tracker().MoveLine(10, 12);
  EXPECT_EQ(Pop(), (TOTAEditPos{4, 12}));
  EXPECT_TRUE(Tracker().Lines.empty());
  EXPECT_EQ(Tracker().LiveNotifiers(), 0);
  EXPECT_TRUE(Services->OpenedFiles.isEmpty());
}

TEST_F(QVMarkerStack, AMarkerThatIsTrackedIsNotTrackedTwice) {
  Push(4, 10);
  Stack().Resume(View);
  EXPECT_EQ(Tracker().Lines.size(), 1U);
  CloseFile();
  OpenFileAgain();
  Stack().Resume(View);
  Stack().Resume(View);
  EXPECT_EQ(Tracker().Lines.size(), 1U);
  EXPECT_EQ(Tracker().LiveNotifiers(), 1);
}

TEST_F(QVMarkerStack, AFileThatIsOpenedLeavesTheMarkersOfOthersAlone) {
  Push(4, 10);
  CloseFile();
  const TFile other = OpenAnother(QStringLiteral("/home/me/unit2.pas"));
  Stack().Resume(other.View);
  EXPECT_TRUE(other.Buffer->Tracker->Lines.empty());
}

class QVMarkerResuming : public QVMarkerStack, public testing::WithParamInterface<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Messages, QVMarkerResuming,
                         testing::Values(platform::WM_PAINT, platform::WM_SETFOCUS, platform::CN_KEYDOWN),
                         [](const auto& message) { return "Message" + std::to_string(message.param); });

TEST_P(QVMarkerResuming, TheEditorLetsMarkersFollowAFileOpenedAgainBeforeTheHostActs) {
  OptMarkerLive = false; // also while nothing is drawn
  Push(4, 10);
  CloseFile();
  OpenFileAgain();
  std::size_t tracked = 0;
  Editor().OnMessage = [&](platform::TMessage& message) {
    if (message.Msg == GetParam())
      tracked = Tracker().Lines.size();
  };
  Editor().Send(GetParam());
  EXPECT_EQ(tracked, 1U);
}

TEST_P(QVMarkerResuming, AMessageReachesTheHostAlsoWhenItsTrackerFails) {
  class FailingBuffer : public FakeBuffer {
  public:
    using FakeBuffer::FakeBuffer;
    std::shared_ptr<platform::IOTAEditLineTracker> GetEditLineTracker() override {
      throw platform::Exception("no tracker");
    }
  };
  OptMarkerLive = false;
  Push(4, 10);
  CloseFile();
  Buffer = std::make_shared<FailingBuffer>(Buffer->FileName);
  View = std::make_shared<FakeView>(Buffer, Window.get());
  Services->TopView = View;
  Editor().TakeReceived();
  Editor().Send(GetParam());
  const std::vector<unsigned> received = Editor().TakeReceived(); // WM_SETFOCUS is followed by a WM_PAINT
  ASSERT_FALSE(received.empty());
  EXPECT_EQ(received.front(), GetParam());
  EXPECT_EQ(TakeReported(), Lines{"no tracker"});
}

// The marker by itself.

TEST_F(QVMarkerStack, AMarkerTellsItsPlaceAndItsView) {
  PutCaret(4, 10);
  const std::shared_ptr<IQVMarker> marker = TQVMarker::Create(View);
  EXPECT_EQ(marker->GetFileName(), Buffer->FileName);
  EXPECT_EQ(marker->GetRow(), 10);
  EXPECT_EQ(marker->GetCol(), 4);
  EXPECT_EQ(marker->GetEditView(), View);
  CloseFile();
  EXPECT_EQ(marker->GetEditView(), nullptr);
}

TEST_F(QVMarkerStack, AMarkerHoldsItsViewWeakly) {
  Push(4, 10);
  const std::weak_ptr<FakeView> view = View;
  CloseFile();
  EXPECT_TRUE(view.expired());
}

TEST_F(QVMarkerStack, DetachingUndoesTheTrackingOnceAndLetsTheViewGo) {
  PutCaret(4, 10);
  const auto marker = TQVMarker::Create(View);
  marker->Detach();
  EXPECT_TRUE(Tracker().Lines.empty());
  EXPECT_EQ(Tracker().LiveNotifiers(), 0);
  EXPECT_EQ(marker->GetEditView(), nullptr);
  Tracker().AddLine(10, 5);
  marker->Detach();
  EXPECT_EQ(Tracker().Lines.size(), 1U) << "that line is another's";
}

TEST_F(QVMarkerStack, DetachingFromAClosedFileHasNothingToUndo) {
  const auto marker = TQVMarker::Create(View);
  CloseFile();
  EXPECT_NO_THROW(marker->Detach());
  EXPECT_EQ(Tracker().Lines.size(), 1U);
}

// Start and stop.

TEST_F(QVMarkerStack, TheStopDetachesAllMarkersAndSaysSo) {
  Push(4, 10);
  Push(4, 20);
  LogForm.Take();
  StopQVMarkerStack();
  EXPECT_EQ(QVMarkerStackManager, nullptr);
  EXPECT_TRUE(Tracker().Lines.empty());
  EXPECT_EQ(Tracker().LiveNotifiers(), 0);
  EXPECT_EQ(LogForm.Take(), (Lines{"Destroying tracker for line 10", "Destroying tracker for line 20"}));
  EXPECT_EQ(Debug.Take(), Lines{"QVMarkerStack Finalized"});
}

TEST_F(QVMarkerStack, TheStopAfterTheFilesHaveGoneIsQuiet) {
  Push(4, 10);
  CloseFile();
  EXPECT_NO_THROW(StopQVMarkerStack());
}

TEST(ENoBookmark, IsAnExceptionOfTheContract) {
  static_assert(std::is_base_of_v<platform::Exception, ENoBookmarkException>);
  try {
    throw ENoBookmarkException("There is no marker");
  } catch (const platform::Exception& exception) {
    EXPECT_STREQ(exception.what(), "There is no marker");
  }
}

// The commands of the editor's action list.

class QVMarkerCommands : public QVMarkerStack {
protected:
  platform::TAction* Command(const QString& text) const {
    for (QAction* action : Window->Actions().Actions()) {
      if (action->text() == text)
        return dynamic_cast<platform::TAction*>(action);
    }
    return nullptr;
  }
};

TEST_F(QVMarkerCommands, StandInTheSearchMenuWithTheirShortcuts) {
  const auto* const drop = Command(QStringLiteral("Drop Marker"));
  const auto* const pickUp = Command(QStringLiteral("Pick Up Marker"));
  ASSERT_NE(drop, nullptr);
  ASSERT_NE(pickUp, nullptr);
  EXPECT_EQ(drop->shortcut(), QKeySequence(Qt::SHIFT | Qt::ALT | Qt::Key_Insert));
  EXPECT_EQ(pickUp->shortcut(), QKeySequence(Qt::SHIFT | Qt::ALT | Qt::Key_Delete));
  EXPECT_EQ(drop->Category, QStringLiteral("Search"));
  EXPECT_EQ(pickUp->Category, QStringLiteral("Search"));
}

TEST_F(QVMarkerCommands, DropAndPickUp) {
  PutCaret(4, 10);
  Command(QStringLiteral("Drop Marker"))->trigger();
  EXPECT_EQ(Markers(), (Rows{{10, 4, 1}}));
  PutCaret(1, 1);
  Command(QStringLiteral("Pick Up Marker"))->trigger();
  EXPECT_EQ(View->Cursor, (TOTAEditPos{4, 10}));
  EXPECT_EQ(Stack().Count(), 0);
  EXPECT_EQ(Editor().Repaints, 2);
}

TEST_F(QVMarkerCommands, WithoutAPageDropNothingAndStillPickUp) {
  Push(4, 10);
  const auto view = std::exchange(Services->TopView, nullptr);
  Command(QStringLiteral("Drop Marker"))->trigger();
  EXPECT_EQ(Stack().Count(), 1);
  Services->TopView = view;
  Command(QStringLiteral("Pick Up Marker"))->trigger();
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVMarkerCommands, GoWithTheProxy) {
  delete Proxy;
  EXPECT_TRUE(Window->Actions().Actions().isEmpty());
}

} // namespace
} // namespace quorvane
