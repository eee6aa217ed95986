// SPDX-License-Identifier: MIT
#include "desktop/files/ServedCopy.h"

#include "desktop/files/RawLines.h"
#include "desktop/files/TextView.h"
#include "text/ServedText.h"

#include <QTextBlock>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace desktop {

struct ServedCopy::Served {
  std::string text;
  std::vector<std::size_t> lineStarts; // of every line, from 0

  void addLine(std::u16string_view line, bool last) {
    lineStarts.push_back(text.size());
    quorvane::AppendServedLine(line, text);
    if (!last)
      text += quorvane::ServedLineEnd;
  }

  // Puts `lines`, whose line starts count from their own text, in place of the lines from `first` up to `end`.
  void replaceLines(std::ptrdiff_t first, std::ptrdiff_t end, Served lines) {
    const std::size_t start = lineStarts[static_cast<std::size_t>(first)];
    const bool toTheEnd = end == std::ssize(lineStarts);
    const std::size_t length = (toTheEnd ? text.size() : lineStarts[static_cast<std::size_t>(end)]) - start;
    text.replace(start, length, lines.text);
    // The difference may be negative; unsigned arithmetic gives the right sums all the same.
    const std::size_t longer = lines.text.size() - length;
    std::for_each(lineStarts.begin() + end, lineStarts.end(), [longer](std::size_t& each) { each += longer; });
    std::for_each(lines.lineStarts.begin(), lines.lineStarts.end(), [start](std::size_t& each) { each += start; });
    const auto place = lineStarts.erase(lineStarts.begin() + first, lineStarts.begin() + end);
    lineStarts.insert(place, lines.lineStarts.begin(), lines.lineStarts.end());
  }
};

ServedCopy::ServedCopy(const QTextDocument& document)
    : document_(document), settledRevision_(document.revision()), heardCharacters_(document.characterCount()) {
  connect(&document_, &QTextDocument::contentsChange, this, &ServedCopy::noteChange);
  connect(&document_, &QTextDocument::contentsChanged, this, &ServedCopy::settle);
}

ServedCopy::~ServedCopy() = default;

std::shared_ptr<const std::string> ServedCopy::text() {
  const std::shared_ptr<Served>& served = present();
  return {served, &served->text};
}

std::size_t ServedCopy::lineStart(int line) {
  return present()->lineStarts.at(static_cast<std::size_t>(line));
}

int ServedCopy::lineOfPosition(std::size_t position) {
  const std::vector<std::size_t>& starts = present()->lineStarts;
  return static_cast<int>(std::upper_bound(starts.begin(), starts.end(), position) - starts.begin()) - 1;
}

// The range may reach beyond the text, since the document counts its very last line end at times.
void ServedCopy::noteChange(int position, int removed, int added) {
  if (document_.revision() != settledRevision_ + 1)
    kept_.reset();
  reportedRevision_ = document_.revision();
  heardCharacters_ += added - removed;
  const QTextBlock last = document_.findBlock(position + added);
  const int after = last.isValid() ? document_.blockCount() - 1 - last.blockNumber() : 0;
  unchangedFirst_ = std::clamp(document_.findBlock(position).blockNumber(), 0, unchangedFirst_);
  unchangedLast_ = std::min(after, unchangedLast_);
}

void ServedCopy::settle() {
  const bool heard = document_.revision() == settledRevision_ || document_.revision() == reportedRevision_;
  if (!heard || heardCharacters_ != document_.characterCount())
    kept_.reset();
  settledRevision_ = document_.revision();
  heardCharacters_ = document_.characterCount();
  provisional_.reset();
}

const std::shared_ptr<ServedCopy::Served>& ServedCopy::present() {
  // The revision goes up when an edit block begins, and the change is reported when it ends.
  if (document_.revision() != settledRevision_)
    return provisional_ = serveAll();
  if (kept_ == nullptr)
    kept_ = serveAll();
  else if (unchangedFirst_ != allLines)
    patch();
  unchangedFirst_ = allLines;
  unchangedLast_ = allLines;
  return kept_;
}

std::shared_ptr<ServedCopy::Served> ServedCopy::serveAll() const {
  auto served = std::make_shared<Served>();
  const auto lines = static_cast<std::size_t>(document_.blockCount());
  served->text.reserve(static_cast<std::size_t>(document_.characterCount()) + lines);
  served->lineStarts.reserve(lines);
  forEachRawLine(document_.toRawText(), [&](std::u16string_view line, bool last) { served->addLine(line, last); });
  return served;
}

void ServedCopy::patch() {
  const int before = static_cast<int>(kept_->lineStarts.size());
  const int now = document_.blockCount();
  // At least one line is served again, and none is counted to both ends.
  const int first = std::min({unchangedFirst_, before - 1, now - 1});
  const int last = std::min({unchangedLast_, before - 1 - first, now - 1 - first});
  // Going from block to block is slow; a large part of the text is quicker read as a whole.
  constexpr int few = 1000;
  if (now - first - last > std::max(few, now / 8)) {
    kept_ = serveAll();
    return;
  }
  if (kept_.use_count() > 1)
    kept_ = std::make_shared<Served>(*kept_);
  Served lines;
  QTextBlock block = document_.findBlockByNumber(first);
  for (int line = first; line < now - last; ++line, block = block.next())
    lines.addLine(textView(block.text()), line + 1 == now);
  kept_->replaceLines(first, before - last, std::move(lines));
}

} // namespace desktop
