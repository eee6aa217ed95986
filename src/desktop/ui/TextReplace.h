// SPDX-License-Identifier: MIT
// Replacing what a search finds.
#pragma once

#include "desktop/ui/TextSearch.h"

#include <QString>

#include <functional>
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

// Whether a long walk goes on; called with the number of lines done. It may process events: if it says no, nothing of
// the document is touched any more.
using GoOn = std::function<bool(int lines)>;

// The replacements of all matches within `range`, from the top; none when `goOn` ended the walk. Linear.
std::optional<std::vector<Replacement>> collectReplacements(const QTextDocument& document, const TextMatcher& matcher,
                                                            const SearchRange& range, const QString& with,
                                                            const GoOn& goOn);

// Carries out replacements, given from the top and not overlapping, as one undo step.
void applyReplacements(QTextDocument& document, const std::vector<Replacement>& replacements);

} // namespace desktop
