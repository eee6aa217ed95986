// SPDX-License-Identifier: MIT
#include "desktop/files/ServedCopy.h"

#include "desktop/files/RawLines.h"
#include "desktop/files/TextView.h"
#include "text/ServedText.h"

#include <QTextBlock>

#include <algorithm>
#include <optional>
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

ServedCopy::ServedCopy(const QTextDocument& document) : document_(document), edits_(document) {
  edits_.setParent(this); // so that it follows the document into another thread
  connect(&edits_, &EditedLines::settled, this, [this] { provisional_.reset(); });
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

const std::shared_ptr<ServedCopy::Served>& ServedCopy::present() {
  if (!edits_.isSettled())
    return provisional_ = serveAll();
  const std::optional<EditedLines::Kept> unchanged = edits_.take();
  if (kept_ == nullptr || !unchanged)
    kept_ = serveAll();
  else if (!unchanged->areAll())
    patch(*unchanged);
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

void ServedCopy::patch(const EditedLines::Kept& unchanged) {
  const int before = static_cast<int>(kept_->lineStarts.size());
  const int now = document_.blockCount();
  // At least one line is served again, and none is counted to both ends.
  const int first = std::min({unchanged.first, before - 1, now - 1});
  const int last = std::min({unchanged.last, before - 1 - first, now - 1 - first});
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
