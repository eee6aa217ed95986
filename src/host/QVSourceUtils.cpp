// SPDX-License-Identifier: MIT
#include "host/QVSourceUtils.h"

#include "platform/Errors.h"

namespace quorvane {

namespace {

// The most that one read may ask of a host. A source of exactly this size needs a second, empty read to be known
// complete.
constexpr int kChunkSize = 32767;

constexpr const char* kUnit = "QVSourceUtils";

// Cuts a text down to what has been read into it when it goes, however the reading ends.
struct TCutAtEnd {
  std::string& Text;
  const std::size_t& Size;
  ~TCutAtEnd() { Text.resize(Size); }
};

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

// The chunks are read straight into their places, over the text of last time: so the whole costs one copy.
void GetSourceFromReader(const std::shared_ptr<platform::IOTAEditReader>& reader, std::string& text) {
  platform::Require(reader != nullptr, kUnit);
  std::size_t position = 0;
  const TCutAtEnd cut{text, position};
  int count = 0;
  do {
    if (text.size() - position < kChunkSize)
      text.resize(position + kChunkSize);
    count = reader->GetText(static_cast<int>(position), text.data() + position, kChunkSize);
    platform::Require(count >= 0 && count <= kChunkSize, kUnit);
    position += static_cast<std::size_t>(count);
  } while (count == kChunkSize);
}

} // namespace quorvane
