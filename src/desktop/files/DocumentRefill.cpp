// SPDX-License-Identifier: MIT
// Bringing a document that is open to what its file has become.
#include "desktop/files/DocumentFiller.h"
#include "desktop/files/LineDiff.h"
#include "desktop/files/LineEndFormat.h"
#include "desktop/files/TextView.h"
#include "text/LineEnds.h"

#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace desktop {

using quorvane::TLine;
using quorvane::TLineEnd;
using quorvane::TLines;

namespace {

using Lines = std::vector<std::u16string_view>;
using LineEnds = std::vector<TLineEnd>;

struct TextLines {
  Lines texts;
  LineEnds ends;

  void reserve(std::size_t lines) {
    texts.reserve(lines);
    ends.reserve(lines);
  }
  void add(std::u16string_view text, TLineEnd end) {
    texts.push_back(text);
    ends.push_back(end);
  }
};

// Changes lines of a document, the last ones first, so that the numbers of those before them hold.
class LineEditor {
public:
  LineEditor(SourceDocument& document, const Lines& after) : document_(document), after_(after) {}

  void apply(const LineChange& change) {
    const int same = std::min(change.oldEnd - change.oldBegin, change.newEnd - change.newBegin);
    remove(change.oldBegin + same, change.oldEnd);
    insert(change.oldEnd, change.newBegin + same, change.newEnd);
    for (int line = same - 1; line >= 0; --line)
      rewrite(change.oldBegin + line, newLine(change.newBegin + line));
  }

private:
  std::u16string_view newLine(int line) const { return after_[static_cast<std::size_t>(line)]; }

  void remove(int begin, int end) {
    if (begin == end)
      return;
    QTextCursor cursor(document_.findBlockByNumber(begin));
    if (end < document_.blockCount()) {
      cursor.setPosition(document_.findBlockByNumber(end).position(), QTextCursor::KeepAnchor);
    } else {
      // The last lines go with the break before them.
      cursor.movePosition(QTextCursor::PreviousCharacter);
      cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    }
    cursor.removeSelectedText();
  }

  // Before line `place`, or at the end of the text.
  void insert(int place, int begin, int end) {
    if (begin == end)
      return;
    const bool atEnd = place == document_.blockCount();
    QString text;
    for (int line = begin; line < end; ++line) {
      if (atEnd)
        text += u'\n';
      text += borrowedText(newLine(line));
      if (!atEnd)
        text += u'\n';
    }
    QTextCursor cursor(atEnd ? document_.lastBlock() : document_.findBlockByNumber(place));
    if (atEnd)
      cursor.movePosition(QTextCursor::End);
    cursor.insertText(text, QTextCharFormat());
  }

  // Touches only what is different, so that a caret in the line stays where it is.
  void rewrite(int number, std::u16string_view wanted) {
    const QTextBlock block = document_.findBlockByNumber(number);
    const QString text = block.text();
    const std::u16string_view present = textView(text);
    const auto head = static_cast<std::size_t>(
        std::mismatch(present.begin(), present.end(), wanted.begin(), wanted.end()).first - present.begin());
    const std::u16string_view presentRest = present.substr(head);
    const std::u16string_view wantedRest = wanted.substr(head);
    const auto tail = static_cast<std::size_t>(
        std::mismatch(presentRest.rbegin(), presentRest.rend(), wantedRest.rbegin(), wantedRest.rend()).first -
        presentRest.rbegin());
    const std::u16string_view inserted = wantedRest.substr(0, wantedRest.size() - tail);
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + static_cast<int>(head));
    cursor.setPosition(block.position() + static_cast<int>(present.size() - tail), QTextCursor::KeepAnchor);
    cursor.insertText(borrowedText(inserted), QTextCharFormat());
  }

  SourceDocument& document_;
  const Lines& after_;
};

void setLineEnd(const SourceDocument& document, const QTextBlock& block, TLineEnd end) {
  const QTextCharFormat format = lineEndFormat(end, document.usualLineEnd());
  QTextCursor line(block);
  line.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  line.setCharFormat(format);
  QTextCursor(block.next()).setBlockCharFormat(format);
}

// Brings the line ends to `after` once the lines have been changed from those that ended as `before` says. A break of a
// line that was left alone is looked at only where it has to become another, since that is slow.
void setLineEnds(const SourceDocument& document, const LineEnds& before, const LineEnds& after,
                 const std::vector<LineChange>& changes) {
  const auto setEnd = [&](int line) {
    const QTextBlock block = document.findBlockByNumber(line);
    const TLineEnd end = after[static_cast<std::size_t>(line)];
    if (block.next().isValid() && document.lineEndOf(block) != end)
      setLineEnd(document, block, end);
  };
  int line = 0;
  const auto setEndsUpTo = [&](int oldEnd, int newEnd) {
    for (; line < newEnd; ++line) {
      if (before[static_cast<std::size_t>(oldEnd - newEnd + line)] != after[static_cast<std::size_t>(line)])
        setEnd(line);
    }
  };
  for (const LineChange& change : changes) {
    setEndsUpTo(change.oldBegin, change.newBegin);
    for (; line < change.newEnd; ++line)
      setEnd(line);
  }
  setEndsUpTo(static_cast<int>(before.size()), static_cast<int>(after.size()));
}

} // namespace

void DocumentFiller::refill(std::string_view bytes, quorvane::TCodePage codePage) {
  const quorvane::TDecodedText decoded = quorvane::Decode(bytes, codePage);
  document_.readOnlyReason_.clear();
  document_.holdsWholeFile_ = true;
  const bool sameEncoding = document_.encoding_ == decoded.Encoding;
  document_.encoding_ = decoded.Encoding;
  takeLineEnds(decoded.Text);

  QTextCursor block(&document_);
  block.beginEditBlock();
  rewrite(decoded.Text);
  block.endEditBlock();
  document_.setModified(false);
  if (!sameEncoding)
    Q_EMIT document_.encodingChanged();
  checkFilled(decoded);
}

// Line ends that are all of one kind belong to the document, as the encoding does, and are not undone with the text.
// Breaks in the undo history know only what differs from the usual line end, so that one holds on as soon as any do.
void DocumentFiller::takeLineEnds(std::u16string_view text) {
  const TLineEnd usual = document_.usualLineEnd_;
  const bool mixed = document_.mixedLineEnds_;
  findUsualLineEnd(text);
  if (mixed || document_.mixedLineEnds_) {
    document_.mixedLineEnds_ = true;
    document_.usualLineEnd_ = usual;
  }
}

void DocumentFiller::rewrite(std::u16string_view text) {
  const TextSnapshot snapshot = document_.snapshot();
  TextLines before;
  before.reserve(static_cast<std::size_t>(document_.blockCount()));
  snapshot.forEachLine([&before](std::u16string_view line, TLineEnd end) { before.add(line, end); });
  TextLines after;
  after.reserve(before.texts.size());
  for (const TLine& line : TLines(text))
    after.add(line.Text, line.End);

  const std::vector<LineChange> changes = lineChanges(before.texts, after.texts);
  LineEditor editor(document_, after.texts);
  std::for_each(changes.rbegin(), changes.rend(), [&editor](const LineChange& change) { editor.apply(change); });
  if (document_.mixedLineEnds_)
    setLineEnds(document_, before.ends, after.ends, changes);
}

} // namespace desktop
