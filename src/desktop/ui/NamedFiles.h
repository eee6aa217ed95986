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
  // name, if there is a folder for it. `caret` is its place where the name tells none. Null when that is not possible;
  // the window's message bar then says why.
  Page* open(const QString& name, const std::optional<CaretPlace>& caret = {});
  // The same, but a file that is missing cannot be opened.
  Page* openExisting(const QString& name, const std::optional<CaretPlace>& caret = {});
  // The same as open(), but nobody waits for a large file: its page comes later, with its caret in place, and is not
  // among pages(). Returns whether it is opened, as far as that is known.
  bool openSoon(const QString& name, const std::optional<CaretPlace>& caret = {});
  // The pages that were opened, in the order of their names, but for those that have been closed since; one page for
  // all names of a file.
  QList<Page*> pages() const;
  // Brings the first page to the front of the top window; a large file that was named first follows when it is there.
  // False if there is no page yet.
  bool show() const;
  // Puts the carets to their places and brings them into sight: to be called when the windows have their sizes. `caret`
  // is for the page in front where no file was named.
  void placeCarets(const std::optional<CaretPlace>& caret = {});

private:
  Page* begin(const QString& path);
  Page* add(Page* page, const std::optional<CaretPlace>& caret);

  Workspace& workspace_;
  QList<QPointer<Page>> pages_;
  QString largeFirst_;                                        // the file named first, if it comes later
  std::vector<std::pair<QPointer<Page>, CaretPlace>> carets_; // that have yet to be put
};

} // namespace desktop
