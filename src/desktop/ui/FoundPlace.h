// SPDX-License-Identifier: MIT
// A place in a file that a check or a search has found.
#pragma once

#include <QString>

namespace desktop {

enum class Severity { Error, Warning, Information, Match };

struct FoundPlace {
  QString fileName; // absolute and clean, as SourceDocument::fileName
  int line = 1;     // from 1
  int column = 1;   // the cell of the screen from 1, tabs expanded, as the status bar counts; only shown
  int unit = 0;     // the UTF-16 unit in the line, from 0: where the caret goes
  int length = 0;   // how many units are selected then; none at 0
  QString text;     // what there is to say, or the line itself; one line of plain text
  Severity severity = Severity::Match;
};

} // namespace desktop
