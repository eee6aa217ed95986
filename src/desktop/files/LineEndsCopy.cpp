// SPDX-License-Identifier: MIT
#include "desktop/files/LineEndsCopy.h"

#include "desktop/files/LineEndFormat.h"
#include "desktop/files/SourceDocument.h"

#include <QTextBlock>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>

namespace desktop {

using quorvane::TLineEnd;

LineEndsCopy::LineEndsCopy(const SourceDocument& document) : document_(document), edits_(document) {
  edits_.setParent(this); // so that it follows the document into another thread
  connect(&edits_, &EditedLines::settled, this, &LineEndsCopy::follow);
}

std::vector<TLineEnd> LineEndsCopy::ends() {
  if (!edits_.isSettled())
    return lookUp(0, document_.blockCount());
  if (kept_.empty()) {
    edits_.take();
    kept_ = lookUp(0, document_.blockCount());
  }
  return kept_;
}

// There are few formats for many breaks; each is made once.
std::vector<TLineEnd> LineEndsCopy::lookUp(int first, int end) const {
  std::vector<TLineEnd> ends;
  ends.reserve(static_cast<std::size_t>(end - first));
  std::unordered_map<int, TLineEnd> known;
  QTextBlock after = document_.findBlockByNumber(first).next();
  for (int line = first; line < end; ++line, after = after.next()) {
    if (!after.isValid()) {
      ends.push_back(TLineEnd::None);
      break;
    }
    const auto [found, isNew] = known.try_emplace(after.charFormatIndex());
    if (isNew)
      found->second = lineEndOfBreak(after.charFormat(), document_.usualLineEnd());
    ends.push_back(found->second);
  }
  return ends;
}

// The breaks around what was edited are looked up too.
void LineEndsCopy::follow() {
  if (kept_.empty())
    return;
  const std::optional<EditedLines::Kept> kept = edits_.take();
  const int before = static_cast<int>(kept_.size());
  const int now = document_.blockCount();
  const int first = kept ? std::max(std::min({kept->first, before, now}) - 1, 0) : 0;
  const int last = kept ? std::max(std::min({kept->last, before - first, now - first}) - 1, 0) : 0;
  constexpr int few = 1000;
  if (!kept || now - first - last > few) {
    kept_ = {};
    return;
  }
  const std::vector<TLineEnd> edited = lookUp(first, now - last);
  const auto place = kept_.erase(kept_.begin() + first, kept_.end() - last);
  kept_.insert(place, edited.begin(), edited.end());
}

} // namespace desktop
