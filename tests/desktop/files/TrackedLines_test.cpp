// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include "desktop/files/FileFixture.h"

#include <algorithm>
#include <random>
#include <string>
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

// The text as a string, and tracked lines as the places where they start.
class LineModel {
public:
  explicit LineModel(std::string text) : text_(std::move(text)) {}

  struct Edit {
    int place;
    std::string removed;
    std::string inserted;
  };
  struct Mark {
    int start;
    std::vector<std::pair<std::size_t, int>> lost = {}; // how many edits had been done, and where it started then
  };

  // The edits that are undone as one.
  using Step = std::vector<Edit>;

  void begin() {
    done_.emplace_back();
    starts_ = starts();
  }
  // Makes an edit of the step that was begun last.
  void add(const Edit& edit) {
    const std::size_t before = done_.size() - 1;
    for (std::size_t mark = 0; mark < marks.size(); ++mark) {
      auto& lost = marks[mark].lost;
      if (isLost(marks[mark].start, edit) && (lost.empty() || lost.back().first != before))
        lost.emplace_back(before, starts_[mark]);
    }
    change(edit);
    done_.back().push_back(edit);
  }
  void apply(const Edit& edit) {
    begin();
    add(edit);
  }
  // Makes an edit that goes on with the one before, with which it will be undone.
  void goOn(const Edit& edit) {
    change(edit);
    Edit& last = done_.back().back();
    last.inserted += edit.inserted;
    last.removed = edit.place < last.place ? edit.removed + last.removed : last.removed + edit.removed;
    last.place = std::min(edit.place, last.place);
  }

  Step undo() {
    const Step step = done_.back();
    done_.pop_back();
    const std::vector<int> before = starts();
    for (auto edit = step.rbegin(); edit != step.rend(); ++edit)
      change({edit->place, edit->inserted, edit->removed});
    for (Mark& mark : marks) {
      for (; !mark.lost.empty() && mark.lost.back().first == done_.size(); mark.lost.pop_back())
        mark.start = mark.lost.back().second;
    }
    keepTogether(before);
    return step;
  }

  bool canUndo() const { return !done_.empty(); }
  int lineStart(int place) const {
    if (place == 0)
      return 0;
    const std::size_t before = text_.rfind('\n', static_cast<std::size_t>(place) - 1);
    return before == std::string::npos ? 0 : static_cast<int>(before) + 1;
  }
  int lineOf(int place) const { return static_cast<int>(std::count(text_.begin(), text_.begin() + place, '\n')); }
  const std::string& text() const { return text_; }

  std::vector<Mark> marks;

private:
  std::vector<int> starts() const {
    std::vector<int> starts;
    for (const Mark& mark : marks)
      starts.push_back(mark.start);
    return starts;
  }

  static int endOf(const Edit& edit) { return edit.place + static_cast<int>(edit.removed.size()); }

  // Whether the line that starts at `start` loses its first character or is joined to the one above.
  bool isLost(int start, const Edit& edit) const {
    const bool isJoined = start == endOf(edit) && start > edit.place && lineStart(edit.place) != edit.place;
    return (start >= edit.place && start < endOf(edit)) || isJoined;
  }

  void change(const Edit& edit) {
    const int end = endOf(edit);
    const int line = lineStart(edit.place);
    const bool staysWhole =
        line == edit.place && (edit.inserted.empty() || edit.inserted.ends_with('\n')); // the line behind the edit
    for (Mark& mark : marks) {
      if (mark.start > end || (mark.start == end && staysWhole))
        mark.start += static_cast<int>(edit.inserted.size()) - static_cast<int>(edit.removed.size());
      else if (mark.start >= edit.place)
        mark.start = line;
    }
    text_.replace(static_cast<std::size_t>(edit.place), edit.removed.size(), edit.inserted);
  }

  // What was one line is one line again, the first of those that it could be.
  void keepTogether(const std::vector<int>& before) {
    for (std::size_t mark = 0; mark < marks.size(); ++mark) {
      for (std::size_t other = 0; other < marks.size(); ++other) {
        if (before[other] == before[mark])
          marks[mark].start = std::min(marks[mark].start, marks[other].start);
      }
    }
  }

  std::string text_;
  std::vector<Step> done_;
  std::vector<int> starts_; // before the step that was begun last
};

// Random edits of a model's text, made to the document as well. Groups of edits are undone, but never redone: the
// tracked lines see the sum of a group then, not its edits.
class RandomEdits {
public:
  RandomEdits(SourceDocument& document, TrackedLines& lines, LineModel& model)
      : document_(document), lines_(lines), model_(model) {}

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  void step() {
    const int kind = below(10);
    if (kind == 0 && model_.canUndo()) {
      document_.undo();
      undone_.push_back(model_.undo());
    } else if (kind == 1 && !undone_.empty() && undone_.back().size() == 1) {
      document_.redo();
      model_.apply(undone_.back().front());
      undone_.pop_back();
    } else {
      undone_.clear();
      edit();
    }
  }

private:
  void edit() {
    const int kind = below(4);
    if (kind == 0)
      pressKeys();
    else if (kind == 1)
      group();
    else
      block();
  }

