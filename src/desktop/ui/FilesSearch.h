// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/FindInFiles.h"
#include "desktop/ui/FindInFilesDialog.h"

#include <QObject>
#include <QPointer>
#include <QString>

namespace desktop {

class TEditWindow;
class Workspace;

// Search > Find in Files: lists the matches in the files of a folder, and in the texts of open pages where they are not
// what their files hold. The search has a thread of its own and goes on while the user does other things; a new one
// ends the one before. Main thread only.
class FilesSearch : public QObject {
  Q_OBJECT

public:
  // The list of results belongs to `workspace`, which must outlive the search.
  explicit FilesSearch(Workspace& workspace);

  // Asks what to find, in a dialog over the frame of `window`, and begins. The text is what is selected in `window`, if
  // that is in one line, or what was looked for last; the folder is that of the page in front, or the one searched last
  // with its subfolders if the page is in that.
  void ask(TEditWindow* window);
  // Begins a search and shows the panel in the frame of `window`.
  void start(const FindInFilesRequest& request, TEditWindow* window);

private:
  FindInFilesRequest suggestion(const TEditWindow* window) const;
  std::vector<OpenText> openTexts() const;
  void list(const std::vector<FileMatch>& matches);
  void showProgress(const FileSearchOutcome& sofar);
  void finish(const FileSearchOutcome& outcome, const QString& trouble);

  Workspace& workspace_;
  FindInFilesRequest last_;
  QPointer<TEditWindow> window_; // where the search was begun
  int run_ = 0;                  // of the list of results
  FindInFiles finder_{this};
};

} // namespace desktop
