// SPDX-License-Identifier: MIT
#include "desktop/files/SourceDocument.h"

#include "desktop/files/LineEndFormat.h"
#include "desktop/files/LineEndsCopy.h"
#include "desktop/files/ServedCopy.h"

#include <QPlainTextDocumentLayout>

#include <cstddef>
#include <string_view>
#include <vector>

namespace desktop {

using quorvane::TLineEnd;

SourceDocument::SourceDocument(const QString& fileName, bool untitled, QObject* parent)
    : QTextDocument(parent), fileName_(fileName), untitled_(untitled) {
  setDocumentLayout(new QPlainTextDocumentLayout(this));
  // Editors want no margin. Set later it would count as an edit, modify the document and be there to be undone.
  setUndoRedoEnabled(false);
  setDocumentMargin(0);
  setUndoRedoEnabled(true);
  setModified(false);
  served_ = std::make_unique<ServedCopy>(*this);
  lineEnds_ = std::make_unique<LineEndsCopy>(*this);
  // So that they follow the document into another thread.
  served_->setParent(this);
  lineEnds_->setParent(this);
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

TextSnapshot SourceDocument::snapshot() const {
  return {toRawText(), usualLineEnd_, mixedLineEnds_ ? lineEnds_->ends() : std::vector<TLineEnd>()};
}

std::shared_ptr<const std::string> SourceDocument::servedText() const {
  return served_->text();
}

std::size_t SourceDocument::servedLineStart(int line) const {
  return served_->lineStart(line);
}

int SourceDocument::lineOfServedPosition(std::size_t position) const {
  return served_->lineOfPosition(position);
}

quorvane::TEncodedText SourceDocument::toBytes() const {
  return quorvane::Encode(text(), encoding_);
}

} // namespace desktop
