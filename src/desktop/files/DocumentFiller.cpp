// SPDX-License-Identifier: MIT
#include "desktop/files/DocumentFiller.h"

#include "desktop/files/FileStore.h"
#include "desktop/files/LineEndFormat.h"
#include "desktop/files/TextView.h"
#include "text/LineEnds.h"
#include "text/ServedText.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <array>
#include <cstddef>

namespace desktop {

using quorvane::TLine;
using quorvane::TLineEnd;
using quorvane::TLines;

namespace {

QString message(const char* text) {
  return QCoreApplication::translate("SourceDocument", text);
}

} // namespace

void DocumentFiller::fill(std::string_view bytes, quorvane::TCodePage codePage) {
  const quorvane::TDecodedText decoded = quorvane::Decode(bytes, codePage);
  document_.encoding_ = decoded.Encoding;
  findUsualLineEnd(decoded.Text);
  checkLimits(decoded.Text, bytes.size());

  document_.setUndoRedoEnabled(false);
  insert(decoded.Text);
  document_.setUndoRedoEnabled(true);
  document_.setModified(false);
  checkFilled(decoded);
}

void DocumentFiller::checkFilled(const quorvane::TDecodedText& decoded) {
  if (decoded.FirstLostByte)
    setReadOnly(message("The file is read-only here: its byte %1 is no %2.")
                    .arg(*decoded.FirstLostByte + 1)
                    .arg(document_.encodingName()),
                false);
  checkText(decoded.Text);
}

void DocumentFiller::setReadOnly(const QString& reason, bool wholeFile) {
  if (document_.readOnlyReason_.isEmpty())
    document_.readOnlyReason_ = reason;
  document_.holdsWholeFile_ = document_.holdsWholeFile_ && wholeFile;
}

void DocumentFiller::setWritable() {
  if (document_.holdsWholeFile_)
    document_.readOnlyReason_.clear();
}

void DocumentFiller::findUsualLineEnd(std::u16string_view text) {
  std::array<std::size_t, 4> counts = {};
  for (const TLine& line : TLines(text))
    ++counts.at(static_cast<std::size_t>(line.End));
  counts.at(static_cast<std::size_t>(TLineEnd::None)) = 0;

  const auto kinds = std::count_if(counts.begin(), counts.end(), [](std::size_t count) { return count > 0; });
  document_.mixedLineEnds_ = kinds > 1;
  if (kinds > 0)
    document_.usualLineEnd_ = static_cast<TLineEnd>(std::max_element(counts.begin(), counts.end()) - counts.begin());
}

// Neighbouring lines of one line end go in together: one insertion for the usual file.
void DocumentFiller::insert(std::u16string_view text) {
  QTextCursor cursor(&document_);
  cursor.beginEditBlock();
  const char16_t* runStart = text.data();
  TLineEnd runEnd = document_.usualLineEnd_;
  const auto insertRun = [&](const char16_t* end) {
    const std::u16string_view run(runStart, static_cast<std::size_t>(end - runStart));
    cursor.insertText(borrowedText(run), lineEndFormat(runEnd, document_.usualLineEnd_));
    runStart = end;
  };
  if (document_.mixedLineEnds_) {
    for (const TLine& line : TLines(text)) {
      if (line.End != TLineEnd::None && line.End != runEnd) {
        insertRun(line.Text.data());
        runEnd = line.End;
      }
    }
  }
  insertRun(text.data() + text.size());
  cursor.endEditBlock();
}

void DocumentFiller::checkLimits(std::u16string_view text, std::size_t bytes) {
  if (bytes > static_cast<std::size_t>(plainFileBytes)) {
    document_.plainReason_ = message("The file is over %1 MB and is shown as plain text.").arg(plainFileBytes >> 20);
    return;
  }
  for (const TLine& line : TLines(text)) {
    if (line.Text.size() > plainLineCharacters && quorvane::ServedLength(line.Text) > plainLineCharacters) {
      document_.plainReason_ = message("The file has a line of over %L1 characters and is shown as plain text.")
                                   .arg(static_cast<qulonglong>(plainLineCharacters));
      return;
    }
  }
}

void DocumentFiller::checkText(std::u16string_view text) {
  TLines lines(text);
  auto expected = lines.begin();
  int number = 0;
  int wrong = 0; // the number of the first line that differs
  document_.snapshot().forEachLine([&](std::u16string_view line, TLineEnd end) {
    ++number;
    if (wrong != 0)
      return;
    if (expected == lines.end() || expected->Text != line || expected->End != end)
      wrong = number;
    else
      ++expected;
  });
  if (wrong == 0 && expected != lines.end())
    wrong = number;
  if (wrong != 0)
    setReadOnly(message("The file is read-only here: its line %1 has a character that cannot be shown within a line.")
                    .arg(wrong),
                false);
}

} // namespace desktop
