// SPDX-License-Identifier: MIT
#include "desktop/files/SourceDocument.h"

#include "desktop/files/LineEndFormat.h"
#include "desktop/files/TextView.h"
#include "text/ServedText.h"

#include <QPlainTextDocumentLayout>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace desktop {

using quorvane::TLineEnd;

namespace {

// Calls `visit(line, last)` for every line of a document's raw text, which has all characters as they are and a
// paragraph separator for each break; no line can hold one.
template <class TVisit> void forEachRawLine(const QString& raw, const TVisit& visit) {
  const std::u16string_view text = textView(raw);
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(QChar::ParagraphSeparator, start);
    const bool last = end == std::u16string_view::npos;
    visit(text.substr(start, end - start), last);
    if (last)
      return;
    start = end + 1;
  }
}

} // namespace

// The served text of one revision.
struct SourceDocument::Served {
  std::string text;
  std::vector<std::size_t> lineStarts; // of every line, from 0
};

SourceDocument::SourceDocument(const QString& fileName, bool untitled, QObject* parent)
    : QTextDocument(parent), fileName_(fileName), untitled_(untitled) {
  setDocumentLayout(new QPlainTextDocumentLayout(this));
  // Editors want no margin. Set later it would count as an edit, modify the document and be there to be undone.
  setUndoRedoEnabled(false);
  setDocumentMargin(0);
  setUndoRedoEnabled(true);
  setModified(false);
}

SourceDocument::~SourceDocument() = default;

void SourceDocument::setFileName(const QString& fileName) {
  if (fileName == fileName_ && !untitled_)
    return;
  fileName_ = fileName;
  untitled_ = false;
  Q_EMIT fileNameChanged();
}

void SourceDocument::setEncoding(const quorvane::TEncoding& encoding) {
  if (encoding == encoding_)
    return;
  encoding_ = encoding;
  setModified(true);
  Q_EMIT encodingChanged();
}

QString SourceDocument::encodingName() const {
  const std::string_view name = quorvane::EncodingName(encoding_);
  const QString text = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
  return encoding_.ByteOrderMark ? tr("%1 with BOM").arg(text) : text;
}

TLineEnd SourceDocument::lineEndOf(const QTextBlock& block) const {
  const QTextBlock next = block.next();
  if (!next.isValid())
    return TLineEnd::None;
  return mixedLineEnds_ ? lineEndOfBreak(next.charFormat(), usualLineEnd_) : usualLineEnd_;
}

void SourceDocument::forEachLine(const LineVisitor& visit) const {
  QTextBlock block = begin(); // followed only where the line ends differ, since that is slow
  forEachRawLine(toRawText(), [&](std::u16string_view line, bool last) {
    if (last)
      visit(line, TLineEnd::None);
    else if (!mixedLineEnds_)
      visit(line, usualLineEnd_);
    else
      visit(line, lineEndOf(std::exchange(block, block.next())));
  });
}

const SourceDocument::Served& SourceDocument::served() const {
  if (served_ == nullptr || servedRevision_ != revision()) {
    auto served = std::make_shared<Served>();
    served->text.reserve(static_cast<std::size_t>(characterCount()) + static_cast<std::size_t>(blockCount()));
    served->lineStarts.reserve(static_cast<std::size_t>(blockCount()));
    forEachRawLine(toRawText(), [&](std::u16string_view line, bool last) {
      served->lineStarts.push_back(served->text.size());
      quorvane::AppendServedLine(line, served->text);
      if (!last)
        served->text += quorvane::ServedLineEnd;
    });
    served_ = std::move(served);
    servedRevision_ = revision();
  }
  return *served_;
}

std::shared_ptr<const std::string> SourceDocument::servedText() const {
  const Served& present = served();
  return {served_, &present.text};
}

std::size_t SourceDocument::servedLineStart(int line) const {
  return served().lineStarts.at(static_cast<std::size_t>(line));
}

int SourceDocument::lineOfServedPosition(std::size_t position) const {
  const std::vector<std::size_t>& starts = served().lineStarts;
  return static_cast<int>(std::upper_bound(starts.begin(), starts.end(), position) - starts.begin()) - 1;
}

std::u16string SourceDocument::text() const {
  std::u16string text;
  text.reserve(static_cast<std::size_t>(characterCount()) + static_cast<std::size_t>(blockCount()));
  forEachLine([&](std::u16string_view line, TLineEnd end) {
    text += line;
    text += quorvane::LineEndText(end);
  });
  return text;
}

quorvane::TEncodedText SourceDocument::toBytes() const {
  return quorvane::Encode(text(), encoding_);
}

} // namespace desktop
