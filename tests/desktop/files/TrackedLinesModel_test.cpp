// SPDX-License-Identifier: MIT
// Tracked lines against a model of them, through random edits and ways back and forth through their history.
#include "desktop/files/TrackedLines.h"

#include "desktop/files/FileFixture.h"

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace desktop {
namespace {

// The text as a string, and tracked lines as the places where they start.
class LineModel {
public:
  explicit LineModel(std::string text) : text_(std::move(text)) { findLines(); }

  struct Edit {
    int place;
    std::string removed;
    std::string inserted;

    int end() const { return place + static_cast<int>(removed.size()); }
    int growth() const { return static_cast<int>(inserted.size()) - static_cast<int>(removed.size()); }
  };

  // Steps of undo are made of edits: begin, add any number of them, and finish.
  void begin() { done_.emplace_back(); }
  void add(const Edit& edit) {
    change(edit);
    done_.back().push_back(edit);
  }
  void finish() {
    undone_.clear();
    for (Mark& mark : marks_) {
      mark.starts.erase(mark.starts.upper_bound(done_.size()), mark.starts.end());
      mark.starts[done_.size()] = mark.start;
    }
  }
  // An edit that goes on with the one before, with which it will be undone.
  void goOn(const Edit& edit) {
    change(edit);
    Edit& last = done_.back().back();
    last.inserted += edit.inserted;
    last.removed = edit.place < last.place ? edit.removed + last.removed : last.removed + edit.removed;
    last.place = std::min(edit.place, last.place);
    finish();
  }

  bool canUndo() const { return !done_.empty(); }
  bool canRedo() const { return !undone_.empty(); }
  void undo() {
    Step step = done_.back();
    done_.pop_back();
    undone_.push_back(step);
    std::ranges::reverse(step);
    for (Edit& edit : step)
      std::swap(edit.removed, edit.inserted);
    travel(step);
  }
  void redo() {
    done_.push_back(undone_.back());
    undone_.pop_back();
    travel(done_.back());
  }

  void mark(int line) {
    const int start = lines_[static_cast<std::size_t>(line)];
    marks_.push_back({start, {{done_.size(), start}}});
  }
  void unmark(std::size_t mark) { marks_.erase(marks_.begin() + static_cast<std::ptrdiff_t>(mark)); }
  // The line of each mark, from 0.
  std::vector<int> marked() const {
    std::vector<int> lines;
    for (const Mark& mark : marks_)
      lines.push_back(static_cast<int>(std::ranges::upper_bound(lines_, mark.start) - lines_.begin()) - 1);
    return lines;
  }

  int lineStart(int place) const { return *std::prev(std::ranges::upper_bound(lines_, place)); }
  int lineCount() const { return static_cast<int>(lines_.size()); }
  const std::string& text() const { return text_; }

private:
  using Step = std::vector<Edit>;
  struct Mark {
    int start;
    std::map<std::size_t, int> starts; // by the number of steps that are done: where it was, or will be
  };

  void findLines() {
    lines_ = {0};
    for (std::size_t place = 0; place < text_.size(); ++place) {
      if (text_[place] == '\n')
        lines_.push_back(static_cast<int>(place) + 1);
    }
  }
  void changeText(const Edit& edit) {
    text_.replace(static_cast<std::size_t>(edit.place), edit.removed.size(), edit.inserted);
    findLines();
  }

  // An edit takes lines with it; one whose start it touches stays whole if whole lines are put in front of it.
  void change(const Edit& edit) {
    const int line = lineStart(edit.place);
    const bool staysWhole = line == edit.place && (edit.inserted.empty() || edit.inserted.ends_with('\n'));
    for (Mark& mark : marks_) {
      if (mark.start > edit.end() || (mark.start == edit.end() && staysWhole))
        mark.start += edit.growth();
      else if (mark.start >= edit.place)
        mark.start = line;
    }
    changeText(edit);
  }

  // Where the first of two places, the start of a line and the one behind its first character, comes by all of `step`.
  // The line goes with its character as long as that begins a line.
  int followed(int start, const Step& step) const {
    const int size = static_cast<int>(text_.size());
    int end = start + 1; // one behind the end of the text for an empty last line
    int textEnd = size;
    for (const Edit& edit : step)
      textEnd -= edit.growth();
    const bool isAtEnd = start == textEnd;
    for (const Edit& edit : step) {
      for (int* const place : {&start, &end}) {
        if (*place > edit.end())
          *place += edit.growth();
        else
          *place = std::min(*place, edit.place);
      }
    }
    const int first = isAtEnd ? size : end - 1;
    const bool isWhole = first >= start && lineStart(start) == start;
    return isWhole && lineStart(first) == first ? first : lineStart(start);
  }

  // Marks of one line stay together, at the first place where one of them was, and none overtakes another. Who is kept
  // from its place has no past any more.
  void travel(const Step& step) {
    for (const Edit& edit : step)
      changeText(edit);
    const std::size_t state = done_.size();
    std::map<int, int> remembered; // by the start before
    for (const Mark& mark : marks_) {
      if (const auto found = mark.starts.find(state); found != mark.starts.end()) {
        int& place = remembered.try_emplace(mark.start, found->second).first->second;
        place = std::min(place, found->second);
      }
    }
    std::map<int, int> targets;
    for (const Mark& mark : marks_) {
      const auto known = remembered.find(mark.start);
      targets.emplace(mark.start, known != remembered.end() ? known->second : followed(mark.start, step));
    }
    int highest = 0;
    for (auto& [before, target] : targets)
      highest = target = std::max(target, highest);
    for (Mark& mark : marks_) {
      const auto own = mark.starts.find(state);
      const int target = targets.at(mark.start);
      if ((own != mark.starts.end() ? own->second : followed(mark.start, step)) != target)
        mark.starts.clear();
      mark.start = mark.starts[state] = target;
    }
  }

  std::string text_;
  std::vector<int> lines_; // where they start
  std::vector<Mark> marks_;
  std::vector<Step> done_;
  std::vector<Step> undone_;
};

// Random edits of a model's text, made to the document as well.
class RandomEdits {
public:
  // `groups`: whether some steps are made of edits at several places.
  RandomEdits(SourceDocument& document, TrackedLines& lines, LineModel& model, unsigned seed, bool groups)
      : document_(document), lines_(lines), model_(model), random_(seed), groups_(groups) {}

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  // An edit or, often several times in a row, a step through the history.
  void step() {
    const int kind = below(travels_ ? 3 : 10);
    travels_ = true;
    if (kind == 0 && model_.canUndo()) {
      document_.undo();
      model_.undo();
    } else if (kind == 1 && model_.canRedo()) {
      document_.redo();
      model_.redo();
      ++redone;
    } else {
      travels_ = false;
      edit();
    }
  }

private:
  void edit() {
    const int kind = below(4);
    if (kind == 0)
      pressKeys();
    else if (kind == 1 && groups_)
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
    QTextCursor cursor(&document_);
    cursor.setPosition(forward ? edit.place : edit.end());
    cursor.setPosition(forward ? edit.end() : edit.place, QTextCursor::KeepAnchor);
    cursor.beginEditBlock();
    cursor.insertText(QString::fromStdString(edit.inserted));
    cursor.endEditBlock();
  }

  void block() {
    const LineModel::Edit edit = change(place());
    make(edit);
    model_.begin();
    model_.add(edit);
    model_.finish();
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
    model_.finish();
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
        model_.begin();
        model_.add(edit);
        model_.finish();
      }
    }
  }

  SourceDocument& document_;
  TrackedLines& lines_;
  LineModel& model_;
  std::mt19937 random_;
  bool groups_;
  bool travels_ = false; // the last step went through the history
  std::vector<std::string> pieces_ = {"", "x", "\n", "ab\n", "\n\n", "begin\n  \nend;", "a\nb\nc\n", "\nx"};

public:
  int joined = 0; // key presses that will be undone with the one before
  int redone = 0;
};

