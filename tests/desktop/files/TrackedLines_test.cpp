// SPDX-License-Identifier: MIT
#include "desktop/files/TrackedLines.h"

#include "desktop/files/FileFixture.h"

#include <algorithm>
#include <deque>
#include <random>
#include <string>
#include <tuple>
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
  TrackedLines lines{document,
                     [this](int oldLine, int newLine, int data) { reported.emplace_back(oldLine, newLine, data); }};
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
  EXPECT_EQ(taken(), (std::vector<Reported>{{7, 9, 7}, {5, 7, 5}, {5, 7, 5}, {3, 5, 3}}));
  document.undo();
  EXPECT_EQ(taken(), (std::vector<Reported>{{5, 3, 3}, {7, 5, 5}, {7, 5, 5}, {9, 7, 7}}));
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
  EXPECT_EQ(lines.indexOf(5), 0);
  EXPECT_EQ(lines.indexOf(2), 1);
  EXPECT_EQ(lines.indexOf(7), -1);
  insert(0, QStringLiteral("\n\n"));
  EXPECT_EQ(lines.indexOf(7), 0);
  lines.remove(0);
  EXPECT_EQ(lines.indexOf(7), 1) << "the other one of the same line";
  lines.remove(1);
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

  void apply(const Edit& edit) {
    const int end = edit.place + static_cast<int>(edit.removed.size());
    const int grown = static_cast<int>(edit.inserted.size());
    const int line = lineStart(edit.place);
    const bool staysWhole =
        line == edit.place && (edit.inserted.empty() || edit.inserted.ends_with('\n')); // the line behind the edit
    for (int& start : starts) {
      if (start > end || (start == end && staysWhole))
        start += grown - static_cast<int>(edit.removed.size());
      else if (start >= edit.place)
        start = line;
    }
    text_.replace(static_cast<std::size_t>(edit.place), edit.removed.size(), edit.inserted);
  }

  int lineStart(int place) const {
    if (place == 0)
      return 0;
    const std::size_t before = text_.rfind('\n', static_cast<std::size_t>(place) - 1);
    return before == std::string::npos ? 0 : static_cast<int>(before) + 1;
  }
  int lineOf(int place) const { return static_cast<int>(std::count(text_.begin(), text_.begin() + place, '\n')); }
  const std::string& text() const { return text_; }

  std::vector<int> starts;

private:
  std::string text_;
};

// Ten thousand edits with fifty markers, each of which knows nothing but its line and what it is told.
TEST(TrackedLinesModel, AgreesWithASimpleModelAfterEveryOneOfRandomEdits) {
  std::mt19937 random(20010131); // NOLINT(bugprone-random-generator-seed): the same edits in every run
  const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  std::string text;
  for (int line = 0; line < 120; ++line)
    text += std::string(static_cast<std::size_t>(below(9)), 'x') + '\n';
  SourceDocument document(QStringLiteral("/unit.pas"));
  document.setPlainText(QString::fromStdString(text));
  LineModel model(text);

  std::vector<int> markers;
  TrackedLines lines(document,
                     [&markers](int oldLine, int newLine, int) { std::ranges::replace(markers, oldLine, newLine); });
  const auto drop = [&](int line) {
    lines.add(line, 0);
    markers.push_back(line);
    model.starts.push_back(document.findBlockByNumber(line).position());
  };
  for (int marker = 0; marker < 50; ++marker)
    drop(below(document.blockCount()));

  const std::vector<std::string> pieces = {"", "x", "\n", "ab\n", "\n\n", "begin\n  \nend;", "a\nb\nc\n", "\nx"};
  std::deque<LineModel::Edit> done;
  std::deque<LineModel::Edit> undone;
  for (int step = 0; step < 10'000; ++step) {
    const int kind = below(10);
    if (kind == 0 && !done.empty()) {
      document.undo();
      const LineModel::Edit edit = done.back();
      done.pop_back();
      undone.push_back(edit);
      model.apply({edit.place, edit.inserted, edit.removed});
    } else if (kind == 1 && !undone.empty()) {
      document.redo();
      const LineModel::Edit edit = undone.back();
      undone.pop_back();
      done.push_back(edit);
      model.apply(edit);
    } else {
      const int size = static_cast<int>(model.text().size());
      int place = below(size + 1);
      if (below(2) == 0) // where it matters most
        place = model.lineStart(place);
      const int length = below(3) == 0 ? std::min(below(12), size - place) : 0;
      const LineModel::Edit edit{place,
                                 model.text().substr(static_cast<std::size_t>(place), static_cast<std::size_t>(length)),
                                 pieces[static_cast<std::size_t>(below(static_cast<int>(pieces.size())))]};
      if (edit.removed.empty() && edit.inserted.empty())
        continue;
      QTextCursor cursor(&document);
      cursor.setPosition(place + (below(2) == 0 ? length : 0));
      cursor.setPosition(2 * place + length - cursor.position(), QTextCursor::KeepAnchor); // either way round
      cursor.beginEditBlock();
      cursor.insertText(QString::fromStdString(edit.inserted));
      cursor.endEditBlock();
      done.push_back(edit);
      undone.clear();
      model.apply(edit);
    }
    if (step % 100 == 0) {
      ASSERT_EQ(document.toPlainText().toStdString(), model.text()) << "step " << step;
    }
    for (std::size_t marker = 0; marker < markers.size(); ++marker)
      ASSERT_EQ(markers[marker], model.lineOf(model.starts[marker])) << "marker " << marker << ", step " << step;
    // Markers gather where much is deleted, so now and then one is picked up and dropped elsewhere.
    if (below(20) == 0) {
      lines.remove(lines.indexOf(markers.front()));
      markers.erase(markers.begin());
      model.starts.erase(model.starts.begin());
      drop(below(document.blockCount()));
    }
  }
}

} // namespace
} // namespace desktop
