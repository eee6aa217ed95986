// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/ColorScheme.h"
#include "desktop/edit/LineColours.h"

#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QObject>
#include <QTextBlock>
#include <QTextCharFormat>

#include <array>
#include <vector>

namespace desktop {

// The character formats of the attributes.
using SyntaxFormats = std::array<QTextCharFormat, syntaxAttributeCount>;

// Colours the lines of one document that are about to be seen.
//
// Colouring a line needs the comment state in which it begins, and so a scan of all lines above. Lines are scanned
// once, when something below them is shown, and again after a change, up to the first line whose state comes out as
// before; the state is kept in the block. A change at the top of a long text therefore costs no more than what is on
// screen. When the scan would take noticeably long (a jump to the end of a very long text) the lines are coloured as if
// no comment were open, the scan goes on in small slices while the program is idle, and coloursChanged tells when it
// has arrived.
//
// The formats belong to the lines' layouts and never to the text: undo, saving and copying know nothing of them. One
// highlighter belongs to each document as its child, and keeps what it knows while the document is not shown. It has
// the user state of the blocks for itself.
class PascalHighlighter : public QObject {
  Q_OBJECT

public:
  // The highlighter of `document`, made when there is none yet. Owned by the document.
  static PascalHighlighter& of(QTextDocument& document);

  // From now on lines get these formats.
  void setFormats(const SyntaxFormats& formats);
  // Brings the formats of the lines from `first` to `last` up to date. Causes no update of a view by itself.
  void prepare(const QTextBlock& first, const QTextBlock& last);
  // The formats of `block` were changed by someone else, or may have been.
  void forget(QTextBlock block);
  // The attribute of the character at `unit` (UTF-16, from 0) of `block`; at its end, of one that would be typed there.
  SyntaxAttribute attributeAt(const QTextBlock& block, int unit);
  // The attribute of a character that would be typed before the one at `unit`, were it the last of its line.
  SyntaxAttribute typedAttributeAt(const QTextBlock& block, int unit);

Q_SIGNALS:
  // Lines that were prepared before the scan had reached them may look different now.
  void coloursChanged();

protected:
  void timerEvent(QTimerEvent* event) override;

private:
  explicit PascalHighlighter(QTextDocument& document);

  void onContentsChange(int position, int removed, int added);
  bool scanUpTo(int blockNumber, QDeadlineTimer deadline);
  int nextToScan(int blockNumber) const;
  void scanBlock(QTextBlock& block);
  void settleChange(const QTextBlock& scanned);
  quorvane::TCommentState startState(const QTextBlock& block) const;
  void colour(QTextBlock block, quorvane::TCommentState start);

  QTextDocument& document_;
  LineScanner scanner_;
  SyntaxFormats formats_;
  int generation_ = 1;  // of formats_
  int scannedEnd_ = 0;  // blocks below this number have been scanned at some time
  int changedFirst_;    // the blocks among them that have changed since, both inclusive;
  int changedLast_ = 0; // changedFirst_ is notChanged when there are none
  int blockCount_;      // as of the last change
  int wanted_ = -1;     // the idle scan goes up to this block
  QBasicTimer idle_;
  std::vector<ColourRun> runs_; // kept for its memory
};

} // namespace desktop
