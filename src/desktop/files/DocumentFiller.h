// SPDX-License-Identifier: MIT
// Puts a file's bytes into a document.
#pragma once

#include "desktop/files/LoadControl.h"
#include "desktop/files/SourceDocument.h"
#include "text/CodePages.h"
#include "text/Encoding.h"

#include <QString>
#include <QTextCursor>

#include <cstddef>
#include <string_view>

namespace desktop {

// Fills one document, empty at first, and then makes sure that it holds the file: a character that a text document
// takes for a break, or bytes that are no text, make it read-only. Filling is not an edit, so there is nothing to undo
// afterwards.
class DocumentFiller {
public:
  // Filling tells `control`, if there is one, how far it is, and raises LoadStopped when that is stopped; the document
  // is of no use then.
  explicit DocumentFiller(SourceDocument& document, LoadControl* control = nullptr)
      : document_(document), control_(control) {}

  void fill(std::string_view bytes, quorvane::TCodePage codePage);
  // Gives a document that is in use the contents of its file as they are now. This is one step to be undone; lines that
  // are in both texts are left alone, and what marks places in them with them. The document is unmodified then.
  void refill(std::string_view bytes, quorvane::TCodePage codePage);
  // Makes the document read-only for `reason` unless it is so already; `wholeFile`: it still holds all of its file.
  void setReadOnly(const QString& reason, bool wholeFile);
  // Lifts what setReadOnly has set for a document that holds its whole file.
  void setWritable();

private:
  void findUsualLineEnd(std::u16string_view text);
  void insert(std::u16string_view text);
  void insertRun(QTextCursor& cursor, std::u16string_view run, quorvane::TLineEnd end);
  void noteInserted(std::size_t units);
  void reach(double done);
  void checkLimits(std::u16string_view text, std::size_t bytes);
  void checkText(std::u16string_view text);
  void checkFilled(const quorvane::TDecodedText& decoded);
  void takeLineEnds(std::u16string_view text);
  void rewrite(std::u16string_view text);

  SourceDocument& document_;
  LoadControl* control_;
  std::size_t unitsInserted_ = 0;
  std::size_t unitsNoted_ = 0; // of those, when it was last told how far filling is
  std::size_t unitsToInsert_ = 0;
};

} // namespace desktop
