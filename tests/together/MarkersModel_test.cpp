// SPDX-License-Identifier: MIT
// Position markers in the real editor against a model of their lines.
#include "together/MarkerFixture.h"

#include <map>
#include <random>

namespace together {
namespace {

// What markers are expected to do, by the positions of an edit alone, which either inserts or removes. Steps of undo
// are made of one or several edits. Undo and redo bring each marker back to the row that it had in that state of the
// text, unless it has met another one meanwhile: then both stay together where the one above of them was.
class LineModel {
public:
  struct Edit {
    int position;
    QString removed;
    QString inserted;
  };

  explicit LineModel(const QString& text) : text_(text) {}

  // Before the first edit.
  void drop(int row) {
    rows_.push_back(row);
    states_ = {rows_};
  }
  const std::vector<int>& rows() const { return rows_; }
  const QString& text() const { return text_; }
  bool canUndo() const { return !done_.empty(); }
  bool canRedo() const { return !undone_.empty(); }
  // The blanks with which the line of `position` begins, as far as they are before it.
  QString indentationAt(int position) const {
    const QString before = text_.first(position);
    const QString line = before.sliced(before.lastIndexOf(u'\n') + 1);
    const auto* const end = std::ranges::find_if(line, [](QChar character) { return character != u' '; });
    return line.first(end - line.begin());
  }

  // A step of undo: begin, the edits, and finish.
  void begin() { done_.emplace_back(); }
  void add(const Edit& edit) {
    change(edit);
    done_.back().push_back(edit);
  }
  void finish() {
    undone_.clear();
    states_.resize(done_.size());
    states_.push_back(rows_);
  }
  void apply(const Edit& edit) {
    begin();
    add(edit);
    finish();
  }
  // Makes an edit that goes on with the one before, with which it will be undone.
  void goOn(const Edit& edit) {
    change(edit);
    Edit& last = done_.back().back();
    last.inserted += edit.inserted;
    last.removed = edit.position < last.position ? edit.removed + last.removed : last.removed + edit.removed;
    last.position = std::min(edit.position, last.position);
    finish();
  }

  void undo() {
    const Step step = done_.back();
    done_.pop_back();
    for (auto edit = step.rbegin(); edit != step.rend(); ++edit)
      text_.replace(edit->position, edit->inserted.size(), edit->removed);
    undone_.push_back(step);
    travel();
  }
  void redo() {
    const Step step = undone_.back();
    undone_.pop_back();
    for (const Edit& edit : step)
      text_.replace(edit.position, edit.removed.size(), edit.inserted);
    done_.push_back(step);
    travel();
  }

private:
  int rowAt(int position) const { return static_cast<int>(QStringView(text_).first(position).count(u'\n')) + 1; }
  bool isLineStart(int position) const { return position == 0 || text_[position - 1] == u'\n'; }

  // Of markers that are on one row, those whose row was further down go along with the highest from now on.
  void travel() {
    std::vector<int>& state = states_[done_.size()];
    std::map<int, std::size_t> highest; // marker by the row before
    for (std::size_t marker = 0; marker < rows_.size(); ++marker) {
      std::size_t& best = highest.try_emplace(rows_[marker], marker).first->second;
      if (state[marker] < state[best])
        best = marker;
    }
    for (std::size_t marker = 0; marker < rows_.size(); ++marker) {
      const std::size_t leader = highest.at(rows_[marker]);
      if (state[marker] == state[leader])
        continue;
      for (std::vector<int>& each : states_)
        each[marker] = each[leader];
    }
    rows_ = state;
  }

  void change(const Edit& edit) {
    const int begin = edit.position;
    const int end = begin + static_cast<int>(edit.removed.size());
    const int first = rowAt(begin);
    const int last = rowAt(end);
    const auto lines = static_cast<int>(edit.inserted.count(u'\n'));
    const bool movesLineOfItsOwn = isLineStart(begin) && edit.inserted.endsWith(u'\n');
    for (int& each : rows_) {
      each = each > last ? each - (last - first) : std::min(each, first);
      if (each > first || (each == first && movesLineOfItsOwn))
        each += lines;
    }
    text_.replace(begin, edit.removed.size(), edit.inserted);
  }

  using Step = std::vector<Edit>;

