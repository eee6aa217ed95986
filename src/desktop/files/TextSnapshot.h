// SPDX-License-Identifier: MIT
#pragma once

#include "text/LineEnds.h"

#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

// The text of a document at one moment, cheap to take and to pass on, so that the slow part, making the file's text of
// it, can be done on another thread. Any thread, one at a time.
class TextSnapshot {
public:
  using LineVisitor = std::function<void(std::u16string_view line, quorvane::TLineEnd end)>;

  // `raw` has a paragraph separator for each break; the breaks end in `usual`, or, if it is not empty, as `ends` says,
  // which then has one for each.
  TextSnapshot(QString raw, quorvane::TLineEnd usual, std::vector<quorvane::TLineEnd> ends = {});

  // Calls `visit` for every line in turn, without its line end; the views hold as long as the snapshot.
  void forEachLine(const LineVisitor& visit) const;
  // The text with the file's line ends. Linear.
  std::u16string text() const;

private:
  QString raw_;
  quorvane::TLineEnd usual_;
  std::vector<quorvane::TLineEnd> ends_;
};

} // namespace desktop
