// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace desktop {

// A place in a text, both from 1; the column is one of the screen, tabs expanded.
struct CaretPlace {
  int line = 1;
  int column = 1;

  friend bool operator==(const CaretPlace&, const CaretPlace&) = default;
};

// A file that is to be opened, and where its caret goes; nowhere in particular without a place.
struct FileArgument {
  QString path;
  std::optional<CaretPlace> caret;
};

// What "FILE", "FILE:LINE" or "FILE:LINE:COL" means, both numbers from 1, as compilers write places; a colon at the end
// is left out. If there is a file of that whole name, or none of the name before the numbers, it is a name.
FileArgument readFileArgument(const QString& argument);

} // namespace desktop
