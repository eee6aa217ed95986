// SPDX-License-Identifier: MIT
// The text of one open file.
//
// A SourceDocument is a text document that knows which file it stands for and how that file writes its characters and
// its line ends, so that saving an unchanged document gives the very bytes back. Every line break of the document
// remembers the line end it stood for in the file; because this is part of the break itself, removing, moving and
// undoing keep every other line end as it was. A break typed into a line becomes what the text before it has.
//
// Documents are made by load() and newDocument() of FileStore and belong to whoever opened them. A document is for the
// thread that made it, and when it has been moved to another, with moveToThread, for that one.
#pragma once

#include "desktop/files/TextSnapshot.h"
#include "text/Encoding.h"
#include "text/LineEnds.h"

#include <QString>
#include <QTextBlock>
#include <QTextDocument>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace desktop {

class LineEndsCopy;
class ServedCopy;

// What a file on disk looked like, to tell whether another program has written it since. Two stamps of an unchanged
// file are equal; a file that is missing has the default stamp.
struct FileStamp {
  std::int64_t size = -1; // bytes
  std::int64_t modifiedNanoseconds = 0;
  std::uint64_t inode = 0;

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

class SourceDocument : public QTextDocument {
  Q_OBJECT

public:
  // An empty document for the absolute path `fileName`, in UTF-8 with LF line ends. `untitled`: the name is made up, no
  // file has been written yet.
  explicit SourceDocument(const QString& fileName, bool untitled = false, QObject* parent = nullptr);
  ~SourceDocument() override;

  // Absolute. Of an untitled document a made-up name ending in ".pas".
  const QString& fileName() const { return fileName_; }
  bool isUntitled() const { return untitled_; }
  // From now on the document stands for the file at the absolute path `fileName`, which has been written.
  void setFileName(const QString& fileName);

  // How the file writes its characters.
  const quorvane::TEncoding& encoding() const { return encoding_; }
  // Changes how the document will be written; it counts as modified when that is another encoding.
  void setEncoding(const quorvane::TEncoding& encoding);
  // For the user, as in "windows-1252" or "UTF-8 with BOM".
  QString encodingName() const;

  // The line end that most lines of the file have, LF where there are none; a line typed anew has it.
  quorvane::TLineEnd usualLineEnd() const { return usualLineEnd_; }
  // Whether the file came with more than one kind of line end.
  bool hasMixedLineEnds() const { return mixedLineEnds_; }
  // The line end after `block`; None for the last one.
  quorvane::TLineEnd lineEndOf(const QTextBlock& block) const;

  // True when the text must not be changed. The reason is a sentence for the user, empty otherwise.
  bool isReadOnlyText() const { return !readOnlyReason_.isEmpty(); }
  const QString& readOnlyReason() const { return readOnlyReason_; }
  // False when the document does not hold all of its file, so that it must not be written under any name.
  bool holdsWholeFile() const { return holdsWholeFile_; }

  // True for a file that is too large, or has too long a line, to be treated as source: it has no colours and is not
  // offered to add-ins. Decided when the file is opened. The reason is a sentence for the user, empty otherwise.
  bool isPlain() const { return !plainReason_.isEmpty(); }
  const QString& plainReason() const { return plainReason_; }

  // The text as add-ins read it: one byte a character, lines ended by CR LF; never null. The same object until the text
  // changes, and cheap to ask for after a small edit; see ServedCopy.
  std::shared_ptr<const std::string> servedText() const;
  // Where line `line` (from 0, below blockCount()) begins in the served text, from 0.
  std::size_t servedLineStart(int line) const;
  // The line (from 0) of the served text's byte `position`, which is clipped to the text.
  int lineOfServedPosition(std::size_t position) const;

  // The text as it is now. Linear, but quicker than text() by far.
  TextSnapshot snapshot() const;
  // The text with the file's line ends. Linear, as is toBytes.
  std::u16string text() const { return snapshot().text(); }
  // The bytes to be written, or the place in text() of the first character that the encoding lacks.
  quorvane::TEncodedText toBytes() const;

  // The file as it was when it was last read or written.
  const FileStamp& fileStamp() const { return stamp_; }
  void setFileStamp(const FileStamp& stamp) { stamp_ = stamp; }
  // The contentHash of the file's bytes then.
  std::size_t fileHash() const { return fileHash_; }
  void setFileHash(std::size_t hash) { fileHash_ = hash; }

Q_SIGNALS:
  void fileNameChanged();
  void encodingChanged();

private:
  friend class DocumentFiller;

  QString fileName_;
  bool untitled_;
  quorvane::TEncoding encoding_;
  quorvane::TLineEnd usualLineEnd_ = quorvane::TLineEnd::Lf;
  bool mixedLineEnds_ = false;
  bool holdsWholeFile_ = true;
  QString readOnlyReason_;
  QString plainReason_;
  FileStamp stamp_;
  std::size_t fileHash_ = 0;
  std::unique_ptr<ServedCopy> served_;
  std::unique_ptr<LineEndsCopy> lineEnds_;
};

} // namespace desktop
