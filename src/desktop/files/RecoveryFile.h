// SPDX-License-Identifier: MIT
// What a recovery file holds: unsaved text, and whose it is.
//
// The first line is a JSON object with the name of the file that the text belongs to, its encoding, and how it was
// shown; the rest is the text with its own line ends, in UTF-8 or, for a text that UTF-8 cannot hold, UTF-16, both with
// a byte-order mark. So nothing is lost even of a text that the encoding of its file cannot write.
#pragma once

#include "desktop/files/SourceDocument.h"

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace desktop {

// Whose text it is.
struct RecoveryNote {
  QString fileName;             // absolute
  bool untitled = false;        // the name is made up
  quorvane::TEncoding encoding; // with which the text was to be saved
  FileStamp stamp;              // of the file when it was last read or written
  QJsonObject view;             // how it was shown; for whoever shows texts
  std::int64_t taken = 0;       // when the text was so, in nanoseconds as a FileStamp has them; 0 if that is not known
};

// Of the document as it is now.
RecoveryNote recoveryNoteOf(const SourceDocument& document);

// Whether the file of that name was written after the text had been kept, as by saving right before a crash. The text
// counts as newer where nothing shows the contrary.
bool isFileNewer(const RecoveryNote& note);

// The bytes of a recovery file. Linear. Any thread.
std::string recoveryBytes(const RecoveryNote& note, std::u16string_view text);

struct RecoveredText {
  RecoveryNote note;
  std::string text; // its bytes, byte-order mark included
};

// Whose text a recovery file has that begins with `bytes`; nothing if they do not hold its whole first line.
std::optional<RecoveryNote> readRecoveryNote(std::string_view bytes);
// What the bytes of a recovery file hold; nothing if they are no whole recovery file.
std::optional<RecoveredText> readRecovery(std::string_view bytes);

// The bytes that saving the text would write, or where it has a character that its encoding lacks.
quorvane::TEncodedText savedBytes(const RecoveredText& recovered);
// A modified document with the text, as if it had been typed into the file, which is not read.
std::unique_ptr<SourceDocument> restoredDocument(const RecoveredText& recovered);

} // namespace desktop
