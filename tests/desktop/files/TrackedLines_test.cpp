// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include "desktop/files/FileFixture.h"

#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace desktop {
namespace {

using Reported = std::tuple<int, int, int>; // old line, new line, data

class TrackedLinesTest : public testing::Test {
protected:
  // Ten lines, "0" to "9", and an empty last one.
  TrackedLinesTest() { fill(QStringLiteral("0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n")); }

  void fill(const QString& text) { document.setPlainText(text); }
  // Where line `line` starts.
  int at(int line) const { return document.findBlockByNumber(line).position(); }
  void replace(int begin, int end, const QString& text) {
    QTextCursor cursor(&document);
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(text);
  }
  void insert(int position, const QString& text) { replace(position, position, text); }
  std::vector<Reported> taken() { return std::exchange(reported, {}); }

  SourceDocument document{QStringLiteral("/unit.pas")};
  std::vector<Reported> reported;
  TrackedLines lines{document, [this](const std::vector<LineMove>& moves) {
                       for (const LineMove& move : moves)
                         reported.emplace_back(move.oldLine, move.newLine, move.data);
                     }};
};

TEST_F(TrackedLinesTest, MovesALineDownWithWhatIsInsertedAbove) {
  lines.add(5, 7);
  insert(at(2), QStringLiteral("a\nb\nc\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 8, 7}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{8, 5, 7}}));
  document.redo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 8, 7}}));
}

TEST_F(TrackedLinesTest, MovesALineDownWithLinesPutRightInFrontOfIt) {
  lines.add(5, 0);
  insert(at(5), QStringLiteral("a\nb\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 7, 0}}));
}

TEST_F(TrackedLinesTest, MovesALineDownThatIsBrokenAtItsStart) {
  lines.add(5, 0);
  insert(at(5), QStringLiteral("\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 6, 0}}));
}

TEST_F(TrackedLinesTest, LeavesALineThatIsBrokenFurtherRight) {
  lines.add(5, 0);
  insert(at(5) + 1, QStringLiteral("\nx"));
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, LeavesALineWhoseTextGrowsInFront) {
  lines.add(5, 0);
  insert(at(5), QStringLiteral("x"));
  insert(at(5) + 1, QStringLiteral("\n"));
  EXPECT_TRUE(taken().empty()) << "what was typed belongs to the line";
  insert(at(5), QStringLiteral("begin\nend"));
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, LeavesWhatStandsAboveAnEdit) {
  lines.add(1, 0);
  insert(at(2), QStringLiteral("a\nb\n"));
  replace(at(4), at(7), {});
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, JoinsALineToTheOneAbove) {
  lines.add(5, 0);
  replace(at(5) - 1, at(5), {});
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 4, 0}}));
}

TEST_F(TrackedLinesTest, TakesADeletedLineForTheOneWhereTheDeletionBegins) {
  lines.add(4, 0);
  lines.add(6, 1);
  replace(at(2) + 1, at(6) + 1, {});
  EXPECT_EQ(taken(), (std::vector<Reported>{{4, 2, 0}, {6, 2, 1}}));
}

TEST_F(TrackedLinesTest, BringsADeletedOrJoinedLineBackWithUndo) {
  lines.add(4, 0);
  replace(at(4), at(5), {});
  EXPECT_TRUE(taken().empty());
  document.undo();
  EXPECT_TRUE(taken().empty()) << "it is what it was";
  document.redo();
  document.undo();
  EXPECT_TRUE(taken().empty());
  replace(at(4) - 1, at(4), {});
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{4, 3, 0}, {3, 4, 0}}));
  replace(at(2), at(6) + 1, QStringLiteral("new"));
  insert(at(0), QStringLiteral("\n\n"));
  document.undo();
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{4, 2, 0}, {2, 4, 0}, {4, 2, 0}, {2, 4, 0}}));
}

