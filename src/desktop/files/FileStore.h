// SPDX-License-Identifier: MIT
// Reading documents from files and writing them back, without ever losing what a file held.
#pragma once

#include "desktop/files/LoadControl.h"
#include "desktop/files/SourceDocument.h"
#include "text/CodePages.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace desktop {

// Files over `plainFileBytes`, or with a line over `plainLineCharacters`, open as plain text; files over
// `largestFileBytes` or with more than `mostLines` line ends are refused: a line costs the document about 500 bytes
// whatever its length, and the editor must not take the machine's memory with other files' unsaved text in it.
inline constexpr std::int64_t plainFileBytes = std::int64_t{64} << 20;
inline constexpr std::int64_t largestFileBytes = std::int64_t{256} << 20;
inline constexpr std::size_t plainLineCharacters = 100'000;
inline constexpr std::int64_t mostLines = 3'000'000;

struct LoadResult {
  std::unique_ptr<SourceDocument> document; // null when the file could not be opened
  QString error;                            // then the reason, a sentence for the user that names the file
};

// Opens the file at `path`. Whatever its bytes are, the document gives them back or is read-only and says why. Bytes
// that are neither marked nor UTF-8 are taken as `codePage`. With a `control` it tells there how far it is, and when
// that is stopped there is neither a document nor an error. Any thread; the document belongs to the one that calls.
LoadResult load(const QString& path, quorvane::TCodePage codePage = quorvane::DefaultCodePage,
                LoadControl* control = nullptr);

// Gives `document` what its file holds now, unmodified, as one step to be undone. Lines that stay are left alone, with
// the carets and tracked lines in them. Returns why that is not possible, a sentence that names the file, or an empty
// string.
QString reload(SourceDocument& document, quorvane::TCodePage codePage = quorvane::DefaultCodePage);

// An empty document under a made-up name in `folder`: "Unit1.pas", or the next number for which there is neither a file
// nor `isTaken`.
std::unique_ptr<SourceDocument> newDocument(const QString& folder,
                                            const std::function<bool(const QString& path)>& isTaken);

// A character that the document's encoding cannot write.
struct MissingCharacter {
  char32_t character = 0; // the code point; a lone surrogate stands for itself
  int line = 0;           // from 1
  int index = 0;          // characters before it on its line
};

struct SaveResult {
  QString error;                           // why nothing was written, a sentence that names the file; empty on success
  std::optional<MissingCharacter> missing; // set when that is because of a character; nothing was touched then

  bool ok() const { return error.isEmpty(); }
};

// Writes `document` to `path` and lets it stand for that file, unmodified, from then on. On failure the document is as
// before and the file has its old contents. The new contents replace the old in one step, keeping symbolic links and
// modes; a file that must stay the same one (it has further hard links or another owner, or its folder takes no new
// files) is written in place, with a backup beside it until that is done.
SaveResult save(SourceDocument& document, const QString& path);

// The present stamp of the file at `path`.
FileStamp stampOf(const QString& path);
// Whether another program has changed or removed the file of `document` since it was last read or written.
bool changedOnDisk(const SourceDocument& document);

} // namespace desktop