class TrackedLinesModel : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Of, TrackedLinesModel, testing::Range(1U, 41U));

// A thousand edits with fifty markers, each of which knows nothing but its line and what it is told.
void compareWithModel(unsigned seed, int mostMarked, bool groups) {
  std::string text;
  for (int line = 0; line < 120; ++line)
    text += std::string(static_cast<std::size_t>(line % 9), 'x') + '\n';
  SourceDocument document(QStringLiteral("/unit.pas"));
  document.setPlainText(QString::fromStdString(text));
  LineModel model(text);

  std::vector<int> markers;
  TrackedLines lines(
      document,
      [&markers](const std::vector<LineMove>& moves) {
        for (const LineMove& move : moves)
          std::ranges::replace(markers, move.oldLine, move.newLine);
      },
      mostMarked);
  RandomEdits edits(document, lines, model, seed, groups);
  const auto drop = [&](int line) {
    lines.add(line, 0);
    markers.push_back(line);
    model.mark(line);
  };
  for (int marker = 0; marker < 50; ++marker)
    drop(edits.below(model.lineCount()));

  for (int step = 0; step < 1'000; ++step) {
    edits.step();
    if (step % 100 == 0) {
      ASSERT_EQ(document.toPlainText().toStdString(), model.text()) << "step " << step;
    }
    ASSERT_EQ(markers, model.marked()) << "step " << step;
    // Markers gather where much is deleted, so now and then one is picked up and dropped elsewhere.
    if (edits.below(20) == 0) {
      lines.remove(lines.indexOf(markers.front()));
      const auto last = std::find(markers.rbegin(), markers.rend(), markers.front()).base() - 1 - markers.begin();
      markers.erase(markers.begin() + last);
      model.unmark(static_cast<std::size_t>(last));
      drop(edits.below(model.lineCount()));
    }
  }
  EXPECT_GT(edits.joined, 10);
  EXPECT_GT(edits.redone, 10);
}

TEST_P(TrackedLinesModel, AgreesAfterEveryOneOfRandomEditsAndStepsThroughTheirHistory) {
  compareWithModel(GetParam(), 1'000, true);
}

TEST_P(TrackedLinesModel, AgreesWithFewOrNoMarksWhenEveryStepIsAtOnePlace) {
  compareWithModel(GetParam(), static_cast<int>(GetParam()) % 3 * 10, false);
}

} // namespace
} // namespace desktop
