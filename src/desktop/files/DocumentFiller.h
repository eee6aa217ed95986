// SPDX-License-Identifier: MIT
// Puts a file's bytes into a document.
#pragma once

#include "desktop/files/SourceDocument.h"
#include "text/CodePages.h"
#include "text/Encoding.h"

#include <QString>

#include <string_view>

namespace desktop {

// Fills one document, empty at first, and then makes sure that it holds the file: a character that a text document
// takes for a break, or bytes that are no text, make it read-only. Filling is not an edit, so there is nothing to undo
// afterwards.
class DocumentFiller {
public:
  explicit DocumentFiller(SourceDocument& document) : document_(document) {}

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
  void checkLimits(std::u16string_view text, std::size_t bytes);
  void checkText(std::u16string_view text);
  void checkFilled(const quorvane::TDecodedText& decoded);
  void takeLineEnds(std::u16string_view text);
  void rewrite(std::u16string_view text);

  SourceDocument& document_;
};

} // namespace desktop
