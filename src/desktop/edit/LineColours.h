// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/SyntaxAttribute.h"
#include "lexer/zkPasLex.h"

#include <QStringView>

#include <string>
#include <vector>

namespace desktop {

// A stretch of a line with one attribute; units are UTF-16 units from the start of the line.
struct ColourRun {
  int start = 0;
  int length = 0;
  SyntaxAttribute attribute = SyntaxAttribute::Blank;

  friend bool operator==(const ColourRun&, const ColourRun&) = default;
};

// Scans single lines of Pascal for what their characters belong to. The lexer sees each UTF-16 unit as one byte, so its
// positions are the document's. A NUL does not end the line here: the scan goes on behind it, in the state it was in.
//
// Words that are reserved only in their place are told by the place: a visibility first on its line, a directive of a
// routine after a semicolon on the same line. Keep one scanner for many lines; making one copies the lexer's tables.
class LineScanner {
public:
  // Scans `line`, which begins in comment state `start`, and returns the state in which it ends. The runs, in order, go
  // to `runs` unless that is null; blanks between them are left out.
  quorvane::TCommentState scan(QStringView line, quorvane::TCommentState start, std::vector<ColourRun>* runs);

  // The attribute of the character at `unit`; at the end of the line, of a character that would be typed there.
  SyntaxAttribute attributeAt(QStringView line, quorvane::TCommentState start, int unit);

private:
  SyntaxAttribute currentAttribute(quorvane::TptTokenKind previous) const;

  quorvane::TzkBasePasLex lexer_;
  std::string bytes_;
};

} // namespace desktop
