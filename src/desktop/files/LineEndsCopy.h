// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/EditedLines.h"
#include "text/LineEnds.h"

#include <QObject>

#include <vector>

namespace desktop {

class SourceDocument;

// The line end of each line of a document whose line ends differ.
//
// Looking them up takes a microsecond a line, which is seconds for a long text; so they are kept, and after each edit
// those of the edited lines are looked up again. For the thread of the document.
class LineEndsCopy : public QObject {
  Q_OBJECT

public:
  // Listens to `document`, which must outlive the copy.
  explicit LineEndsCopy(const SourceDocument& document);

  // As they are now, None for the last line.
  std::vector<quorvane::TLineEnd> ends();

private:
  std::vector<quorvane::TLineEnd> lookUp(int first, int end) const;
  void follow();

  const SourceDocument& document_;
  EditedLines edits_;
  std::vector<quorvane::TLineEnd> kept_; // right whenever no edit block is open; or empty
};

} // namespace desktop
