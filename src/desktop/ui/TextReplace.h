// SPDX-License-Identifier: MIT
// Replacing what a search finds.
#pragma once

#include "desktop/ui/TextSearch.h"

#include <QString>

#include <optional>
#include <vector>

namespace desktop {

// A place in a document, in its positions, and what is to stand there.
struct Replacement {
  int position = 0;
  int length = 0;
  QString text;
};

// What takes the place of `match`: `with` as it is, or, for a regular expression, with \0 to \9 replaced by what the
// groups captured, \n by a line end, \t by a tab and a doubled backslash by one. A backslash before anything else
// stays.
QString replacementOf(const LineMatch& match, const QString& with);

// The replacement of the match that is exactly what `selection` selects; none when that is no match.
std::optional<Replacement> replacementAt(const QTextCursor& selection, const TextMatcher& matcher,
                                         const SearchRange& range, const QString& with);

struct Replacements {
  std::vector<Replacement> all; // from the top, not overlapping
  bool stopped = false;         // `goOn` has ended the walk, so they are not all
  GivenUp givenUp;              // they are not all either: the walk has ended at this line
};

// The replacements of all matches within `range`. `goOn` is called with the number of lines done. Linear.
Replacements collectReplacements(const QTextDocument& document, const TextMatcher& matcher, const SearchRange& range,
                                 const QString& with, const GoOn& goOn);

// Carries out replacements, given from the top and not overlapping, as one undo step. `goOn` is called now and then
// with the number done, at moments when the document is as whole as ever. Returns how many have been carried out: all
// of them, or those before it said no.
int applyReplacements(QTextDocument& document, const std::vector<Replacement>& replacements, const GoOn& goOn);
// The same without a pause.
void applyReplacements(QTextDocument& document, const std::vector<Replacement>& replacements);

} // namespace desktop
