// SPDX-License-Identifier: MIT
#include "host/QVSourceUtils.h"

#include "platform/Errors.h"

namespace quorvane {

namespace {

// The most that one read may ask of a host. A source of exactly this size needs a second, empty read to be known
// complete.
constexpr int kChunkSize = 32767;

// The extension with its dot, or empty. A dot in a folder's name does not count.
QString FileExtension(const QString& fileName) {
  const qsizetype dot = fileName.lastIndexOf(u'.');
  return dot > fileName.lastIndexOf(u'/') ? fileName.mid(dot) : QString();
}

} // namespace

bool IsPascalFile(const QString& fileName) {
  const QString extension = FileExtension(fileName).toLower();
  return extension == QStringLiteral(".pas") || extension == QStringLiteral(".dpr");
}

void GetSourceFromReader(const std::shared_ptr<platform::IOTAEditReader>& reader, std::string& text) {
  platform::Require(reader != nullptr, "QVSourceUtils");
  text.clear();
  const auto scratch = std::make_unique_for_overwrite<char[]>(kChunkSize);
  int count = 0;
  int position = 0;
  do {
    count = reader->GetText(position, scratch.get(), kChunkSize);
    platform::Require(count >= 0 && count <= kChunkSize, "QVSourceUtils");
    text.append(scratch.get(), static_cast<std::size_t>(count));
    position += count;
  } while (count == kChunkSize);
}

} // namespace quorvane
