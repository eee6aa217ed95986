// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/FileArgument.h"

#include <QList>
#include <QPointer>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace desktop {

class Page;
class Workspace;

// Opens files as a command line names them, each at its place, and shows the first of them. Main thread only.
class NamedFiles {
public:
  // Opens in the top window of `workspace`, which must outlive it.
  explicit NamedFiles(Workspace& workspace);

  // Opens what "FILE", "FILE:LINE" or "FILE:LINE:COL" names; a file that is missing begins as an empty page under its
  // name, if there is a folder for it. Null when that is not possible; the window's message bar then says why.
  Page* open(const QString& name);
  // The same, but a file that is missing cannot be opened.
  Page* openExisting(const QString& name);
  // The pages that were opened, in the order of their names, but for those that have been closed since; one page for
  // all names of a file.
  QList<Page*> pages() const;
  // Brings the first page to the front of the top window. False if there is none.
  bool show() const;
  // Puts the carets to their places and brings them into sight: to be called when the windows have their sizes.
  // `caret`, if it is given, is the place in the page in front.
  void placeCarets(const std::optional<CaretPlace>& caret);

private:
  Page* begin(const QString& path);
  Page* add(Page* page, const FileArgument& argument);

  Workspace& workspace_;
  QList<QPointer<Page>> pages_;
  std::vector<std::pair<QPointer<Page>, CaretPlace>> carets_; // that have yet to be put
};

} // namespace desktop
