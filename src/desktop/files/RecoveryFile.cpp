// SPDX-License-Identifier: MIT
#include "desktop/files/RecoveryFile.h"

#include "desktop/files/DocumentFiller.h"
#include "desktop/files/FileStore.h"

#include <QByteArray>
#include <QDir>
#include <QJsonDocument>

#include <ctime>

#include <cstddef>
#include <utility>

namespace desktop {

namespace {

const auto fileKey = QLatin1StringView("file");
const auto untitledKey = QLatin1StringView("untitled");
const auto encodingKey = QLatin1StringView("encoding");
const auto markKey = QLatin1StringView("byteOrderMark");
const auto sizeKey = QLatin1StringView("size");
const auto modifiedKey = QLatin1StringView("modified");
const auto inodeKey = QLatin1StringView("inode");
const auto viewKey = QLatin1StringView("view");
const auto takenKey = QLatin1StringView("taken");
const auto bytesKey = QLatin1StringView("bytes");

// Now, by the clock from which files get their times; the precise one is a few milliseconds ahead of it.
std::int64_t fileTime() {
  constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
  struct timespec now = {};
  ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
  return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

QString latin1(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Whatever the text is, exactly one of the two can hold it.
std::string textBytes(std::u16string_view text) {
  quorvane::TEncodedText encoded = quorvane::Encode(text, {quorvane::TEncodingKind::Utf8, true});
  if (encoded.FirstMissing)
    encoded = quorvane::Encode(text, {quorvane::TEncodingKind::Utf16LE, true});
  return std::move(encoded.Bytes);
}

// Numbers go as text: JSON's own are exact up to 53 bits only.
QJsonObject toJson(const RecoveryNote& note, std::size_t bytes) {
  return {{fileKey, note.fileName},
          {untitledKey, note.untitled},
          {encodingKey, latin1(quorvane::EncodingName(note.encoding))},
          {markKey, note.encoding.ByteOrderMark},
          {sizeKey, QString::number(note.stamp.size)},
          {modifiedKey, QString::number(note.stamp.modifiedNanoseconds)},
          {inodeKey, QString::number(note.stamp.inode)},
          {viewKey, note.view},
          {takenKey, QString::number(note.taken)},
          {bytesKey, QString::number(bytes)}};
}

// The first line; an empty object if it is not whole or no JSON object.
QJsonObject firstLine(std::string_view bytes) {
  const std::size_t end = bytes.find('\n');
  if (end == std::string_view::npos)
    return {};
  return QJsonDocument::fromJson(QByteArray(bytes.data(), static_cast<qsizetype>(end))).object();
}

std::optional<RecoveryNote> noteOf(const QJsonObject& json) {
  RecoveryNote note;
  note.fileName = json[fileKey].toString();
  const auto encoding = quorvane::FindEncoding(json[encodingKey].toString().toStdString());
  if (!QDir::isAbsolutePath(note.fileName) || !encoding)
    return std::nullopt;
  note.untitled = json[untitledKey].toBool();
  note.encoding = *encoding;
  note.encoding.ByteOrderMark = json[markKey].toBool();
  note.stamp.size = json[sizeKey].toString().toLongLong();
  note.stamp.modifiedNanoseconds = json[modifiedKey].toString().toLongLong();
  note.stamp.inode = json[inodeKey].toString().toULongLong();
  note.view = json[viewKey].toObject();
  note.taken = json[takenKey].toString().toLongLong();
  return note;
}

} // namespace

RecoveryNote recoveryNoteOf(const SourceDocument& document) {
  return {document.fileName(), document.isUntitled(), document.encoding(), document.fileStamp(), {}, fileTime()};
}

bool isFileNewer(const RecoveryNote& note) {
  if (note.untitled || note.taken == 0)
    return false;
  const FileStamp stamp = stampOf(note.fileName);
  return stamp != FileStamp() && stamp != note.stamp && stamp.modifiedNanoseconds > note.taken;
}

std::string recoveryBytes(const RecoveryNote& note, std::u16string_view text) {
  const std::string bytes = textBytes(text);
  return QJsonDocument(toJson(note, bytes.size())).toJson(QJsonDocument::Compact).toStdString() + "\n" + bytes;
}

std::optional<RecoveryNote> readRecoveryNote(std::string_view bytes) {
  return noteOf(firstLine(bytes));
}

std::optional<RecoveredText> readRecovery(std::string_view bytes) {
  const QJsonObject json = firstLine(bytes);
  std::optional<RecoveryNote> note = noteOf(json);
  if (!note)
    return std::nullopt;
  const std::string_view text = bytes.substr(bytes.find('\n') + 1);
  if (json[bytesKey].toString() != QString::number(text.size()))
    return std::nullopt;
  return RecoveredText{*std::move(note), std::string(text)};
}

quorvane::TEncodedText savedBytes(const RecoveredText& recovered) {
  return quorvane::Encode(quorvane::Decode(recovered.text).Text, recovered.note.encoding);
}

std::unique_ptr<SourceDocument> restoredDocument(const RecoveredText& recovered) {
  const RecoveryNote& note = recovered.note;
  auto document = std::make_unique<SourceDocument>(note.fileName, note.untitled);
  DocumentFiller(*document).fill(recovered.text, quorvane::DefaultCodePage);
  document->setEncoding(note.encoding);
  document->setFileStamp(note.stamp);
  document->setModified(true);
  return document;
}

} // namespace desktop
