// SPDX-License-Identifier: MIT
// Position markers in the real editor against a model of their lines.
#include "together/MarkerFixture.h"

#include <map>
#include <random>

namespace together {
namespace {

// What markers are expected to do, by the positions of an edit alone, which either inserts or removes. Steps of undo
// are made of one or several edits. A marker whose line a step takes comes back with undo, unless it has met another
// one meanwhile: then both stay together.
class LineModel {
public:
  struct Edit {
    int position;
    QString removed;
    QString inserted;
  };

  explicit LineModel(const QString& text) : text_(text) {}

  void drop(int row) {
    rows_.push_back(row);
    lost_.emplace_back();
  }
  const std::vector<int>& rows() const { return rows_; }
  const QString& text() const { return text_; }
  bool canUndo() const { return !done_.empty(); }
  // The blanks with which the line of `position` begins, as far as they are before it.
  QString indentationAt(int position) const {
    const QString before = text_.first(position);
    const QString line = before.sliced(before.lastIndexOf(u'\n') + 1);
    const auto* const end = std::ranges::find_if(line, [](QChar character) { return character != u' '; });
    return line.first(end - line.begin());
  }

  using Step = std::vector<Edit>;

  void begin() {
    done_.emplace_back();
    before_ = rows_;
  }
  // Makes an edit of the step that was begun last.
  void add(const Edit& edit) {
    const int end = edit.position + static_cast<int>(edit.removed.size());
    const std::size_t steps = done_.size() - 1;
    for (std::size_t marker = 0; marker < rows_.size(); ++marker) {
      auto& lost = lost_[marker];
      if (takesLine(rows_[marker], edit.position, end) && (lost.empty() || lost.back().first != steps))
        lost.emplace_back(steps, before_[marker]);
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
    last.removed = edit.position < last.position ? edit.removed + last.removed : last.removed + edit.removed;
    last.position = std::min(edit.position, last.position);
  }

  Step undo() {
    const Step step = done_.back();
    done_.pop_back();
    const std::vector<int> before = rows_;
    for (auto edit = step.rbegin(); edit != step.rend(); ++edit)
      change({edit->position, edit->inserted, edit->removed});
    for (std::size_t marker = 0; marker < rows_.size(); ++marker) {
      for (auto& lost = lost_[marker]; !lost.empty() && lost.back().first == done_.size(); lost.pop_back())
        rows_[marker] = lost.back().second;
    }
    std::map<int, int> together;
    for (std::size_t marker = 0; marker < rows_.size(); ++marker) {
      int& row = together.try_emplace(before[marker], rows_[marker]).first->second;
      row = std::min(row, rows_[marker]);
    }
    std::ranges::transform(before, rows_.begin(), [&together](int row) { return together.at(row); });
    return step;
  }

private:
  int rowAt(int position) const { return static_cast<int>(QStringView(text_).first(position).count(u'\n')) + 1; }
  bool isLineStart(int position) const { return position == 0 || text_[position - 1] == u'\n'; }

  // Whether removing a stretch takes the first character of line `row`, or joins the line to the one above.
  bool takesLine(int row, int begin, int end) const {
    const int first = rowAt(begin);
    const int last = rowAt(end);
    const bool goesUpWhole = isLineStart(begin) && isLineStart(end) && row == last;
    if (begin == end || row < first || row > last || goesUpWhole)
      return false;
    return row > first || isLineStart(begin);
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

  QString text_;
  std::vector<int> rows_;
  std::vector<std::vector<std::pair<std::size_t, int>>> lost_; // of each marker: after how many steps, and its row then
  std::vector<Step> done_;
  std::vector<int> before_; // the rows before the step that was begun last
};

using MarkersAndModel = MarkerFixture;

TEST_F(MarkersAndModel, StandWhereAModelSaysAfterTenThousandRandomEdits) {
  openWithAddIn(QByteArray("x := 1;\n").repeated(100));
  QTextDocument& document = *window()->currentPage()->document();
  const QString file = window()->currentPage()->document()->fileName();
  std::mt19937 random(4711);
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
  };

  std::vector<LineModel::Step> undone;
  const QStringList pieces = {QStringLiteral("\n"),    QStringLiteral("a"),      QStringLiteral("\n\n"),
                              QStringLiteral("b\n"),   QStringLiteral("\nc"),    QStringLiteral("d\ne\n"),
                              QStringLiteral("  f\n"), QStringLiteral("\n  g h")};
  for (int round = 0; round < 10'000; ++round) {
    if (round == 5'000)
      workspace.openFile(file);
    const int kind = upTo(9);
    if (kind == 0 && model.canUndo()) {
      document.undo();
      undone.push_back(model.undo());
    } else if (kind == 1 && !undone.empty() && undone.back().size() == 1) { // of a group redo sees the sum alone
      document.redo();
      model.apply(undone.back().front());
      undone.pop_back();
    } else if (kind == 2) {
      pressKeys();
      undone.clear();
    } else if (kind == 3) {
      typeGroup();
      undone.clear();
    } else {
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
      undone.clear();
    }
    ASSERT_EQ(document.toPlainText(), model.text()) << round;
    ASSERT_EQ(rowsOf(file), model.rows()) << round;
  }
  for (int marker = 49; marker >= 0; --marker)
    ASSERT_EQ(pickUp()[0], model.rows()[static_cast<std::size_t>(marker)]) << marker;
}

} // namespace
} // namespace together
