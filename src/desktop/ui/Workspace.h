// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/SearchPath.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

#include <memory>
#include <vector>

namespace desktop {

class Appearance;
class ClosedPages;
class EnvironmentSettings;
class FileCheck;
class FileCommands;
class FilesSearch;
class FileOpenings;
class MainWindow;
class PackageList;
class Page;
class RecentFiles;
class ResultList;
class ResultWalk;
class SourceDocument;
struct LoadResult;
class TEditWindow;

// All that is open: the editor windows, each in its frame, and their pages.
//
// A file is open on one page only. The top window is the editor window that was activated last, also while a dialog has
// the focus. The first window's frame is the application's main form and lives as long as the workspace; closed while
// others are open it is only hidden. Exceptions that reach the application are shown in the top window's message bar.
// Main thread only.
class Workspace : public QObject {
  Q_OBJECT

public:
  // The first window is there at once, without a page and not yet shown.
  explicit Workspace(QObject* parent = nullptr);
  // Destroys every window, saved or not. Packages must have been unloaded before.
  ~Workspace() override;

  // All editor windows in the order of their creation; at least one.
  QList<TEditWindow*> windows() const;
  // The editor window activated last; the first one while none has been. Null only while the workspace is destroyed.
  TEditWindow* topWindow() const { return activationOrder_.isEmpty() ? nullptr : activationOrder_.constFirst(); }
  // The page in front of the top window, or null.
  Page* topPage() const;
  // The frame around `window`.
  MainWindow* frameOf(const TEditWindow* window) const;

  // Opens the file at `path` in the top window, or brings its page to the front wherever it is open. Null when it
  // cannot be opened; the window's message bar then says why. A single page that nobody has written on makes room for
  // the file. The page is there at once, however long that takes; openings() is for the user, who does not wait.
  Page* openFile(const QString& path) { return openFileIn(topWindow(), path); }
  Page* openFileIn(TEditWindow* window, const QString& path);
  // Shows the document of a file that has been loaded in the same way, or says why there is none.
  Page* addLoaded(TEditWindow* window, const QString& fileName, LoadResult loaded);
  // Shows `document` on a new page of `window`, in place of a single page that nobody has written on.
  Page* addPage(TEditWindow* window, std::unique_ptr<SourceDocument> document);
  // An empty page with a made-up name, which no untitled page has had before: whoever knows a page by its name must not
  // take another for it.
  Page* newFile() { return newFileIn(topWindow()); }
  Page* newFileIn(TEditWindow* window);
  // Shows a further editor window with an empty page.
  TEditWindow* newWindow();
  // Brings `page` to the front of its window, and that window to the top.
  void showPage(Page* page);
  // The page that shows the file at `path`, in whichever window, or null.
  Page* findPage(const QString& path) const;
  // The folder of the file that was opened last, or the current one.
  QString currentFolder() const;

  // Whether `frame` may close: asks about unsaved changes and then closes its pages. Those of the last visible frame
  // stay, because with it the program ends.
  bool mayCloseFrame(MainWindow* frame);
  // Ends the program's event loop after asking about unsaved changes.
  void exit();

  FileCommands& files() const { return *files_; }
  FileOpenings& openings() const { return *openings_; }
  // The host's own settings; in memory only until they are given their file.
  EnvironmentSettings& settings() const { return *settings_; }
  Appearance& appearance() const { return *appearance_; }
  // In memory only until it is given its file.
  RecentFiles& recentFiles() const { return *recentFiles_; }
  ClosedPages& closedPages() const { return *closedPages_; }
  // What the last check or search has found, and the way from one place to the next.
  ResultList& results() const { return *results_; }
  ResultWalk& resultWalk() const { return *resultWalk_; }
  FileCheck& fileCheck() const { return *fileCheck_; }
  FilesSearch& filesSearch() const { return *filesSearch_; }

  // The packages that the user may load and unload, or null, as at first. Not owned.
  PackageList* packages() const { return packages_; }
  void setPackages(PackageList* packages) { packages_ = packages; }
  // Where units are looked for; in memory only until it is given its file.
  SearchPath& searchPath() { return searchPath_; }

Q_SIGNALS:
  void windowOpened(TEditWindow* window);
  void pageOpened(Page* page);
  // `window` is the top window now.
  void topWindowChanged(TEditWindow* window);

private:
  MainWindow* addFrame();
  void removeFrame(MainWindow* frame);
  void showFrame(MainWindow* frame);
  void bringToTop(TEditWindow* window);
  void putLast(TEditWindow* window);
  void announceTop(TEditWindow* previous);
  void reportError(const QString& message, int count);
  void reportUnkeptSettings(const QString& problem);
  QList<Page*> allPages() const;
  bool isLastVisible(const MainWindow* frame) const;

  FileCommands* files_;
  FileOpenings* openings_;
  EnvironmentSettings* settings_;
  Appearance* appearance_;
  RecentFiles* recentFiles_;
  ResultList* results_;
  ResultWalk* resultWalk_;
  FileCheck* fileCheck_;
  FilesSearch* filesSearch_;
  ClosedPages* closedPages_ = nullptr;
  PackageList* packages_ = nullptr;
  SearchPath searchPath_;
  std::vector<std::unique_ptr<MainWindow>> frames_; // in the order of their creation; the main form first
  QList<TEditWindow*> activationOrder_;             // the top window first
  int nextWindowNumber_ = 0;
  QString lastFolder_;
  QSet<QString> untitledNames_; // of all untitled pages so far
};

} // namespace desktop
