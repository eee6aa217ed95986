// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/EditedLines.h"

#include <QObject>
#include <QTextDocument>

#include <cstddef>
#include <memory>
#include <string>

namespace desktop {

// The text of one document as add-ins read it: one byte a character, lines ended by CR LF.
//
// Add-ins read the whole text many times a second, so the copy is not made anew after each edit: it listens to the
// document, knows how many lines at the start and at the end of the text have stayed as they were, and serves only
// those between them again when it is next asked. A text that was given out is never changed; who still holds one has
// the old text, and the copy goes on with another.
//
// Patching is trusted only while every edit has been heard of. An edit that was not (signals blocked, or made while
// another was being reported), and a question in the midst of an edit block, have the whole text served again. Main
// thread only.
class ServedCopy : public QObject {
  Q_OBJECT

public:
  // Listens to `document`, which must outlive the copy.
  explicit ServedCopy(const QTextDocument& document);
  ~ServedCopy() override;

  // The text as it is now; never null.
  std::shared_ptr<const std::string> text();
  // Where line `line` (from 0, below the document's number of blocks) begins in that text, from 0.
  std::size_t lineStart(int line);
  // The line (from 0) of the text's byte `position`, which is clipped to the text.
  int lineOfPosition(std::size_t position);

private:
  struct Served;

  const std::shared_ptr<Served>& present();
  std::shared_ptr<Served> serveAll() const;
  void patch(const EditedLines::Kept& unchanged);

  const QTextDocument& document_;
  EditedLines edits_;
  std::shared_ptr<Served> kept_;        // null, or right but for the lines edited since it was last asked for
  std::shared_ptr<Served> provisional_; // of an edit block that has not ended
};

} // namespace desktop
