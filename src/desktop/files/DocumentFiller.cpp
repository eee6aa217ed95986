// SPDX-License-Identifier: MIT
#include "desktop/files/DocumentFiller.h"

#include "desktop/files/FileStore.h"
#include "desktop/files/LineEndFormat.h"
#include "desktop/files/TextView.h"
#include "text/LineEnds.h"
#include "text/ServedText.h"
#include "text/Utf16.h"

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

// How far filling has come when a part of it is done; about what the parts take.
constexpr double decodedShare = 0.1;
constexpr double insertedShare = 0.8;

// So much is inserted at a time.
constexpr std::size_t sliceUnits = 1 << 18;

// The size of the slice that `text` begins with. None ends between the two characters of one line end or code point.
std::size_t sliceSize(std::u16string_view text) {
  std::size_t size = std::min(text.size(), sliceUnits);
  while (size > 0 && size < text.size() && (text[size - 1] == u'\r' || quorvane::IsHighSurrogate(text[size - 1])))
    ++size;
  return size;
}

} // namespace

void DocumentFiller::reach(double done) {
  if (control_ != nullptr)
    control_->reach(done);
}

void DocumentFiller::fill(std::string_view bytes, quorvane::TCodePage codePage) {
  reach(0);
  const quorvane::TDecodedText decoded = quorvane::Decode(bytes, codePage);
  reach(decodedShare);
  document_.encoding_ = decoded.Encoding;
  findUsualLineEnd(decoded.Text);
  checkLimits(decoded.Text, bytes.size());

  document_.setUndoRedoEnabled(false);
  insert(decoded.Text);
  reach(insertedShare);
  document_.setUndoRedoEnabled(true);
  document_.setModified(false);
  checkFilled(decoded);
  reach(1);
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

// Neighbouring lines of one line end go in together: few insertions for the usual file.
void DocumentFiller::insert(std::u16string_view text) {
  unitsToInsert_ = text.size();
  QTextCursor cursor(&document_);
  cursor.beginEditBlock();
  const char16_t* runStart = text.data();
  TLineEnd runEnd = document_.usualLineEnd_;
  const auto insertUpTo = [&](const char16_t* end) {
    insertRun(cursor, {runStart, static_cast<std::size_t>(end - runStart)}, runEnd);
    runStart = end;
  };
  if (document_.mixedLineEnds_) {
    for (const TLine& line : TLines(text)) {
      if (line.End != TLineEnd::None && line.End != runEnd) {
        insertUpTo(line.Text.data());
        runEnd = line.End;
      }
    }
  }
  insertUpTo(text.data() + text.size());
  cursor.endEditBlock();
}

void DocumentFiller::insertRun(QTextCursor& cursor, std::u16string_view run, TLineEnd end) {
  const QTextCharFormat format = lineEndFormat(end, document_.usualLineEnd_);
  while (!run.empty()) {
    const std::size_t size = sliceSize(run);
    cursor.insertText(borrowedText(run.substr(0, size)), format);
    run.remove_prefix(size);
    noteInserted(size);
  }
}

// Not for each of many short runs.
void DocumentFiller::noteInserted(std::size_t units) {
  unitsInserted_ += units;
  if (unitsInserted_ - unitsNoted_ < sliceUnits)
    return;
  unitsNoted_ = unitsInserted_;
  const double share = static_cast<double>(unitsInserted_) / static_cast<double>(unitsToInsert_);
  reach(decodedShare + share * (insertedShare - decodedShare));
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
