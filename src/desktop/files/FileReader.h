// SPDX-License-Identifier: MIT
// Reading whole files, within the limits of what the editor opens.
#pragma once

#include "desktop/files/LoadControl.h"
#include "desktop/files/SourceDocument.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <string_view>

namespace desktop {

struct FileContents {
  QByteArray bytes;
  FileStamp stamp; // from before the bytes were read
  QString error;   // why they could not be read, for the user, without the file's name; empty on success

  std::string_view view() const { return {bytes.constData(), static_cast<std::size_t>(bytes.size())}; }
};

// Reads the file at the absolute path `path`. Devices and pipes are refused before they are opened, since reading one
// may never end. With a `control` it raises LoadStopped when that is stopped. Any thread.
FileContents readFile(const QString& path, const LoadControl* control = nullptr);

// A number that tells different contents of a file apart.
std::size_t contentHash(std::string_view bytes);

} // namespace desktop