  int place() {
    const int place = below(static_cast<int>(model_.text().size()) + 1);
    return below(2) == 0 ? model_.lineStart(place) : place; // where it matters most
  }

  // An edit at `begin` that changes something.
  LineModel::Edit change(int begin) {
    for (;;) {
      const std::string& text = model_.text();
      const int length = below(3) == 0 ? std::min(below(12), static_cast<int>(text.size()) - begin) : 0;
      LineModel::Edit edit{begin, text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(length)),
                           pieces_[static_cast<std::size_t>(below(static_cast<int>(pieces_.size())))]};
      if (!edit.removed.empty() || !edit.inserted.empty())
        return edit;
    }
  }

  void make(const LineModel::Edit& edit) {
    const bool forward = below(2) == 0;
    const int end = edit.place + static_cast<int>(edit.removed.size());
    QTextCursor cursor(&document_);
    cursor.setPosition(forward ? edit.place : end);
    cursor.setPosition(forward ? end : edit.place, QTextCursor::KeepAnchor);
    cursor.beginEditBlock();
    cursor.insertText(QString::fromStdString(edit.inserted));
    cursor.endEditBlock();
  }

  void block() {
    const LineModel::Edit edit = change(place());
    make(edit);
    model_.apply(edit);
  }

  // Several edits as one step, with a look at the lines after each.
  void group() {
    QTextCursor cursor(&document_);
    cursor.beginEditBlock();
    model_.begin();
    int at = place();
    for (int count = 2 + below(3); count > 0; --count) {
      const LineModel::Edit edit = change(at);
      make(edit);
      lines_.settle();
      model_.add(edit);
      at = below(2) == 0 ? std::min(at, static_cast<int>(model_.text().size())) : place(); // often where it just was
    }
    cursor.endEditBlock();
  }

  // One of the keys x, Backspace and Delete, some times. Several presses may be undone as one.
  void pressKeys() {
    const int key = below(3);
    QTextCursor cursor(&document_);
    cursor.setPosition(place());
    for (int count = 1 + below(4); count > 0; --count) {
      const int at = cursor.position() - (key == 1 ? 1 : 0);
      if (key != 0 && (at < 0 || at >= static_cast<int>(model_.text().size())))
        return;
      const int steps = document_.availableUndoSteps();
      if (key == 0)
        cursor.insertText(QStringLiteral("x"));
      else if (key == 1)
        cursor.deletePreviousChar();
      else
        cursor.deleteChar();
      const LineModel::Edit edit = key == 0
                                       ? LineModel::Edit{at, {}, "x"}
                                       : LineModel::Edit{at, model_.text().substr(static_cast<std::size_t>(at), 1), {}};
      if (document_.availableUndoSteps() == steps) {
        ++joined;
        model_.goOn(edit);
      } else {
        model_.apply(edit);
      }
    }
  }

  SourceDocument& document_;
  TrackedLines& lines_;
  LineModel& model_;
  std::mt19937 random_{20010131}; // NOLINT(bugprone-random-generator-seed): the same edits in every run
  std::vector<LineModel::Step> undone_;
  std::vector<std::string> pieces_ = {"", "x", "\n", "ab\n", "\n\n", "begin\n  \nend;", "a\nb\nc\n", "\nx"};

public:
  int joined = 0; // key presses that will be undone with the one before
};

// Ten thousand edits with fifty markers, each of which knows nothing but its line and what it is told.
TEST(TrackedLinesModel, AgreesWithASimpleModelAfterEveryOneOfRandomEdits) {
  std::string text;
  for (int line = 0; line < 120; ++line)
    text += std::string(static_cast<std::size_t>(line % 9), 'x') + '\n';
  SourceDocument document(QStringLiteral("/unit.pas"));
  document.setPlainText(QString::fromStdString(text));
  LineModel model(text);

  std::vector<int> markers;
  TrackedLines lines(document, [&markers](const std::vector<LineMove>& moves) {
    for (const LineMove& move : moves)
      std::ranges::replace(markers, move.oldLine, move.newLine);
  });
  RandomEdits edits(document, lines, model);
  const auto drop = [&](int line) {
    lines.add(line, 0);
    markers.push_back(line);
    model.marks.push_back({document.findBlockByNumber(line).position()});
  };
  for (int marker = 0; marker < 50; ++marker)
    drop(edits.below(document.blockCount()));

  for (int step = 0; step < 10'000; ++step) {
    edits.step();
    if (step % 100 == 0) {
      ASSERT_EQ(document.toPlainText().toStdString(), model.text()) << "step " << step;
    }
    for (std::size_t marker = 0; marker < markers.size(); ++marker)
      ASSERT_EQ(markers[marker], model.lineOf(model.marks[marker].start)) << "marker " << marker << ", step " << step;
    // Markers gather where much is deleted, so now and then one is picked up and dropped elsewhere.
    if (edits.below(20) == 0) {
      lines.remove(lines.indexOf(markers.front()));
      const auto last = std::find(markers.rbegin(), markers.rend(), markers.front()).base() - 1 - markers.begin();
      markers.erase(markers.begin() + last);
      model.marks.erase(model.marks.begin() + last);
      drop(edits.below(document.blockCount()));
    }
  }
  EXPECT_GT(edits.joined, 100);
}

} // namespace
} // namespace desktop