TEST_F(TrackedLinesTest, BringsALineBackThatAGroupOfEditsTook) {
  lines.add(5, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  insert(at(0), QStringLiteral("\n"));
  lines.settle();
  replace(at(3), at(7), {});
  lines.settle();
  replace(at(1), at(3) + 1, {});
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 6, 0}, {6, 3, 0}, {3, 1, 0}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{1, 5, 0}}));
}

TEST_F(TrackedLinesTest, KeepsLinesTogetherThatADeletionBroughtTogether) {
  lines.add(3, 0);
  lines.add(5, 1);
  replace(at(2) + 1, at(8), {});
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 2, 0}, {5, 2, 1}, {2, 3, 0}, {2, 3, 1}}));
}

TEST_F(TrackedLinesTest, ForgetsThePastOfALineThatAnotherKeptFromItsPlace) {
  lines.add(7, 1);
  lines.add(5, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  replace(at(6) + 1, at(7), QStringLiteral("\n"));
  insert(at(5) + 1, QStringLiteral("x"));
  cursor.endEditBlock();
  replace(at(5) + 1, at(7), {});
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 6, 1}, {6, 5, 1}}));
  document.undo();
  lines.remove(lines.indexOf(5));
  document.undo();
  EXPECT_TRUE(taken().empty());
  EXPECT_NE(lines.indexOf(5), -1);
}

TEST_F(TrackedLinesTest, TellsTheLineBehindReplacedOnesFromTheReplaced) {
  lines.add(4, 0);
  lines.add(5, 1);
  replace(at(4), at(5), QStringLiteral("a\nb\nc\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 7, 1}}));
}

TEST_F(TrackedLinesTest, FollowsTheEmptyLastLine) {
  lines.add(10, 0);
  insert(at(10), QStringLiteral("a\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{10, 11, 0}}));
  insert(at(11), QStringLiteral("a"));
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, ReportsLinesThatMoveDownFromTheLastAndThoseThatMoveUpFromTheFirst) {
  for (const int line : {7, 3, 5, 5})
    lines.add(line, line);
  insert(0, QStringLiteral("\n\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 9, 7}, {5, 7, 5}, {3, 5, 3}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 3, 3}, {7, 5, 5}, {9, 7, 7}}));
}

TEST_F(TrackedLinesTest, ReportsEachValueOfALineOnceHoweverOftenItWasAdded) {
  for (const int data : {1, 2, 1, 2, 2})
    lines.add(5, data);
  insert(0, QStringLiteral("\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 6, 1}, {5, 6, 2}}));
}

TEST_F(TrackedLinesTest, TracksALineUntilEveryAddHasBeenTakenBack) {
  lines.add(5, 0);
  lines.add(5, 0);
  lines.remove(lines.indexOf(5));
  insert(0, QStringLiteral("\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 6, 0}}));
  lines.remove(lines.indexOf(6));
  EXPECT_EQ(lines.indexOf(6), -1);
  insert(0, QStringLiteral("\n"));
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, TakesBackTheAddThatCameLastAndKeepsThePastOfTheOthers) {
  lines.add(5, 0);
  replace(at(3), at(6), {});
  lines.add(3, 0);
  lines.remove(lines.indexOf(3));
  taken();
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 5, 0}}));
}

TEST_F(TrackedLinesTest, TakesBackTheAddThatCameLastAlsoOfLinesThatHaveMet) {
  lines.add(7, 0);
  lines.add(5, 1);
  replace(at(3), at(8), {});
  lines.remove(lines.indexOf(3));
  taken();
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 7, 0}}));
}

TEST_F(TrackedLinesTest, CountsALineThatIsAddedInsideAnEditBlockAsTheTextIsThen) {
  lines.add(5, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  cursor.insertText(QStringLiteral("\n\n"));
  lines.add(6, 1);
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 7, 0}}));
  cursor.insertText(QStringLiteral("\n"));
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 8, 0}, {6, 7, 1}}));
}

