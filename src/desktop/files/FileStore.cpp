// SPDX-License-Identifier: MIT
#include "desktop/files/FileStore.h"

#include "desktop/files/DocumentFiller.h"
#include "desktop/files/FileReader.h"
#include "desktop/files/FileWriter.h"
#include "text/LineEnds.h"
#include "text/ServedText.h"
#include "text/Utf16.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <new>
#include <utility>

namespace desktop {

namespace {

QString message(const char* text) {
  return QCoreApplication::translate("FileStore", text);
}

QString absolute(const QString& path) {
  return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

QString cannotOpen(const QString& path, const QString& reason) {
  return message("Cannot open %1: %2.").arg(path, reason);
}

QString codePointName(char32_t character) {
  return QStringLiteral("U+") + QString::number(character, 16).toUpper().rightJustified(4, QLatin1Char('0'));
}

MissingCharacter missingCharacter(std::u16string_view text, std::size_t unit) {
  MissingCharacter missing;
  missing.character =
      quorvane::StartsPair(text, unit) ? quorvane::PairCodePoint(text[unit], text[unit + 1]) : text[unit];
  for (const quorvane::TLine& line : quorvane::TLines(text)) {
    const auto start = static_cast<std::size_t>(line.Text.data() - text.data());
    if (start > unit)
      break;
    ++missing.line;
    missing.index = static_cast<int>(quorvane::ServedLength(line.Text.substr(0, unit - start)));
  }
  return missing;
}

void finishReading(SourceDocument& document, const FileContents& contents) {
  if (!mayWrite(document.fileName()))
    DocumentFiller(document).setReadOnly(message("The file may not be written."), true);
  document.setFileStamp(contents.stamp);
  document.setFileHash(contentHash(contents.view()));
}

LoadResult fillDocument(const QString& fileName, const FileContents& contents, quorvane::TCodePage codePage,
                        LoadControl* control) {
  auto document = std::make_unique<SourceDocument>(fileName);
  DocumentFiller filler(*document, control);
  filler.fill(contents.view(), codePage);
  finishReading(*document, contents);
  return {std::move(document), {}};
}

} // namespace

bool changedOnDisk(const SourceDocument& document) {
  return !document.isUntitled() && stampOf(document.fileName()) != document.fileStamp();
}

LoadResult load(const QString& path, quorvane::TCodePage codePage, LoadControl* control) try {
  const QString fileName = absolute(path);
  const FileContents contents = readFile(fileName, control);
  if (!contents.error.isEmpty())
    return {nullptr, cannotOpen(fileName, contents.error)};
  return fillDocument(fileName, contents, codePage, control);
} catch (const LoadStopped&) {
  return {};
} catch (const std::bad_alloc&) {
  return {nullptr, cannotOpen(absolute(path), message("there is not enough memory"))};
}

QString reload(SourceDocument& document, quorvane::TCodePage codePage) try {
  const FileContents contents = readFile(document.fileName());
  if (!contents.error.isEmpty())
    return cannotOpen(document.fileName(), contents.error);
  DocumentFiller(document).refill(contents.view(), codePage);
  finishReading(document, contents);
  return {};
} catch (const std::bad_alloc&) {
  return cannotOpen(document.fileName(), message("there is not enough memory"));
}

std::unique_ptr<SourceDocument> newDocument(const QString& folder,
                                            const std::function<bool(const QString& path)>& isTaken) {
  for (int number = 1;; ++number) {
    const QString path = absolute(QDir(folder).filePath(QStringLiteral("Unit%1.pas").arg(number)));
    if (!QFileInfo::exists(path) && !isTaken(path))
      return std::make_unique<SourceDocument>(path, true);
  }
}

SaveResult save(SourceDocument& document, const QString& path) {
  const QString fileName = absolute(path);
  const auto failed = [&](const QString& reason) {
    return SaveResult{message("Cannot save %1: %2.").arg(fileName, reason), {}};
  };
  if (!document.holdsWholeFile())
    return failed(message("the text does not hold everything that the file does"));

  const std::u16string text = document.text();
  const quorvane::TEncodedText encoded = quorvane::Encode(text, document.encoding());
  if (encoded.FirstMissing) {
    const MissingCharacter missing = missingCharacter(text, *encoded.FirstMissing);
    SaveResult result =
        failed(message("line %1 has the character %2, which %3 lacks")
                   .arg(QString::number(missing.line), codePointName(missing.character), document.encodingName()));
    result.missing = missing;
    return result;
  }
  if (const QString reason = writeFile(fileName, encoded.Bytes); !reason.isEmpty())
    return failed(reason);

  // Writable before it is renamed: who hears of the new name looks at the read-only state as well.
  DocumentFiller(document).setWritable();
  document.setFileStamp(stampOf(fileName));
  document.setFileHash(contentHash(encoded.Bytes));
  document.setModified(false);
  document.setFileName(fileName);
  return {};
}

} // namespace desktop