  QString text_;
  std::vector<int> rows_;
  std::vector<std::vector<int>> states_; // the rows after each number of steps, also of those that are undone
  std::vector<Step> done_;
  std::vector<Step> undone_;
};

class MarkersAndModel : public MarkerFixture, public testing::WithParamInterface<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Of, MarkersAndModel, testing::Range(1U, 11U));

TEST_P(MarkersAndModel, StandWhereAModelSaysAfterRandomEditsAndStepsThroughTheirHistory) {
  openWithAddIn(QByteArray("x := 1;\n").repeated(100));
  QTextDocument& document = *window()->currentPage()->document();
  const QString file = window()->currentPage()->document()->fileName();
  std::mt19937 random(GetParam());
  const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
  LineModel model(document.toPlainText());
  const auto marked = services->GetTopView();
  for (int marker = 0; marker < 50; ++marker) {
    const int row = 1 + upTo(99);
    editor()->setCaret(row, 1 + upTo(5));
    stack().Push(services->GetTopView());
    model.drop(row);
  }
  ASSERT_NE(openText(QStringLiteral("other.pas"), "other\n"), nullptr) << "half of the edits happen behind this page";

  // Types and takes characters at a random place. Qt makes one step of several key presses.
  const auto pressKeys = [&] {
    QTextCursor cursor(&document);
    cursor.setPosition(upTo(static_cast<int>(model.text().size())));
    const int key = upTo(2);
    for (int presses = upTo(3); presses >= 0; --presses) {
      const int at = cursor.position() - (key == 1 ? 1 : 0);
      if (key != 0 && (at < 0 || at >= model.text().size()))
        return;
      const int steps = document.availableUndoSteps();
      if (key == 0)
        cursor.insertText(QStringLiteral("k"));
      else if (key == 1)
        cursor.deletePreviousChar();
      else
        cursor.deleteChar();
      const LineModel::Edit edit =
          key == 0 ? LineModel::Edit{at, {}, QStringLiteral("k")} : LineModel::Edit{at, model.text().mid(at, 1), {}};
      document.availableUndoSteps() == steps ? model.goOn(edit) : model.apply(edit);
    }
  };
  // Types and takes characters as an expansion does, as one step.
  const auto typeGroup = [&] {
    const auto buffer = marked->GetBuffer();
    const auto position = marked->GetPosition();
    position->Move(1 + upTo(document.blockCount() - 1), 1);
    int at = document.findBlockByNumber(position->GetRow() - 1).position();
    const auto group = buffer->BeginUndoGroup();
    model.begin();
    for (const char16_t character : {u'p', u'\r', u'q', u'~', u'~', u'~', u'~', u'\r'}) {
      if (upTo(2) == 0)
        continue;
      if (character != u'~') {
        position->InsertCharacter(character);
        const QString typed = character == u'\r' ? u'\n' + model.indentationAt(at) : QString(QChar(character));
        model.add({at, {}, typed});
        at += static_cast<int>(typed.size());
      } else if (at > 0) {
        position->BackspaceDelete(1);
        --at;
        model.add({at, model.text().mid(at, 1), {}});
      }
    }
    position->InsertCharacter(U'z'); // some edit there must be
    model.add({at, {}, QStringLiteral("z")});
    model.finish();
  };

  int redone = 0;
  bool travels = false; // the last round went through the history
  const QStringList pieces = {QStringLiteral("\n"),    QStringLiteral("a"),      QStringLiteral("\n\n"),
                              QStringLiteral("b\n"),   QStringLiteral("\nc"),    QStringLiteral("d\ne\n"),
                              QStringLiteral("  f\n"), QStringLiteral("\n  g h")};
  constexpr int rounds = 1'000;
  for (int round = 0; round < rounds; ++round) {
    if (round == rounds / 2)
      workspace.openFile(file);
    const int kind = upTo(travels ? 3 : 9);
    travels = true;
    if (kind == 0 && model.canUndo()) {
      document.undo();
      model.undo();
    } else if (kind == 1 && model.canRedo()) {
      document.redo();
      model.redo();
      ++redone;
    } else if (kind == 2) {
      pressKeys();
      travels = false;
    } else if (kind == 3) {
      typeGroup();
      travels = false;
    } else {
      travels = false;
      const QString& text = model.text();
      const int size = static_cast<int>(text.size());
      const int position = upTo(size);
      // Longer texts are cut more, so that the text keeps its size.
      const int length = upTo(size > 2'000 ? 20 : 4) * (kind % 2);
      const LineModel::Edit edit = {position, text.mid(position, length),
                                    kind % 2 == 0 ? pieces[upTo(static_cast<int>(pieces.size()) - 1)] : QString()};
      if (edit.removed.isEmpty() && edit.inserted.isEmpty())
        continue;
      QTextCursor cursor(&document);
      cursor.beginEditBlock();
      cursor.setPosition(position);
      cursor.setPosition(position + static_cast<int>(edit.removed.size()), QTextCursor::KeepAnchor);
      cursor.removeSelectedText();
      cursor.insertText(edit.inserted);
      cursor.endEditBlock();
      model.apply(edit);
    }
    ASSERT_EQ(document.toPlainText(), model.text()) << round;
    ASSERT_EQ(rowsOf(file), model.rows()) << round;
  }
  EXPECT_GT(redone, 10);
  for (int marker = 49; marker >= 0; --marker)
    ASSERT_EQ(pickUp()[0], model.rows()[static_cast<std::size_t>(marker)]) << marker;
}

} // namespace
} // namespace together