TEST_F(TrackedLinesTest, FollowsEditsAtSeveralPlacesThatAreUndoneAsOne) {
  for (const int line : {0, 3, 6, 9})
    lines.add(line, line);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  insert(at(8), QStringLiteral("x\n"));
  replace(at(4), at(6), {});
  insert(at(1), QStringLiteral("y\ny\ny\n"));
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{9, 11, 9}, {6, 7, 6}, {3, 6, 3}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 3, 3}, {7, 6, 6}, {11, 9, 9}}));
}

TEST_F(TrackedLinesTest, ReportsInsideAnEditBlockWhenAsked) {
  lines.add(5, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  cursor.insertText(QStringLiteral("\n"));
  EXPECT_TRUE(taken().empty());
  lines.settle();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 6, 0}}));
  cursor.insertText(QStringLiteral("\n"));
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 7, 0}}));
}

TEST_F(TrackedLinesTest, BringsEveryLineToTheTopWhenTheTextIsSetAnew) {
  lines.add(5, 0);
  fill(QStringLiteral("a\nb"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 0, 0}}));
}

TEST_F(TrackedLinesTest, FindsLinesByTheirPresentNumber) {
  lines.add(5, 0);
  lines.add(2, 1);
  lines.add(5, 2);
  EXPECT_NE(lines.indexOf(5), -1);
  EXPECT_NE(lines.indexOf(2), lines.indexOf(5));
  EXPECT_EQ(lines.indexOf(7), -1);
  insert(0, QStringLiteral("\n\n"));
  EXPECT_NE(lines.indexOf(7), -1);
  EXPECT_EQ(lines.indexOf(5), -1);
  lines.remove(lines.indexOf(7));
  EXPECT_NE(lines.indexOf(7), -1) << "the other one of the same line";
  lines.remove(lines.indexOf(7));
  EXPECT_EQ(lines.indexOf(7), -1);
  EXPECT_EQ(lines.size(), 1);
}

TEST_F(TrackedLinesTest, TracksNoLineOutsideTheText) {
  lines.add(-1, 0);
  lines.add(11, 0);
  EXPECT_EQ(lines.size(), 0);
  lines.add(10, 0);
  EXPECT_EQ(lines.size(), 1);
}

TEST_F(TrackedLinesTest, ReportsNothingOfALineThatIsNoLongerTracked) {
  lines.add(5, 0);
  lines.remove(0);
  insert(0, QStringLiteral("\n"));
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, BringsALineBackWithRedoThatAGroupTookAndPutLinesInFrontOf) {
  lines.add(5, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  replace(at(5), at(5) + 1, {});
  lines.settle();
  insert(at(5), QStringLiteral("a\nb\n"));
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 7, 0}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 5, 0}}));
  document.redo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 7, 0}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 5, 0}}));
}

TEST_F(TrackedLinesTest, BringsALineBackWithUndoThatAGroupBrokeOffAndMovedUp) {
  lines.add(5, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  insert(at(4) + 1, QStringLiteral("\nab"));
  lines.settle();
  replace(at(5), at(6), {});
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 6, 0}, {6, 5, 0}}));
  document.undo();
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, BringsALineInsideOfAnUndoneInsertionBackWithRedo) {
  insert(at(3), QStringLiteral("a\nb\nc\n"));
  lines.add(4, 0);
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{4, 3, 0}}));
  document.redo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 4, 0}}));
}

TEST_F(TrackedLinesTest, BringsALineBackThroughManyStepsOfUndoAndRedo) {
  lines.add(6, 0);
  replace(at(5), at(7), QStringLiteral("one\n")); // takes it
  insert(at(0), QStringLiteral("\n"));
  replace(at(3), at(8), {}); // and its place
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 5, 0}, {5, 6, 0}, {6, 3, 0}}));
  for (int round = 0; round < 3; ++round) {
    for (int step = 0; step < 3; ++step)
      document.undo();
    EXPECT_EQ(taken(), (std::vector<Reported>{{3, 6, 0}, {6, 5, 0}, {5, 6, 0}})) << round;
    for (int step = 0; step < 3; ++step)
      document.redo();
    EXPECT_EQ(taken(), (std::vector<Reported>{{6, 5, 0}, {5, 6, 0}, {6, 3, 0}})) << round;
  }
}

