// SPDX-License-Identifier: MIT
#include "desktop/edit/PascalHighlighter.h"

#include <QAbstractTextDocumentLayout>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimerEvent>

#include <algorithm>
#include <limits>

namespace desktop {

using quorvane::csNo;
using quorvane::TCommentState;

namespace {

constexpr int notChanged = std::numeric_limits<int>::max();
// What a paint may wait for the scan, and how long an idle slice is; milliseconds.
constexpr int paintBudget = 20;
constexpr int idleSlice = 8;
// What stands further right in a line is not coloured: laying out and drawing a line takes time by its number of
// formats, whether or not they can be seen.
constexpr int colouredUnits = 5000;

// What a block's user state holds: the comment states at its start and end, and the generation of the formats that its
// layout has, 0 for none. A block that has not been scanned has the state -1.
struct BlockState {
  TCommentState start = csNo;
  TCommentState end = csNo;
  int generation = 0;
};

bool isScanned(const QTextBlock& block) {
  return block.isValid() && block.userState() >= 0;
}

BlockState stateOf(const QTextBlock& block) {
  const int bits = block.userState();
  return {static_cast<TCommentState>(bits & 3), static_cast<TCommentState>((bits >> 2) & 3), bits >> 4};
}

void setState(QTextBlock& block, const BlockState& state) {
  block.setUserState(state.start | (state.end << 2) | (state.generation << 4));
}

} // namespace

PascalHighlighter& PascalHighlighter::of(QTextDocument& document) {
  auto* existing = document.findChild<PascalHighlighter*>(QString(), Qt::FindDirectChildrenOnly);
  return existing != nullptr ? *existing : *new PascalHighlighter(document);
}

PascalHighlighter::PascalHighlighter(QTextDocument& document)
    : QObject(&document), document_(document), changedFirst_(notChanged), blockCount_(document.blockCount()) {
  connect(&document, &QTextDocument::contentsChange, this, &PascalHighlighter::onContentsChange);
}

void PascalHighlighter::setFormats(const SyntaxFormats& formats) {
  if (formats == formats_)
    return;
  formats_ = formats;
  ++generation_;
}

void PascalHighlighter::prepare(const QTextBlock& first, const QTextBlock& last) {
  if (!scanUpTo(last.blockNumber(), QDeadlineTimer(paintBudget))) {
    wanted_ = last.blockNumber();
    idle_.start(0, this);
  }
  for (QTextBlock block = first; block.isValid(); block = block.next()) {
    const TCommentState start = startState(block);
    const BlockState state = stateOf(block);
    if (!isScanned(block) || state.generation != generation_ || state.start != start)
      colour(block, start);
    if (block == last)
      break;
  }
}

void PascalHighlighter::forget(QTextBlock block) {
  if (!isScanned(block))
    return;
  BlockState state = stateOf(block);
  state.generation = 0;
  setState(block, state);
}

SyntaxAttribute PascalHighlighter::attributeAt(const QTextBlock& block, int unit) {
  scanUpTo(block.blockNumber(), QDeadlineTimer(paintBudget));
  return scanner_.attributeAt(block.text(), startState(block), unit);
}

SyntaxAttribute PascalHighlighter::typedAttributeAt(const QTextBlock& block, int unit) {
  scanUpTo(block.blockNumber(), QDeadlineTimer(paintBudget));
  return scanner_.attributeAt(block.text().left(unit), startState(block), unit);
}

void PascalHighlighter::timerEvent(QTimerEvent* event) {
  if (event->timerId() != idle_.timerId())
    return QObject::timerEvent(event);
  if (!scanUpTo(std::min(wanted_, document_.blockCount() - 1), QDeadlineTimer(idleSlice)))
    return;
  idle_.stop();
  Q_EMIT coloursChanged();
}

void PascalHighlighter::onContentsChange(int position, int, int added) {
  const int delta = document_.blockCount() - blockCount_;
  blockCount_ = document_.blockCount();
  const QTextBlock firstBlock = document_.findBlock(position);
  QTextBlock lastBlock = document_.findBlock(position + added);
  if (!lastBlock.isValid())
    lastBlock = document_.lastBlock();
  const int first = firstBlock.blockNumber();
  const int last = lastBlock.blockNumber();

  for (QTextBlock block = firstBlock; block.isValid() && block.blockNumber() <= last; block = block.next())
    block.setUserState(-1);

  const int oldLast = last - delta;
  if (scannedEnd_ <= oldLast) { // nothing that was scanned is left behind the change
    scannedEnd_ = std::min(scannedEnd_, first);
    if (changedFirst_ >= scannedEnd_)
      changedFirst_ = notChanged;
    changedLast_ = std::min(changedLast_, scannedEnd_ - 1);
    return;
  }
  scannedEnd_ += delta;
  const bool before = changedFirst_ != notChanged;
  changedLast_ = std::max(before && changedLast_ > oldLast ? changedLast_ + delta : last, last);
  changedFirst_ = std::min(changedFirst_, first);
}

// Scans until the states of all lines up to `blockNumber` are right. False when the deadline came first.
bool PascalHighlighter::scanUpTo(int blockNumber, QDeadlineTimer deadline) {
  constexpr int linesPerLook = 64; // at the clock
  int looked = 0;
  QTextBlock block;
  for (int next = nextToScan(blockNumber); next <= blockNumber; next = nextToScan(blockNumber)) {
    if (++looked % linesPerLook == 0 && deadline.hasExpired())
      return false;
    block = block.isValid() && block.blockNumber() + 1 == next ? block.next() : document_.findBlockByNumber(next);
    scanBlock(block);
    if (next == changedFirst_)
      settleChange(block);
    else
      scannedEnd_ = next + 1;
  }
  return true;
}

// The first block that must be scanned before `blockNumber` is right; beyond it when there is none.
int PascalHighlighter::nextToScan(int blockNumber) const {
  if (changedFirst_ <= blockNumber)
    return changedFirst_;
  return scannedEnd_ <= blockNumber ? scannedEnd_ : blockNumber + 1;
}

void PascalHighlighter::scanBlock(QTextBlock& block) {
  const TCommentState start = startState(block);
  setState(block, {start, scanner_.scan(block.text(), start, nullptr), 0});
}

// One changed block has been scanned. The change ends behind the last changed block as soon as the next line begins as
// it did before.
void PascalHighlighter::settleChange(const QTextBlock& scanned) {
  changedFirst_ = scanned.blockNumber() + 1;
  if (changedFirst_ <= changedLast_)
    return;
  const QTextBlock next = scanned.next();
  const bool asBefore = isScanned(next) && stateOf(next).start == stateOf(scanned).end;
  if (changedFirst_ >= scannedEnd_ || asBefore)
    changedFirst_ = notChanged;
  else
    changedLast_ = changedFirst_;
}

// Outside of any comment when the line above has not been scanned.
TCommentState PascalHighlighter::startState(const QTextBlock& block) const {
  const QTextBlock previous = block.previous();
  return isScanned(previous) ? stateOf(previous).end : csNo;
}

void PascalHighlighter::colour(QTextBlock block, TCommentState start) {
  QTextLayout* layout = block.layout();
  if (!layout->preeditAreaText().isEmpty()) // an input method formats this line for now
    return;
  runs_.clear();
  scanner_.scan(block.text(), start, &runs_);
  QList<QTextLayout::FormatRange> ranges;
  for (const ColourRun& run : runs_) {
    if (run.start >= colouredUnits)
      break;
    const QTextCharFormat& format = formats_[static_cast<std::size_t>(run.attribute)];
    if (!format.isEmpty())
      ranges.append({run.start, run.length, format});
  }
  BlockState state = stateOf(block);
  if (isScanned(block) && state.start == start) {
    state.generation = generation_;
    setState(block, state);
  }
  if (ranges == layout->formats())
    return;
  // The line is being painted, or about to be: the layout must take the formats in without asking for a further paint.
  // Views do have to hear how wide the line is, so it is laid out once before.
  document_.documentLayout()->blockBoundingRect(block);
  const QSignalBlocker quiet(document_.documentLayout());
  layout->setFormats(ranges);
  document_.markContentsDirty(block.position(), block.length());
}

} // namespace desktop
