// SPDX-License-Identifier: MIT
#include "desktop/ide/IdeFixture.h"

#include "platform/Errors.h"

#include <functional>
#include <tuple>
#include <vector>

namespace desktop {
namespace {

using Told = std::vector<std::tuple<int, int, int>>; // old line, new line, data

class Listener : public platform::IOTAEditLineNotifier {
public:
  Told told;
  std::function<void()> onChange;
  int line = 0;

  int GetLine() const override { return line; }
  void LineChanged(int oldLine, int newLine, int data) override {
    told.emplace_back(oldLine, newLine, data);
    if (onChange)
      onChange();
  }
};

class LineTrackerTest : public IdeFixture {
protected:
  void openLines(const char* name = "unit.pas") {
    view = open(QByteArray("x\n").repeated(20), name);
    ASSERT_NE(view, nullptr);
    tracker = view->GetBuffer()->GetEditLineTracker();
    tracker->AddNotifier(listener);
  }
  void typeAt(int row, const char32_t* text) {
    view->GetPosition()->Move(row, 1);
    for (; *text != 0; ++text)
      view->GetPosition()->InsertCharacter(*text);
  }

  std::shared_ptr<platform::IOTAEditView> view;
  std::shared_ptr<platform::IOTAEditLineTracker> tracker;
  std::shared_ptr<Listener> listener = std::make_shared<Listener>();
};

TEST_F(LineTrackerTest, CountsLinesFromOne) {
  openLines();
  tracker->AddLine(10, 42);
  EXPECT_EQ(tracker->IndexOfLine(10), 0);
  EXPECT_EQ(tracker->IndexOfLine(9), -1);
  typeAt(3, U"\r\r\r");
  EXPECT_EQ(listener->told, (Told{{10, 11, 42}, {11, 12, 42}, {12, 13, 42}}));
  EXPECT_EQ(tracker->IndexOfLine(13), 0);
}

TEST_F(LineTrackerTest, IsOneForABuffer) {
  openLines();
  EXPECT_EQ(view->GetBuffer()->GetEditLineTracker(), tracker);
}

TEST_F(LineTrackerTest, TracksNoLineOutsideTheText) {
  openLines();
  tracker->AddLine(0, 0);
  tracker->AddLine(22, 0);
  EXPECT_EQ(tracker->IndexOfLine(0), -1);
  EXPECT_EQ(tracker->IndexOfLine(22), -1);
  tracker->AddLine(21, 0);
  EXPECT_EQ(tracker->IndexOfLine(21), 0);
}

TEST_F(LineTrackerTest, FollowsEditsOfAPageBehindOthers) {
  openLines();
  tracker->AddLine(10, 0);
  openText(QStringLiteral("other.pas"), "other");
  ASSERT_NE(services->GetTopView(), view);
  typeAt(1, U"\r");
  EXPECT_EQ(listener->told, (Told{{10, 11, 0}}));
}

TEST_F(LineTrackerTest, FollowsUndoAndRedo) {
  openLines();
  tracker->AddLine(10, 0);
  typeAt(1, U"\r");
  editor()->undo();
  editor()->redo();
  EXPECT_EQ(listener->told, (Told{{10, 11, 0}, {11, 10, 0}, {10, 11, 0}}));
}

TEST_F(LineTrackerTest, ReportsWhatIsTypedInAGroupAtOnce) {
  openLines();
  tracker->AddLine(10, 0);
  const auto group = view->GetBuffer()->BeginUndoGroup();
  typeAt(1, U"\r");
  EXPECT_EQ(listener->told, (Told{{10, 11, 0}}));
  view->GetPosition()->BackspaceDelete(1);
  EXPECT_EQ(listener->told, (Told{{10, 11, 0}, {11, 10, 0}}));
}

// A template that is typed on a line does not push away what marks that line.
TEST_F(LineTrackerTest, LeavesALineOnWhichAGroupTypesSeveralLines) {
  openLines();
  tracker->AddLine(10, 0);
  {
    const auto group = view->GetBuffer()->BeginUndoGroup();
    typeAt(10, U"begin\r\rend;\r");
  }
  EXPECT_TRUE(listener->told.empty());
}

TEST_F(LineTrackerTest, TellsEveryNotifierUntilItIsRemovedOrGone) {
  openLines();
  auto second = std::make_shared<Listener>();
  auto third = std::make_shared<Listener>();
  const int index = tracker->AddNotifier(second);
  const int last = tracker->AddNotifier(third);
  EXPECT_NE(index, last);
  tracker->AddLine(10, 0);
  typeAt(1, U"\r");
  EXPECT_EQ(second->told.size(), 1U);
  EXPECT_EQ(third->told.size(), 1U);
  tracker->RemoveNotifier(index);
  tracker->RemoveNotifier(index); // is no longer in use
  third.reset();
  typeAt(1, U"\r");
  EXPECT_EQ(second->told.size(), 1U);
  EXPECT_EQ(listener->told.size(), 2U);
  EXPECT_NE(tracker->AddNotifier(second), index);
}

TEST_F(LineTrackerTest, TellsANotifierThatWaitsForOneLineOfThatLineOnly) {
  openLines();
  const auto second = std::make_shared<Listener>();
  second->line = 10;
  tracker->AddNotifier(second);
  for (const int line : {9, 10, 11})
    tracker->AddLine(line, 0);
  typeAt(1, U"\r");
  EXPECT_EQ(second->told, (Told{{10, 11, 0}}));
  EXPECT_EQ(listener->told, (Told{{11, 12, 0}, {10, 11, 0}, {9, 10, 0}}));
  typeAt(1, U"\r");
  EXPECT_EQ(second->told, (Told{{10, 11, 0}, {10, 11, 0}})) << "it did not follow its line";
}

TEST_F(LineTrackerTest, LetsANotifierRemoveAnother) {
  openLines();
  const auto second = std::make_shared<Listener>();
  const int index = tracker->AddNotifier(second);
  listener->onChange = [&] { tracker->RemoveNotifier(index); };
  tracker->AddLine(10, 0);
  typeAt(1, U"\r");
  EXPECT_TRUE(second->told.empty());
}

TEST_F(LineTrackerTest, TellsTheOthersWhenANotifierFails) {
  openLines();
  const auto second = std::make_shared<Listener>();
  tracker->AddNotifier(second);
  listener->onChange = [] { throw platform::Exception("The listener failed"); };
  tracker->AddLine(10, 0);
  typeAt(1, U"\r");
  EXPECT_EQ(second->told, (Told{{10, 11, 0}}));
  ASSERT_TRUE(support::waitUntil([this] { return !messages().isEmpty(); }));
  EXPECT_EQ(messages(), QStringList(QStringLiteral("An error occurred: The listener failed")));
}

TEST_F(LineTrackerTest, EndsTrackingByIndex) {
  openLines();
  tracker->AddLine(10, 0);
  tracker->AddLine(10, 1);
  tracker->Delete(tracker->IndexOfLine(10));
  typeAt(1, U"\r");
  EXPECT_EQ(listener->told, (Told{{10, 11, 0}})) << "the last one was deleted";
  EXPECT_THROW(tracker->Delete(1), platform::EAssertionFailed);
  EXPECT_THROW(tracker->Delete(-1), platform::EAssertionFailed);
}

TEST_F(LineTrackerTest, DeletesTheLineThatCameLastSoThatTheFirstReturnsToItsPlaceWithUndo) {
  openLines();
  tracker->AddLine(10, 0);
  view->GetPosition()->Move(10, 1);
  view->GetPosition()->BackspaceDelete(1);
  tracker->AddLine(9, 0);
  tracker->Delete(tracker->IndexOfLine(9));
  editor()->undo();
  EXPECT_EQ(listener->told, (Told{{10, 9, 0}, {9, 10, 0}}));
}

TEST_F(LineTrackerTest, RefusesAClosedPage) {
  openLines();
  tracker->AddLine(10, 0);
  window()->closePage(window()->currentPage());
  EXPECT_THROW(tracker->AddLine(1, 0), platform::EViewClosed);
  EXPECT_THROW((void)tracker->IndexOfLine(10), platform::EViewClosed);
  EXPECT_THROW(tracker->Delete(0), platform::EViewClosed);
  EXPECT_THROW((void)tracker->AddNotifier(listener), platform::EViewClosed);
  EXPECT_THROW(tracker->RemoveNotifier(0), platform::EViewClosed);
  EXPECT_TRUE(listener->told.empty());
}

} // namespace
} // namespace desktop