TEST_F(TrackedLinesTest, ForgetsWhereRedoWouldHaveLedOnceTheTextIsEdited) {
  insert(at(3), QStringLiteral("a\nb\nc\n"));
  lines.add(5, 0);
  document.undo();
  insert(at(3), QStringLiteral("x\n"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 3, 0}, {3, 4, 0}}));
  document.undo();
  document.redo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{4, 3, 0}, {3, 4, 0}}));
}

TEST_F(TrackedLinesTest, ForgetsWhereUndoWouldHaveLedOnceTheTextIsSetAnew) {
  lines.add(5, 0);
  replace(at(3), at(8), {});
  fill(QStringLiteral("a\nb\nc\nd\ne\nf\ng"));
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 3, 0}, {3, 0, 0}}));
  replace(at(0), at(1), {});
  document.undo();
  EXPECT_TRUE(taken().empty());
}

TEST_F(TrackedLinesTest, LetsALineThatWasTrackedBeforeTheStepLeadOneThatWasNot) {
  lines.add(5, 0);
  replace(at(3), at(8), {});
  lines.add(3, 1);
  taken();
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 5, 0}, {3, 5, 1}}));
}

// Lines of which no more than `marked` have marks.
class FewMarksTest : public TrackedLinesTest {
protected:
  void trackWithMarks(int marked) {
    few = std::make_unique<TrackedLines>(
        document,
        [this](const std::vector<LineMove>& moves) {
          for (const LineMove& move : moves)
            reported.emplace_back(move.oldLine, move.newLine, move.data);
        },
        marked);
  }
  // Puts a line in front of lines 3 and 8, as one step.
  void insertAtTwoPlaces() {
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    insert(at(8), QStringLiteral("x\n"));
    insert(at(3), QStringLiteral("y\n"));
    cursor.endEditBlock();
  }

  std::unique_ptr<TrackedLines> few;
};

TEST_F(FewMarksTest, FollowALineBetweenThePlacesOfAGroup) {
  trackWithMarks(1);
  few->add(6, 0);
  insertAtTwoPlaces();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 7, 0}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 6, 0}}));
}

TEST_F(FewMarksTest, AreNotNeededAboveAndBelowThePlacesOfAGroup) {
  trackWithMarks(0);
  few->add(2, 0);
  few->add(9, 1);
  insertAtTwoPlaces();
  EXPECT_EQ(taken(), (std::vector<Reported>{{9, 11, 1}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{11, 9, 1}}));
}

TEST_F(FewMarksTest, LackingTheyLetAGroupTakeALineToItsFirstPlaceAndUndoBringItBack) {
  trackWithMarks(0);
  few->add(6, 0);
  insertAtTwoPlaces();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 3, 0}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 6, 0}}));
  document.redo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 3, 0}}));
}

TEST_F(FewMarksTest, LackingTheyLetNoLineStandBehindTheEndOfTheTextWhileAnEditBlockIsOpen) {
  trackWithMarks(0);
  few->add(9, 0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  replace(at(2), at(9), {});
  few->settle();
  EXPECT_EQ(taken(), (std::vector<Reported>{{9, 3, 0}}));
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{3, 2, 0}}));
}

TEST_F(FewMarksTest, AreThereAgainForOthersWhenALineIsNoLongerTracked) {
  trackWithMarks(1);
  few->add(5, 0);
  few->remove(few->indexOf(5));
  few->add(6, 1);
  insertAtTwoPlaces();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 7, 1}}));
}

TEST_F(FewMarksTest, AreGivenToALineThatIsAddedInsideAnEditBlock) {
  trackWithMarks(0);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  cursor.insertText(QStringLiteral("\n\n"));
  few->add(6, 0);
  cursor.insertText(QStringLiteral("\n"));
  cursor.endEditBlock();
  EXPECT_EQ(taken(), (std::vector<Reported>{{6, 7, 0}}));
}

} // namespace
} // namespace desktop
